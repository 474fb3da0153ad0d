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
    double p = (pos - lo) * 100 / (hi - lo);
    if (!std::isfinite(p))
        return 0;
    const double whole = std::round(p);
    if (std::fabs(p - whole) < 1e-9)
        p = whole;
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

namespace {
bool targetOf(CSVGBase &obj, const QMap<QString, QString> &values, const QString &key, int index, Axis axis, bool mirrored,
              double &pos, Reading reading)
{
    const auto it = values.constFind(key);
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
} // namespace

bool target(CSVGBase &obj, const QMap<QString, QString> &values, int index, Axis axis, bool mirrored, double &pos,
            Reading reading)
{
    return targetOf(obj, values, QStringLiteral("idPosValue"), index, axis, mirrored, pos, reading);
}

int percent(CSVGBase &obj, const Slot &slot, double pos)
{
    QSvgNode *h = obj.controlNodes().value(slot.handle);
    if (!h)
        return 0;
    const double lo = lowBound(obj, h, slot.axis), hi = highBound(obj, h, slot.axis);
    return slot.mirrored ? percentOf(-pos, -hi, -lo) : percentOf(pos, lo, hi);
}

int percent(CSVGBase &obj, const Slot &slot) { return percent(obj, slot, get(obj, slot.handle, slot.axis)); }

void appendInput(CSVGBase &obj, QJsonArray &array, const Slot &slot)
{
    if (CSVGObj *owner = obj.owner())
        array.append(owner->GetSettingJsonInput(QLatin1String(slot.key), QLatin1String(slot.label),
                                                QString::number(percent(obj, slot)), QStringLiteral("int"),
                                                QStringLiteral("0"), QStringLiteral("100"), QString()));
}

bool target(CSVGBase &obj, const QMap<QString, QString> &values, const Slot &slot, double &pos)
{
    return targetOf(obj, values, QLatin1String(slot.key), slot.handle, slot.axis, slot.mirrored, pos, Decimal);
}

void post(CSVGBase &obj, const Slot &slot)
{
    CSVGBase::postSetting(QLatin1String(slot.key), QString::number(percent(obj, slot)));
}

void setWithin(CSVGBase &obj, const Slot &slot, double pos, bool &guard)
{
    QSvgNode *h = obj.controlNodes().value(slot.handle);
    if (!h || !std::isfinite(pos))
        return;
    const double lo = lowBound(obj, h, slot.axis), hi = highBound(obj, h, slot.axis);
    set(obj, slot.handle, slot.axis, std::max(lo, std::min(hi, pos)), guard);
}

void post(CSVGBase &obj, Slots all, int index)
{
    if (const Slot *s = all.at(index))
        post(obj, *s);
}

double get(const CSVGBase &obj, Slots all, int index)
{
    const Slot *s = all.at(index);
    return s ? get(obj, s->handle, s->axis) : 0;
}

void setWithin(CSVGBase &obj, Slots all, int index, double pos, bool &guard)
{
    if (const Slot *s = all.at(index))
        setWithin(obj, *s, pos, guard);
}

void setTyped(CSVGBase &obj, const QMap<QString, QString> &values, Slots all, bool &guard)
{
    for (int i = 0; i < all.count; ++i) {
        double pos = 0;
        if (target(obj, values, all.first[i], pos))
            setWithin(obj, all.first[i], pos, guard);
    }
}

Polar polar(const CSVGBase &obj, int index, QPointF pivot)
{
    Polar p;
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h)
        return p;
    const QPointF d = h->rect().center() - pivot;
    p.distance = std::hypot(d.x(), d.y());
    if (p.distance > 0) {
        p.angle = std::atan2(-d.y(), d.x()) * 180 / 3.141592653589793;
        if (p.angle <= -180)
            p.angle += 360;
    }
    return p;
}

void placeAt(CSVGBase &obj, int index, QPointF pivot, const Polar &where)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h || !std::isfinite(where.angle) || !std::isfinite(where.distance))
        return;
    const double r = where.angle * 3.141592653589793 / 180;
    const QRectF box = h->rect();
    h->setNumAttribute(QStringLiteral("x"), pivot.x() + std::cos(r) * where.distance - box.width() / 2);
    h->setNumAttribute(QStringLiteral("y"), pivot.y() - std::sin(r) * where.distance - box.height() / 2);
}

Polar heldPolar(const CSVGBase &obj, int index, QPointF pivot, double minAngle, double maxAngle, double minDistance,
                double maxDistance)
{
    Polar p = polar(obj, index, pivot);
    if (!std::isfinite(p.angle) || !std::isfinite(p.distance) || p.distance == 0)
        p.angle = std::max(minAngle, std::min(maxAngle, 0.0));
    p.angle = std::max(minAngle, std::min(maxAngle, p.angle));
    p.distance = std::isfinite(p.distance) ? std::max(minDistance, std::min(maxDistance, p.distance)) : minDistance;
    return p;
}

QPointF topLeftAt(const CSVGBase &obj, int index, QPointF pivot, const Polar &where)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h)
        return QPointF();
    const double r = where.angle * 3.141592653589793 / 180;
    const QRectF box = h->rect();
    return QPointF(pivot.x() + std::cos(r) * where.distance - box.width() / 2,
                   pivot.y() - std::sin(r) * where.distance - box.height() / 2);
}

