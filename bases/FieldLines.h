#pragma once

#include <QPointF>
#include <QString>

// Path text for field diagrams: straight lines with a filled arrowhead on them.
namespace FieldLines {

// Appends v as a path number. Whole numbers, the usual case on a grid of whole
// spacings, skip the shortest-exact search: marks are written in their thousands.
void number(QString &d, double v);
// Appends a path command and its point, "M12,4".
void point(QString &d, QChar cmd, double x, double y);
// A line from `from` to `to` with a head whose middle sits `at` of the way along,
// pointing towards `to`, or back towards `from` when `backwards`.
QString arrowed(QPointF from, QPointF to, double at = 0.5, bool backwards = false, double halfWidth = 4.5);

} // namespace FieldLines
