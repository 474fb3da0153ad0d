#pragma once
// Shared helpers for the suites: make apparatus, stream them, compare documents.
#include <QByteArray>
#include <QDataStream>
#include <QJsonArray>
#include <QRegularExpression>
#include <cmath>
#include <framework.h>
#include <gtest/gtest.h>
#include <memory>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

struct ObjDeleter {
    void operator()(CWBPhysicalObject *o) const { if (o) o->Release(); }
};
using ObjPtr = std::unique_ptr<CWBPhysicalObject, ObjDeleter>;

inline ObjPtr makeObject(int type, bool defaultSize = false)
{
    return ObjPtr(createObject_physical(0, type, defaultSize));
}

inline QByteArray saveBytes(CSVGBase *c)
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    c->save(out);
    return b;
}

// Loads into a fresh container of the same type; status tells whether the stream was whole.
inline ObjPtr loadBytes(int type, const QByteArray &b, QDataStream::Status *status = nullptr)
{
    ObjPtr o = makeObject(type);
    QDataStream in(b);
    o->content()->load(in);
    if (status)
        *status = in.status();
    return o;
}

inline QString svgText(CSVGBase *c) { return QString::fromUtf8(c->document()->toSvg()); }

// Documents equal up to numbers that differ by at most tol.
inline ::testing::AssertionResult sameDocument(const QString &a, const QString &b, double tol = 1e-9)
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
    if (ta != tb || na.size() != nb.size())
        return ::testing::AssertionFailure() << "documents differ in structure:\n" << a.toStdString() << "\n---\n" << b.toStdString();
    for (int i = 0; i < na.size(); ++i)
        if (std::fabs(na[i] - nb[i]) > tol * std::max(1.0, std::fabs(na[i])))
            return ::testing::AssertionFailure() << "number " << i << " differs: " << na[i] << " vs " << nb[i];
    return ::testing::AssertionSuccess();
}

inline QJsonArray settingsOf(CSVGBase *c)
{
    QJsonArray a;
    c->GetSettingArray(a);
    return a;
}

inline QSvgNode *node(CSVGBase *c, const char *id) { return c->document()->namedNode(QLatin1String(id)); }

inline QPointF drag(CSVGBase *c, const char *handle, double dx, double dy, bool final = true)
{
    return c->moveControlPoint(node(c, handle), QPointF(dx, dy), final);
}

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString &s, std::ostream *os) { *os << '"' << s.toStdString() << '"'; }
QT_END_NAMESPACE
