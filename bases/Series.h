#pragma once
// A numbered series of generated nodes, named "%1_%2" from a prefix and a number
// ("mark_1", "text_30"): the template holds the first member, and the series is grown
// with copies of it and shrunk by removal, as the ruler's ticks are.
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

// The members there are now, in order, from first on (stops at the first one missing).
QVector<QSvgNode *> members(const CSVGBase &obj, const QString &prefix, int first = 1, int step = 1);

} // namespace Series
