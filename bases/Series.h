#pragma once
// A numbered series of generated nodes, named "%1_%2" from a prefix and a number
// ("mark_1", "text_30"): the template holds the first member, and the series is grown
// with copies of it and shrunk by removal, as the ruler's ticks are.
#include <QRectF>
#include <QString>
#include <QVector>

class CSVGBase;
class QSvgNode;

namespace Series {

// "prefix_k". Ids are made once and shared: a drag names every member on each step.
QString id(const QString &prefix, int k);

// Makes the series exactly `count` members long (at least 1), numbered first,
// first + step, …: missing members are copies of the first, placed after the member
// before them; members past the end are removed (up to the first one missing). Returns
// the members in order; empty when the template has no first member. A count past
// kMaxCount is held to it: no drawing grows without bound.
constexpr int kMaxCount = 20000;
QVector<QSvgNode *> fit(CSVGBase &obj, const QString &prefix, int count, int first = 1, int step = 1);

// Where the members of a series stand when they fill a span evenly at a pitch: one per
// pitch of the span, floor(length / pitch) of them (at least one, at most kMaxCount),
// each at the middle of its cell, the cells centred in the span. No mark is then cut
// at either end, whatever the span.
struct Spread {
    int count = 1;
    double first = 0;  // the middle of the first cell
    double pitch = 0;
    double at(int i) const { return first + i * pitch; }
};
Spread spread(double start, double length, double pitch);

// A region filled row by row with marks at the middle of pitch-square cells, the grid
// centred in the region: columns along x, rows along y.
struct Grid {
    Spread columns, rows;
    int count() const { return columns.count * rows.count; }
    // The middle of the cell of member i (0 first), row by row.
    QPointF at(int i) const { return QPointF(columns.at(i % columns.count), rows.at(i / columns.count)); }
};
// At most kMaxCount cells: a larger region keeps its rows whole and drops the last ones.
Grid grid(const QRectF &region, double pitch);

// The members there are now, in order, from first on (stops at the first one missing).
QVector<QSvgNode *> members(const CSVGBase &obj, const QString &prefix, int first = 1, int step = 1);

} // namespace Series
