#include "GenCircle.h"
#include "AttrValue.h"
#include "HandlePos.h"
#include <QJsonArray>
#include <algorithm>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr double kHalfPi = 1.5707963267948966;
// Arc pieces of at most 30 degrees keep the cubic approximation within 4e-7 of the radius.
constexpr double kMaxArcStep = M_PI / 6;
// How far a joint of the flattened outline may lie from where the true shapes cross.
constexpr double kSnap = 0.5;

bool finite(QPointF p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }

QPointF onCircle(QPointF c, double r, double a) { return QPointF(c.x() + r * std::cos(a), c.y() + r * std::sin(a)); }

// Appends the arc from angle a0 to a1 (radians, y down) as a polygon whose chords stay
// within kFlatness of the circle; the current point must already be at its start.
// Set operations flatten curves anyway, and coarse chords keep them cheap: the outline
// gets its true arcs back afterwards.
constexpr double kFlatness = 0.02;

void addArc(QPainterPath &path, QPointF c, double r, double a0, double a1)
{
    const double step = 2 * std::acos(std::max(-1.0, 1 - kFlatness / r));
    const int n = std::min(4096, std::max(8, int(std::ceil(std::fabs(a1 - a0) / step))));
    for (int i = 1; i <= n; ++i)
        path.lineTo(onCircle(c, r, a0 + (a1 - a0) * i / n));
}

double distanceToRect(QPointF p, const QRectF &r)
{
    const double dx = std::max({r.left() - p.x(), 0.0, p.x() - r.right()});
    const double dy = std::max({r.top() - p.y(), 0.0, p.y() - r.bottom()});
    return std::hypot(dx, dy);
}

QString number(double v)
{
    // Three decimals are far below a stroke's width and keep the data short.
    const double r = std::round(v * 1000) / 1000;
    return SvgNumbers::format(r == 0 ? 0.0 : r);
}

} // namespace

CGenCircle::CGenCircle(CSVGObj *owner) : CAttribute(owner) {}

CGenCircle::~CGenCircle() = default;

void CGenCircle::GetPointSlopeAngleAndCenter(QPointF p1, QPointF p2, double &angle, QPointF &mid)
{
    mid = QPointF((p1.x() + p2.x()) * 0.5, (p1.y() + p2.y()) * 0.5);
    angle = p1.x() == p2.x() ? kHalfPi : std::atan((p2.y() - p1.y()) / (p2.x() - p1.x()));
}

void CGenCircle::GetVerticalLine(double angle, QPointF mid, double &k, double &b)
{
    if (angle == 0 || angle == M_PI) {
        k = kVerticalSlope;
        b = mid.x();
    } else if (std::fabs(std::fabs(angle) - kHalfPi) < 0.01) {
        k = 0;
        b = mid.y();
    } else {
        k = -1 / std::tan(angle);
        b = mid.y() - k * mid.x();
    }
}

bool CGenCircle::GetCrossoverPointBySlope(double k1, double b1, double k2, double b2, QPointF &out)
{
    // The special candidate only wins when one slope is exactly 0; otherwise the general
    // crossing is used even for the vertical sentinel (then a very steep slope). A
    // horizontal line against any non-vertical one therefore gives (-1, -1) and false.
    const bool v1 = k1 == kVerticalSlope, v2 = k2 == kVerticalSlope;
    if (!(v1 && v2) && (k1 == 0 || k2 == 0)) {
        if (v2) {
            out = QPointF(b2, k1 * b2 + b1);
            return true;
        }
        if (v1) {
            out = QPointF(b1, k2 * b1 + b2);
            return true;
        }
        out = QPointF(-1, -1);
        return false;
    }
    const double x = (b1 - b2) / (k2 - k1);
    out = QPointF(x, k2 * x + b2);
    return true;
}

double CGenCircle::GetLineDistance(QPointF a, QPointF b)
{
    const double dx = b.x() - a.x(), dy = b.y() - a.y();
    return std::sqrt(dx * dx + dy * dy);
}

