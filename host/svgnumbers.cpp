// Numbers as the drawing writes and reads them.
#include "svgnode_p.h"
#include <charconv>
#include <cmath>

namespace SvgNodeDetail {

// Reads one number at p (sign, digits, fraction, exponent) and moves p past it.
// Numbers are read on every step of a drag, so this allocates nothing.
bool readNumber(const QChar *&p, const QChar *end, double &value)
{
    auto atEnd = [&](const QChar *q) { return end ? q >= end : q->isNull(); };
    while (!atEnd(p) && (p->isSpace() || *p == QLatin1Char(',')))
        ++p;
    if (atEnd(p))
        return false;
    const QChar *q = p;
    if (*q == QLatin1Char('+') || *q == QLatin1Char('-'))
        ++q;
    bool digits = false;
    while (!atEnd(q) && q->isDigit()) { ++q; digits = true; }
    if (!atEnd(q) && *q == QLatin1Char('.')) {
        ++q;
        while (!atEnd(q) && q->isDigit()) { ++q; digits = true; }
    }
    if (!digits)
        return false;
    if (!atEnd(q) && (*q == QLatin1Char('e') || *q == QLatin1Char('E'))) {
        const QChar *e = q + 1;
        if (!atEnd(e) && (*e == QLatin1Char('+') || *e == QLatin1Char('-')))
            ++e;
        if (!atEnd(e) && e->isDigit()) {
            while (!atEnd(e) && e->isDigit())
                ++e;
            q = e;
        }
    }
    // Only ASCII digits, signs, '.' and 'e' were accepted above.
    char buf[64];
    const int n = int(q - p);
    if (n < int(sizeof buf)) {
        const QChar *from = *p == QLatin1Char('+') ? p + 1 : p;
        int k = 0;
        for (const QChar *c = from; c < q; ++c)
            buf[k++] = char(c->unicode());
        const auto r = std::from_chars(buf, buf + k, value);
        if (r.ec == std::errc() && r.ptr == buf + k) {
            p = q;
            return true;
        }
    }
    bool ok = false;
    value = QString(p, n).toDouble(&ok);
    if (!ok)
        return false;
    p = q;
    return true;
}

} // namespace SvgNodeDetail

using namespace SvgNodeDetail;

// Shortest round-trip digits: a number written and read back is the same double, so a
// drawing saved, reloaded or undone comes back bit for bit.
QString SvgNumbers::format(double v)
{
    if (v == 0)
        return QStringLiteral("0");
    if (std::isnan(v))
        return QStringLiteral("NaN");
    if (std::isinf(v))
        return v > 0 ? QStringLiteral("Infinity") : QStringLiteral("-Infinity");
    char s[32];
    const auto r = std::to_chars(s, s + sizeof s, v);
    return QString::fromLatin1(s, int(r.ptr - s));
}


QVector<double> SvgNumbers::parseList(const QChar *&p, const QChar *end)
{
    QVector<double> out;
    double v = 0;
    while (readNumber(p, end, v))
        out.append(v);
    return out;
}

QString SvgNumbers::join(const QVector<double> &v)
{
    QString s;
    for (int i = 0; i < v.size(); ++i) {
        if (i)
            s += QLatin1Char(',');
        s += format(v[i]);
    }
    return s;
}

