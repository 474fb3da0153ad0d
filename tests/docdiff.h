#pragma once
// Compares two documents up to their numbers, without a test framework, so that both
// the gtest suites and the QTest board binary can use it.
#include <QRegularExpression>
#include <QStringList>
#include <QVector>
#include <algorithm>
#include <cmath>

struct DocDiff {
    enum Kind { Same, Structure, Number } kind = Same;
    int index = -1;  // the first number that differs
    double a = 0, b = 0;
};

// Documents equal when their text around the numbers is the same and each pair of
// numbers differs by at most tol (relative above 1).
inline DocDiff compareDocuments(const QString &a, const QString &b, double tol)
{
    static const QRegularExpression num(QStringLiteral("-?\\d+(\\.\\d+)?([eE][-+]?\\d+)?"));
    auto split = [](const QString &s, QStringList &text, QVector<double> &nums) {
        int last = 0;
        auto it = num.globalMatch(s);
        while (it.hasNext()) {
            const auto m = it.next();
            text << s.mid(last, m.capturedStart() - last);
            nums << m.captured().toDouble();
            last = m.capturedEnd();
        }
        text << s.mid(last);
    };
    QStringList ta, tb;
    QVector<double> na, nb;
    split(a, ta, na);
    split(b, tb, nb);
    DocDiff d;
    if (ta != tb || na.size() != nb.size()) {
        d.kind = DocDiff::Structure;
        return d;
    }
    for (int i = 0; i < na.size(); ++i)
        if (std::fabs(na[i] - nb[i]) > tol * std::max(1.0, std::fabs(na[i]))) {
            d.kind = DocDiff::Number;
            d.index = i;
            d.a = na[i];
            d.b = nb[i];
            return d;
        }
    return d;
}