bool CGenCircle::GetCircle(QPointF a, QPointF b, QPointF c, QPointF &center, double &radius)
{
    double angle1 = 0, angle2 = 0, k1 = 0, b1 = 0, k2 = 0, b2 = 0;
    QPointF mid1, mid2;
    GetPointSlopeAngleAndCenter(a, b, angle1, mid1);
    GetPointSlopeAngleAndCenter(c, b, angle2, mid2);
    GetVerticalLine(angle1, mid1, k1, b1);
    GetVerticalLine(angle2, mid2, k2, b2);
    const bool ok = GetCrossoverPointBySlope(k1, b1, k2, b2, center);
    radius = GetLineDistance(center, a);
    return ok;
}

// ------------------------------------------------------------- outline chores

QSvgNode *CGenCircle::docNode(const QString &id) const
{
    return m_pDocument ? m_pDocument->namedNode(id) : nullptr;
}

QPointF CGenCircle::handleCentre(int index) const
{
    const QSvgNode *h = m_controlNodes.value(index);
    return h ? h->rect().center() : QPointF();
}

void CGenCircle::placeCircle(QSvgNode *circle, QPointF a, QPointF b, QPointF c)
{
    if (!circle)
        return;
    QPointF centre;
    double r = 0;
    if (GetCircle(a, b, c, centre, r) && finite(centre) && std::isfinite(r)) {
        circle->setNumAttribute(QStringLiteral("cx"), centre.x());
        circle->setNumAttribute(QStringLiteral("cy"), centre.y());
        circle->setNumAttribute(QStringLiteral("r"), r);
    } else {
        circle->setNumAttribute(QStringLiteral("r"), 0);
    }
}

QPainterPath CGenCircle::discPath(const QSvgNode *circle, const QRectF &area)
{
    QPainterPath path;
    if (!circle)
        return path;
    const QPointF c(circle->numAttribute(QStringLiteral("cx")), circle->numAttribute(QStringLiteral("cy")));
    const double r = circle->numAttribute(QStringLiteral("r"));
    if (!(r > 0) || !std::isfinite(r) || !finite(c) || !area.isValid())
        return path;
    const QPointF corners[4] = {area.topLeft(), area.topRight(), area.bottomRight(), area.bottomLeft()};
    double farthest = 0;
    for (const QPointF &p : corners)
        farthest = std::max(farthest, std::hypot(p.x() - c.x(), p.y() - c.y()));
    const double nearest = distanceToRect(c, area);
    if (nearest >= r)
        return path; // the disc misses the area
    if (farthest <= r) {
        path.addRect(area); // the area lies inside the disc
        return path;
    }
    if (nearest == 0) {
        path.moveTo(onCircle(c, r, 0));
        addArc(path, c, r, 0, 2 * M_PI);
        path.closeSubpath();
        return path;
    }
    // A flat arc has a centre far away: keep only the sector that sees the area, cut
    // short near it, so that no coordinate strays far from the lens.
    const double towards = std::atan2(area.center().y() - c.y(), area.center().x() - c.x());
    double lo = 0, hi = 0;
    for (const QPointF &p : corners) {
        const double a = std::remainder(std::atan2(p.y() - c.y(), p.x() - c.x()) - towards, 2 * M_PI);
        lo = std::min(lo, a);
        hi = std::max(hi, a);
    }
    const double spare = 0.01 * (hi - lo) + 1e-9;
    lo += towards - spare;
    hi += towards + spare;
    const double inner = std::max(0.0, nearest - 1);
    path.moveTo(onCircle(c, inner, lo));
    path.lineTo(onCircle(c, r, lo));
    addArc(path, c, r, lo, hi);
    path.lineTo(onCircle(c, inner, hi));
    path.closeSubpath();
    return path;
}

