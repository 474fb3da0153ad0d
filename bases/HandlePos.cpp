#include "HandlePos.h"
#include <QJsonArray>
#include <algorithm>
#include <cmath>
#include <svgbase.h>
#include <svgobj.h>

namespace HandlePos {

namespace {
QString attr(Axis axis) { return axis == X ? QStringLiteral("x") : QStringLiteral("y"); }

double lowBound(CSVGBase &obj, QSvgNode *h, Axis axis) { return axis == X ? obj.getXMin(h) : obj.getYMin(h); }
double highBound(CSVGBase &obj, QSvgNode *h, Axis axis) { return axis == X ? obj.getXMax(h) : obj.getYMax(h); }
} // namespace

double get(const CSVGBase &obj, int index, Axis axis)
{
    QSvgNode *h = obj.controlNodes().value(index);
    return h ? h->numAttribute(attr(axis)) : 0;
}

void set(CSVGBase &obj, int index, Axis axis, double pos, bool &guard)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h || !std::isfinite(pos) || std::fabs(pos) > CSVGBase::kMaxExtent)
        return;
    const double old = h->numAttribute(attr(axis));
    h->setNumAttribute(attr(axis), pos);
    guard = true;
    obj.updateSVG(h, axis == X ? QPointF(pos - old, 0) : QPointF(0, pos - old), true);
    guard = false;
}

int percentOf(double pos, double lo, double hi)
{
    const double p = (pos - lo) * 100 / (hi - lo);
    if (!std::isfinite(p))
        return 0;
    return int(std::max(-1e9, std::min(1e9, p)));
}

int percent(CSVGBase &obj, int index, Axis axis, double pos)
{
    QSvgNode *h = obj.controlNodes().value(index);
    return percentOf(pos, lowBound(obj, h, axis), highBound(obj, h, axis));
}

void appendInput(CSVGBase &obj, QJsonArray &array, const QString &label, int p)
{
    if (CSVGObj *owner = obj.owner())
        array.append(owner->GetSettingJsonInput(QStringLiteral("idPosValue"), label, QString::number(p), QStringLiteral("int"),
                                                QStringLiteral("0"), QStringLiteral("100"), QString()));
}

bool target(CSVGBase &obj, const QMap<QString, QString> &values, int index, Axis axis, bool mirrored, double &pos,
            Reading reading)
{
    const auto it = values.constFind(QStringLiteral("idPosValue"));
    QSvgNode *h = obj.controlNodes().value(index);
    if (it == values.cend() || !h)
        return false;
    bool ok = false;
    double v = 0;
    if (reading == Decimal) {
        v = it.value().trimmed().toDouble(&ok);
        if (!ok || !std::isfinite(v))
            return false;
        v = std::max(0.0, std::min(100.0, std::round(v)));
    } else {
        v = it.value().toInt(&ok);
        if (!ok && reading == Integer)
            return false;
    }
    if (mirrored)
        v = 100 - v;
    const double lo = lowBound(obj, h, axis), hi = highBound(obj, h, axis);
    pos = (hi - lo) * v / 100 + lo;
    return std::isfinite(pos);
}

} // namespace HandlePos