Polar putBack(CSVGBase &obj, int index, QPointF pivot, const Polar &where)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h || !std::isfinite(where.angle) || !std::isfinite(where.distance))
        return polar(obj, index, pivot);
    const QPointF to = topLeftAt(obj, index, pivot, where), at = h->rect().topLeft();
    if (std::fabs(to.x() - at.x()) > 1e-9 || std::fabs(to.y() - at.y()) > 1e-9) {
        h->setNumAttribute(QStringLiteral("x"), to.x());
        h->setNumAttribute(QStringLiteral("y"), to.y());
    }
    // Within rounding of a whole degree or unit it is that one: a typed 45° draws 45.
    Polar p = polar(obj, index, pivot);
    for (double *v : {&p.angle, &p.distance})
        if (std::fabs(*v - std::round(*v)) < 1e-9)
            *v = std::round(*v);
    return p;
}

bool typedNumber(const QMap<QString, QString> &values, const QString &key, double lo, double hi, bool whole, double &v)
{
    const auto it = values.constFind(key);
    if (it == values.cend())
        return false;
    bool ok = false;
    double typed = it.value().trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(typed))
        return false;
    if (whole)
        typed = std::round(typed);
    v = std::max(lo, std::min(hi, typed));
    return true;
}

QPointF centre(const CSVGBase &obj, int index)
{
    QSvgNode *h = obj.controlNodes().value(index);
    return h ? h->rect().center() : QPointF();
}

void placeCentre(CSVGBase &obj, int index, QPointF p)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h || !std::isfinite(p.x()) || !std::isfinite(p.y()))
        return;
    const QRectF box = h->rect();
    const double x = p.x() - box.width() / 2, y = p.y() - box.height() / 2;
    // Written only when it moves: a drag places handles on every step.
    if (x != box.x())
        h->setNumAttribute(QStringLiteral("x"), x);
    if (y != box.y())
        h->setNumAttribute(QStringLiteral("y"), y);
}

void moveTo(CSVGBase &obj, int index, QPointF pos, bool &guard)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h || !std::isfinite(pos.x()) || !std::isfinite(pos.y()) || std::fabs(pos.x()) > CSVGBase::kMaxExtent ||
        std::fabs(pos.y()) > CSVGBase::kMaxExtent)
        return;
    const QPointF old = h->rect().topLeft();
    h->setNumAttribute(QStringLiteral("x"), pos.x());
    h->setNumAttribute(QStringLiteral("y"), pos.y());
    guard = true;
    obj.updateSVG(h, pos - old, true);
    guard = false;
}

Polar tip(const CSVGBase &obj, int index, QPointF pivot, double lo, double hi, double keepAngle)
{
    Polar p = polar(obj, index, pivot);
    if (!(p.distance > 0) || !std::isfinite(p.angle))
        p.angle = keepAngle;
    p.distance = std::isfinite(p.distance) ? std::max(lo, std::min(hi, p.distance)) : lo;
    return p;
}

int shownDegrees(double angle)
{
    if (!std::isfinite(angle))
        return 0;
    long long d = std::llround(std::fmod(angle, 360.0));
    d %= 360;
    if (d <= -180)
        d += 360;
    else if (d > 180)
        d -= 360;
    return int(d);
}

bool typedDegrees(const QString &text, int &degrees)
{
    bool ok = false;
    const double v = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(v))
        return false;
    // Held to the panel's range, as every typed value is; -180 is the same direction as 180.
    degrees = int(std::llround(std::max(-180.0, std::min(180.0, v))));
    if (degrees == -180)
        degrees = 180;
    return true;
}


// ------------------------------------------------ inputs under other keys, turning

void appendInput(CSVGBase &obj, QJsonArray &array, const QString &key, const QString &label, int p)
{
    if (CSVGObj *owner = obj.owner())
        array.append(owner->GetSettingJsonInput(key, label, QString::number(p), QStringLiteral("int"), QStringLiteral("0"),
                                                QStringLiteral("100"), QString()));
}

bool target(CSVGBase &obj, const QMap<QString, QString> &values, const QString &key, int index, Axis axis, bool mirrored,
            double &pos, Reading reading)
{
    const auto it = values.constFind(key);
    if (it == values.cend())
        return false;
    return target(obj, {{QStringLiteral("idPosValue"), it.value()}}, index, axis, mirrored, pos, reading);
}

void turnTo(CSVGBase &obj, int index, QPointF pivot, double angle, bool &guard)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h || !std::isfinite(angle))
        return;
    const double r = angle * 3.141592653589793 / 180, d = polar(obj, index, pivot).distance;
    const QSizeF size = h->rect().size();
    moveTo(obj, index,
           QPointF(pivot.x() + std::cos(r) * d - size.width() / 2, pivot.y() - std::sin(r) * d - size.height() / 2), guard);
}

double exactPercent(CSVGBase &obj, int index, Axis axis, double pos)
{
    QSvgNode *h = obj.controlNodes().value(index);
    if (!h)
        return 0;
    const double lo = lowBound(obj, h, axis), hi = highBound(obj, h, axis);
    // Rounding in the travel must not read as a place past either end.
    return hi > lo ? std::max(0.0, std::min(100.0, (pos - lo) * 100 / (hi - lo))) : 0;
}

} // namespace HandlePos
