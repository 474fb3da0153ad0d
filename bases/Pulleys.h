#pragma once
// What the pulleys and pulley blocks share: the artwork of a wheel, a ceiling and a hook,
// and a rope drawn over them: straight falls between the wheels' tangent points and
// laps round their rims. A block's free end moves n times as far as its load.
#include <QPointF>
#include <QString>

class QSvgNode;

namespace Pulleys {

// Gradients the wheels and straps use (ids pl_*); once in a template's <defs>.
QString defsSvg();
// A grooved wheel of radius r about (cx, cy) with spokes, hub and axle, as <g id="id">.
QString wheelSvg(const QString &id, double cx, double cy, double r);
// A wooden ceiling beam over [x1, x2] from y 0 to 10, with hatching above.
QString ceilingSvg(const QString &id, double x1, double x2);
// A fixed wheel's bracket: a swivel under the beam at topY, a shank, and a strap down to
// the axle at (cx, axleY), drawn in front of the wheel.
QString bracketSvg(const QString &id, double cx, double topY, double axleY);
// A movable wheel's strap: from the axle at (cx, axleY) down to bottomY, where a hook or
// a crossbar hangs.
QString strapSvg(double cx, double axleY, double bottomY);
// An open hook hanging from (x, y), its lowest point 16 below.
QString hookPath(double x, double y);
// A rope: a straight fall (a line) and a lap half round a rim (over the top or under).
QString ropeSvg(const QString &id, QPointF a, QPointF b);
QString lapSvg(const QString &id, double cx, double cy, double r, bool over);

// Sets a line's two ends.
void setLine(QSvgNode *line, QPointF a, QPointF b);
// Puts a handle's centre on p.
void centreOn(QSvgNode *handle, QPointF p);
// The free end's length: `rest` with the load at its lowest drop. Its end moves n times
// as far as the load: pulled down, the other way, so it grows by n times the load's rise;
// pulled up from the movable block, the same way, so it grows by n - 1 times (the block
// carries its foot up with the load).
inline double freeEnd(int n, bool up, double drop, double lowestDrop, double rest)
{
    return rest + (up ? n - 1 : n) * (lowestDrop - drop);
}

} // namespace Pulleys
