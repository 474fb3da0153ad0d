#include "LinearScale.h"
#include "Attribute.h"
#include "HandlePos.h"
#include "PanelItems.h"
#include <QDataStream>
#include <QJsonArray>
#include <QJsonObject>
#include "Series.h"
#include <QVector>
#include <algorithm>
#include <cmath>
#include <svgbase.h>

namespace LinearScale {

double Ticks::length(int index) const
{
    if (longEvery > 0 && index % longEvery == 0)
        return longLength;
    if (mediumEvery > 0 && index % mediumEvery == 0)
        return mediumLength;
    return shortLength;
}

void layTicks(CSVGBase &obj, const Ticks &ticks)
{
    const QVector<QSvgNode *> lines = Series::fit(obj, QStringLiteral("line"), ticks.count);
    static const QString x1 = QStringLiteral("x1"), y1 = QStringLiteral("y1"), x2 = QStringLiteral("x2"),
                         y2 = QStringLiteral("y2");
    for (int i = 0; i < lines.size(); ++i) {
        const QPointF a = ticks.start(i), b = a + ticks.across * ticks.length(i);
        QSvgNode *n = lines[i];
        n->setNumAttribute(x1, a.x());
        n->setNumAttribute(y1, a.y());
        n->setNumAttribute(x2, b.x());
        n->setNumAttribute(y2, b.y());
    }
}

void layNumbers(CSVGBase &obj, const Ticks &ticks, int first, int every, QPointF offset,
                const std::function<QString(int)> &text)
{
    if (every < 1 || first < 0 || first > ticks.count - 1)
        return;
    const int count = (ticks.count - 1 - first) / every + 1;
    const QVector<QSvgNode *> numbers = Series::fit(obj, QStringLiteral("text"), count, first, every);
    for (int j = 0; j < numbers.size(); ++j) {
        const int i = first + j * every;
        const QPointF at = ticks.start(i) + offset;
        QSvgNode *n = numbers[j];
        n->setNumAttribute(QStringLiteral("x"), at.x());
        n->setNumAttribute(QStringLiteral("y"), at.y());
        n->setText(text(i));
    }
}

int Reading::stepAt(double travel) const
{
    const double s = travel * steps / length;
    if (!std::isfinite(s))
        return 0;
    const double lo = bothWays ? -steps : 0;
    return int(std::max(lo, std::min(double(steps), std::floor(s + 0.5))));
}

QString Reading::text(int step) const
{
    const double v = valueOf(step) + 0.0;  // never "-0"
    if (decimals >= 0)
        return QString::number(v, 'f', decimals);
    return QString::number(v, 'f', std::floor(v) == v ? 0 : 1);
}

int Reading::stepOf(double value) const
{
    if (!std::isfinite(value))
        return 0;
    const double held = std::max(bothWays ? -full : 0.0, std::min(full, value));
    return int(std::floor(held * steps / full + 0.5));
}

bool Reading::typed(const QString &text, int &step) const
{
    bool ok = false;
    const double v = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(v))
        return false;
    step = stepOf(v);
    return true;
}

int Reading::settle(double travel, double moved) const
{
    const int n = stepAt(travel);
    const double from = travel - moved;
    const int start = stepAt(from);
    if (moved == 0 || n != start || std::fabs(from - travelOf(start)) > 1e-9 * std::fabs(length))
        return n;
    const double lo = bothWays ? -steps : 0;
    return int(std::max(lo, std::min(double(steps), double(n + (moved > 0 ? 1 : -1)))));
}

double PointerHandle::travel(const CSVGBase &obj) const
{
    QSvgNode *h = obj.controlNodes().value(0);
    return h ? dir * (h->rect().center().y() - zeroY) : 0;
}

void PointerHandle::moveTo(CSVGBase &obj, double t, bool &guard) const
{
    if (QSvgNode *h = obj.controlNodes().value(0))
        HandlePos::set(obj, 0, HandlePos::Y, zeroY + dir * t - h->rect().height() / 2, guard);
}

void PointerHandle::place(QSvgNode *handle, double t) const
{
    handle->setNumAttribute(QStringLiteral("y"), zeroY + dir * t - handle->rect().height() / 2);
}

void PointerHandle::settle(QSvgNode *handle, const Reading &reading, QPointF moved) const
{
    const double t = dir * (handle->rect().center().y() - zeroY);
    place(handle, reading.travelOf(reading.settle(t, dir * moved.y())));
}

bool PointerHandle::typed(CSVGBase &obj, const QMap<QString, QString> &values, const QString &key, const Reading &reading,
                          bool &guard) const
{
    const auto it = values.constFind(key);
    int step = 0;
    if (it == values.cend() || !reading.typed(*it, step))
        return false;
    moveTo(obj, reading.travelOf(step), guard);
    return true;
}

QByteArray rangeChoices()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(3) << int(0) << QStringLiteral("IDS_SVG_PHYSICAL_RANGE_0") << QStringLiteral("IDS_SVG_PHYSICAL_RANGE_1")
        << QStringLiteral("IDS_SVG_PHYSICAL_RANGE_2");
    return data;
}

void appendRange(CAttribute &obj, QJsonArray &array, int rangeAttr)
{
    const int at = array.size();
    PanelItems::append(obj, array, {{"idRange", rangeAttr}});
    if (array.size() == at)
        return;
    QJsonObject range = array.at(at).toObject();
    range.insert(QStringLiteral("refreshAfterSet"), true);
    array.replace(at, range);
}

} // namespace LinearScale
