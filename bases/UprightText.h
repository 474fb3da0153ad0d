#pragma once
// A label that stays upright beside a drawing that may point anywhere (a force's name,
// a distance's label): its box is put clear of a point, on a given side of it.
#include <QPointF>

class QSvgNode;

namespace UprightText {

// Puts a text node (anchored at its middle) so that its box lies `gap` beyond `point` in
// the direction `dir` (a unit vector, screen coordinates), whichever way that points.
void placeBeyond(QSvgNode *text, QPointF point, QPointF dir, double gap);

} // namespace UprightText