QPainterPath CGenCircle::rectPath(const QSvgNode *rect)
{
    QPainterPath path;
    if (!rect)
        return path;
    QRectF r(rect->numAttribute(QStringLiteral("x")), rect->numAttribute(QStringLiteral("y")),
             rect->numAttribute(QStringLiteral("width")), rect->numAttribute(QStringLiteral("height")));
    if (finite(r.topLeft()) && finite(r.bottomRight()) && r.width() > 0 && r.height() > 0)
        path.addRect(r);
    return path;
}

QString CGenCircle::pathData(const QPainterPath &path)
{
    QString d;
    const int n = path.elementCount();
    d.reserve(n * 16);
    bool open = false;
    for (int i = 0; i < n; ++i) {
        const QPainterPath::Element e = path.elementAt(i);
        auto xy = [&d](const QPainterPath::Element &p) { d += number(p.x) + QLatin1Char(' ') + number(p.y); };
        if (e.isMoveTo()) {
            if (open)
                d += QLatin1String("Z ");
            d += QLatin1Char('M');
            xy(e);
            open = true;
        } else if (e.isLineTo()) {
            d += QLatin1String(" L");
            xy(e);
        } else if (e.isCurveTo() && i + 2 < n) {
            d += QLatin1String(" C");
            xy(e);
            d += QLatin1Char(' ');
            xy(path.elementAt(i + 1));
            d += QLatin1Char(' ');
            xy(path.elementAt(i + 2));
            i += 2;
        }
    }
    if (open)
        d += QLatin1String(" Z");
    return d;
}

void CGenCircle::setLensPath(const QPainterPath &outline, const QVector<const QSvgNode *> &circles)
{
    if (QSvgNode *lens = docNode(QStringLiteral("lens")))
        lens->setAttribute(QStringLiteral("d"), pathData(restoreArcs(outline, circles)));
}

