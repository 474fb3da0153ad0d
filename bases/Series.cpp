#include "Series.h"
#include <QHash>
#include <cmath>
#include <svgbase.h>
#include <vector>

namespace Series {

QString id(const QString &prefix, int k)
{
    static QHash<QString, std::vector<QString>> made;
    if (k < 0 || k > kMaxCount * 10)
        return prefix + QLatin1Char('_') + QString::number(k);
    std::vector<QString> &ids = made[prefix];
    while (int(ids.size()) <= k)
        ids.push_back(prefix + QLatin1Char('_') + QString::number(int(ids.size())));
    return ids[size_t(k)];
}

Spread spread(double start, double length, double pitch)
{
    Spread s;
    s.pitch = pitch;
    const double n = pitch > 0 ? std::floor(length / pitch) : 1;
    s.count = std::isfinite(n) ? int(qBound(1.0, n, double(kMaxCount))) : 1;
    s.first = start + (length - s.count * pitch) / 2 + pitch / 2;
    return s;
}

Grid grid(const QRectF &region, double pitch)
{
    Grid g;
    g.columns = spread(region.x(), region.width(), pitch);
    g.rows = spread(region.y(), region.height(), pitch);
    if (g.count() > kMaxCount) {
        const double top = g.rows.first;
        g.rows.count = kMaxCount / g.columns.count;
        g.rows.first = top;
    }
    return g;
}

QVector<QSvgNode *> members(const CSVGBase &obj, const QString &prefix, int first, int step)
{
    QVector<QSvgNode *> out;
    QSvgTinyDocument *doc = obj.document();
    if (!doc || step < 1)
        return out;
    for (int k = first; out.size() <= kMaxCount; k += step) {
        QSvgNode *n = doc->namedNode(id(prefix, k));
        if (!n)
            break;
        out.append(n);
    }
    return out;
}

QVector<QSvgNode *> fit(CSVGBase &obj, const QString &prefix, int count, int first, int step)
{
    QSvgTinyDocument *doc = obj.document();
    QVector<QSvgNode *> out;
    if (!doc || step < 1)
        return out;
    QSvgNode *head = doc->namedNode(id(prefix, first));
    if (!head)
        return out;
    count = qBound(1, count, kMaxCount);
    out.reserve(count);
    out.append(head);
    QSvgNode *before = head;
    for (int i = 1; i < count; ++i) {
        const QString name = id(prefix, first + i * step);
        QSvgNode *n = doc->namedNode(name);
        if (!n) {
            // A copy of the first, placed after the one before so that drawing order
            // follows the series.
            std::unique_ptr<QSvgNode> copy = head->clone();
            copy->setAttribute(QStringLiteral("id"), name);
            n = copy.get();
            QSvgNode *parent = before->parent();
            parent->insertChild(parent->indexOf(before) + 1, std::move(copy));
        }
        out.append(n);
        before = n;
    }
    for (int i = count;; ++i) {
        QSvgNode *n = doc->namedNode(id(prefix, first + i * step));
        if (!n)
            break;
        obj.removeNode(n);
    }
    return out;
}

} // namespace Series
