#include "FieldLines.h"
#include <cmath>
#include <svgnode.h>

namespace FieldLines {

void number(QString &d, double v)
{
    const double r = std::round(v);
    if (r == v && std::fabs(v) < 1e9)
        d += QString::number(qint64(r));
    else
        d += SvgNumbers::format(v);
}

void point(QString &d, QChar cmd, double x, double y)
{
    d += cmd;
    number(d, x);
    d += QLatin1Char(',');
    number(d, y);
}

QString arrowed(QPointF from, QPointF to, double at, bool backwards, double halfWidth)
{
    const double len = std::hypot(to.x() - from.x(), to.y() - from.y());
    const QPointF u = len > 0 ? (to - from) / len : QPointF(1, 0);
    const QPointF n(-u.y(), u.x());
    const QPointF mid = from + (to - from) * at;
    const double s = backwards ? -5 : 5;
    const QPointF tip = mid + u * s, back = mid - u * s;
    QString d;
    d.reserve(96);
    point(d, QLatin1Char('M'), from.x(), from.y());
    point(d, QLatin1Char('L'), to.x(), to.y());
    point(d, QLatin1Char('M'), tip.x(), tip.y());
    point(d, QLatin1Char('L'), back.x() + n.x() * halfWidth, back.y() + n.y() * halfWidth);
    point(d, QLatin1Char('L'), back.x() - n.x() * halfWidth, back.y() - n.y() * halfWidth);
    d += QLatin1Char('Z');
    return d;
}

} // namespace FieldLines