QPainterPath CGenCircle::restoreArcs(const QPainterPath &flat, const QVector<const QSvgNode *> &circles)
{
    struct Circle {
        QPointF c;
        double r;
    };
    QVector<Circle> known;
    for (const QSvgNode *n : circles) {
        if (!n)
            continue;
        const Circle k{QPointF(n->numAttribute(QStringLiteral("cx")), n->numAttribute(QStringLiteral("cy"))),
                       n->numAttribute(QStringLiteral("r"))};
        if (k.r > 0 && std::isfinite(k.r) && finite(k.c))
            known.append(k);
    }
    QVector<QVector<QPointF>> polygons;
    for (int i = 0; i < flat.elementCount(); ++i) {
        const QPainterPath::Element e = flat.elementAt(i);
        if (e.isCurveTo() || known.isEmpty())
            return flat;
        if (e.isMoveTo() || polygons.isEmpty())
            polygons.append(QVector<QPointF>());
        polygons.last().append(QPointF(e.x, e.y));
    }
    // A segment belongs to a circle when both ends lie on it and it is short enough to
    // be a piece of flattening rather than a straight edge between two arc points.
    auto circleOf = [&known](QPointF a, QPointF b) {
        const double len = std::hypot(b.x() - a.x(), b.y() - a.y());
        for (int k = 0; k < known.size(); ++k) {
            const Circle &c = known[k];
            const double tol = 2 * kFlatness + 1e-6 * c.r;
            const double sagitta = c.r - std::sqrt(std::max(0.0, c.r * c.r - len * len / 4));
            if (std::fabs(std::hypot(a.x() - c.c.x(), a.y() - c.c.y()) - c.r) < tol &&
                std::fabs(std::hypot(b.x() - c.c.x(), b.y() - c.c.y()) - c.r) < tol && sagitta < 4 * kFlatness)
                return k;
        }
        return -1;
    };
    auto turn = [](const Circle &c, QPointF a, QPointF b) {
        return std::remainder(std::atan2(b.y() - c.c.y(), b.x() - c.c.x()) - std::atan2(a.y() - c.c.y(), a.x() - c.c.x()),
                              2 * M_PI);
    };
    // Split each polygon into pieces (an arc of one circle, or one straight segment),
    // put the joints where the true shapes cross, then write arcs as cubics.
    struct Piece {
        int circle; // -1 for a straight segment
        int from, to;
    };
    QPainterPath out;
    for (QVector<QPointF> poly : polygons) {
        const int n = poly.size();
        if (n < 2)
            continue;
        QVector<Piece> pieces;
        for (int i = 0; i < n - 1;) {
            const int k = circleOf(poly[i], poly[i + 1]);
            int j = i + 1;
            while (k >= 0 && j < n - 1 && circleOf(poly[j], poly[j + 1]) == k)
                ++j;
            pieces.append({k, i, j});
            i = j;
        }
        const bool closed = poly.first() == poly.last();
        for (int p = 0; p < pieces.size(); ++p) {
            const bool wraps = p + 1 == pieces.size();
            if (wraps && !closed)
                break;
            const Piece &a = pieces[p], &b = pieces[wraps ? 0 : p + 1];
            if (a.circle < 0 && b.circle < 0)
                continue;
            const QPointF v = poly[a.to];
            QPointF best;
            double bestDist = kSnap;
            auto consider = [&](QPointF q) {
                const double d = std::hypot(q.x() - v.x(), q.y() - v.y());
                if (finite(q) && d < bestDist) {
                    bestDist = d;
                    best = q;
                }
            };
            if (a.circle >= 0 && b.circle >= 0) {
                if (a.circle == b.circle)
                    continue;
                const Circle &c1 = known[a.circle], &c2 = known[b.circle];
                const QPointF dc = c2.c - c1.c;
                const double d = std::hypot(dc.x(), dc.y());
                if (!(d > 0))
                    continue;
                const double along = (d * d + c1.r * c1.r - c2.r * c2.r) / (2 * d);
                const double h = std::sqrt(std::max(0.0, c1.r * c1.r - along * along));
                const QPointF m = c1.c + dc * (along / d), perp(-dc.y() / d, dc.x() / d);
                consider(m + perp * h);
                consider(m - perp * h);
            } else {
                const Circle &c = known[a.circle >= 0 ? a.circle : b.circle];
                const Piece &line = a.circle < 0 ? a : b;
                const QPointF p0 = poly[line.from], dir = poly[line.to] - p0;
                const double aa = QPointF::dotProduct(dir, dir);
                if (!(aa > 0))
                    continue;
                const QPointF f = p0 - c.c;
                const double bb = 2 * QPointF::dotProduct(f, dir), cc = QPointF::dotProduct(f, f) - c.r * c.r;
                const double disc = bb * bb - 4 * aa * cc;
                if (disc < 0)
                    continue;
                consider(p0 + dir * ((-bb + std::sqrt(disc)) / (2 * aa)));
                consider(p0 + dir * ((-bb - std::sqrt(disc)) / (2 * aa)));
            }
            if (bestDist < kSnap) {
                poly[a.to] = best;
                if (wraps)
                    poly[0] = best;
            }
        }
        out.moveTo(poly[0]);
        for (const Piece &piece : pieces) {
            if (piece.circle < 0) {
                out.lineTo(poly[piece.to]);
                continue;
            }
            const Circle &c = known[piece.circle];
            double sweep = 0;
            for (int i = piece.from; i < piece.to; ++i)
                sweep += turn(c, poly[i], poly[i + 1]);
            const QPointF start = poly[piece.from], end = poly[piece.to];
            const double a0 = std::atan2(start.y() - c.c.y(), start.x() - c.c.x());
            const double a1 = std::atan2(end.y() - c.c.y(), end.x() - c.c.x());
            // The snapped ends define the arc; the walk only tells its way round.
            sweep += std::remainder(a1 - (a0 + sweep), 2 * M_PI);
            const int count = std::max(1, int(std::ceil(std::fabs(sweep) / kMaxArcStep)));
            const double step = sweep / count;
            const double kk = 4.0 / 3.0 * std::tan(step / 4);
            for (int q = 0; q < count; ++q) {
                const double s = a0 + q * step, e = s + step;
                const QPointF p0 = q == 0 ? start : onCircle(c.c, c.r, s);
                const QPointF p3 = q == count - 1 ? end : onCircle(c.c, c.r, e);
                const QPointF d0(-std::sin(s) * c.r * kk, std::cos(s) * c.r * kk);
                const QPointF d3(-std::sin(e) * c.r * kk, std::cos(e) * c.r * kk);
                out.cubicTo(p0 + d0, p3 - d3, p3);
            }
        }
        out.closeSubpath();
    }
    return out;
}

