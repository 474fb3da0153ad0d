#pragma once
// Path data grammar (M L H V C S Q T A Z, absolute and relative, implicit repeats).
#include "hostglobal.h"
#include <QPainterPath>
#include <QString>
#include <QVector>

struct HOST_EXPORT SvgPathSegment {
    QChar cmd;             // as written, case kept
    QVector<double> args;  // all numbers of the command, repeats included
};

namespace SvgPathData {
// Stops at the first malformed token; what was read before it is kept.
HOST_EXPORT QVector<SvgPathSegment> parse(const QString &d);
HOST_EXPORT QString write(const QVector<SvgPathSegment> &segments);
HOST_EXPORT QPainterPath toPainterPath(const QVector<SvgPathSegment> &segments);
// Moves absolute coordinates (and a leading relative moveto) by (dx, dy).
HOST_EXPORT void translate(QVector<SvgPathSegment> &segments, double dx, double dy);
// Adds an elliptical arc from the current point as cubic curves.
HOST_EXPORT void arcTo(QPainterPath &path, double rx, double ry, double xAxisRotation,
                       bool largeArc, bool sweep, double x, double y);
}