void CGenCircle::lensOutlineRegion()
{
    const QSvgNode *lens = docNode(QStringLiteral("lens"));
    if (!lens)
        return;
    delete m_pOutlinePath;
    m_pOutlinePath = new QPainterPath;
    // United rather than appended: overlapping parts must not cancel each other out.
    QPainterPath handles;
    addAllControlPointsRegion(&handles);
    m_pOutlinePath->addPath(lens->shape().united(handles));
}

void CGenCircle::repaint()
{
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

QRectF CGenCircle::viewBoxOrBounds() const
{
    QRectF vb = m_pDocument->viewBox();
    if (vb.width() == 0 && vb.height() == 0)
        vb = m_pDocument->transformedBounds();
    return vb;
}

void CGenCircle::spanHandles(int count, double dy, double dh, bool bFinal)
{
    const QRectF vb = viewBoxOrBounds();
    double left = 0, right = 0;
    for (int i = 0; i < count && i < m_controlNodes.size(); ++i) {
        const QRectF r = m_controlNodes.at(i)->rect();
        left = i == 0 ? r.left() : std::min(left, r.left());
        right = i == 0 ? r.right() : std::max(right, r.right());
    }
    const double dx = left - vb.left();
    adjustSvgPosition(QPointF(dx, dy), right - vb.right() - dx, dh, bFinal);
}

void CGenCircle::appendThicknessInput(QJsonArray &array, int p)
{
    HandlePos::appendInput(*this, array, QStringLiteral("IDS_PHYSICSOBJ_LEN_THICKNESS"), p);
}

QString CGenCircle::colourPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CAttribute::getPropName(id);
}

// ------------------------------------------------------------- direction of the half lenses

void CGenCircle::resetDirection()
{
    addAttribute(kDirectionAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_DIRECTION"));
}

QByteArray CGenCircle::directionComboData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(2) << int(0) << QStringLiteral("IDS_SVG_PHYSICAL_RIGHT") << QStringLiteral("IDS_SVG_PHYSICAL_LEFT");
    return data;
}

int CGenCircle::directionValue() const { return m_attributes.value(kDirectionAttr).intValue; }

void CGenCircle::appendDirectionSetting(QJsonArray &array)
{
    if (!m_pOwner || !m_attributes.contains(kDirectionAttr))
        return;
    array.append(m_pOwner->GetSettingJsonComboBox(
        QStringLiteral("idLensDirection"), QStringLiteral("IDS_PHYSICSOBJ_DIRECTION"), directionValue(), QStringList(),
        {QStringLiteral("IDS_PHYSICSOBJ_DIRECTIONTRIGHT"), QStringLiteral("IDS_PHYSICSOBJ_DIRECTIONTLEFT")}));
}

void CGenCircle::applyDirectionSetting(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto it = values.constFind(QStringLiteral("idLensDirection"));
    if (it != values.cend())
        AttrValue::apply(*this, kDirectionAttr, it.value().toInt(), bRecord, bUndo);
}

void CGenCircle::applyFacing(int value, bool &facesRight)
{
    if (value == 0)
        facesRight = true;
    else if (value == 1)
        facesRight = false;
}
