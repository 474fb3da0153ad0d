// The shapes: their outlines, bounds and moves.
#include "svgnode_p.h"
#include "svgpathdata.h"
#include "svgtinydocument.h"
#include <QFontMetricsF>
#include <QtMath>
#include <cmath>

using namespace SvgNodeDetail;

// ---------------------------------------------------------------- shapes

QRectF QSvgRect::rect() const
{
    return QRectF(numAttribute(QStringLiteral("x")), numAttribute(QStringLiteral("y")),
                  numAttribute(QStringLiteral("width")), numAttribute(QStringLiteral("height")));
}

QPainterPath QSvgRect::shape() const
{
    QPainterPath p;
    const QRectF r = rect();
    if (!(r.width() > 0) || !(r.height() > 0))
        return p;
    double rx = numAttribute(QStringLiteral("rx"), -1), ry = numAttribute(QStringLiteral("ry"), -1);
    if (rx < 0) rx = ry;
    if (ry < 0) ry = rx;
    rx = qBound(0.0, rx, r.width() / 2);
    ry = qBound(0.0, ry, r.height() / 2);
    if (rx > 0 && ry > 0)
        p.addRoundedRect(r, rx, ry);
    else
        p.addRect(r);
    return p;
}

void QSvgRect::translate(double dx, double dy)
{
    translateNumAttr(QStringLiteral("x"), dx);
    translateNumAttr(QStringLiteral("y"), dy);
}

QRectF QSvgLine::rect() const
{
    const QPointF a(numAttribute(QStringLiteral("x1")), numAttribute(QStringLiteral("y1")));
    const QPointF b(numAttribute(QStringLiteral("x2")), numAttribute(QStringLiteral("y2")));
    return QRectF(a, b).normalized();
}

QPainterPath QSvgLine::shape() const
{
    QPainterPath p;
    p.moveTo(numAttribute(QStringLiteral("x1")), numAttribute(QStringLiteral("y1")));
    p.lineTo(numAttribute(QStringLiteral("x2")), numAttribute(QStringLiteral("y2")));
    return p;
}

void QSvgLine::translate(double dx, double dy)
{
    translateNumAttr(QStringLiteral("x1"), dx);
    translateNumAttr(QStringLiteral("x2"), dx);
    translateNumAttr(QStringLiteral("y1"), dy);
    translateNumAttr(QStringLiteral("y2"), dy);
}

QRectF QSvgEllipse::rect() const
{
    const double cx = numAttribute(QStringLiteral("cx")), cy = numAttribute(QStringLiteral("cy"));
    double rx, ry;
    if (type() == Circle) {
        rx = ry = numAttribute(QStringLiteral("r"));
    } else {
        rx = numAttribute(QStringLiteral("rx"));
        ry = numAttribute(QStringLiteral("ry"));
    }
    return QRectF(cx - rx, cy - ry, 2 * rx, 2 * ry);
}

QPainterPath QSvgEllipse::shape() const
{
    QPainterPath p;
    const QRectF r = rect();
    if (r.width() > 0 && r.height() > 0)
        p.addEllipse(r);
    return p;
}

void QSvgEllipse::translate(double dx, double dy)
{
    translateNumAttr(QStringLiteral("cx"), dx);
    translateNumAttr(QStringLiteral("cy"), dy);
}

const QPainterPath &QSvgPath::path() const
{
    if (!m_pathValid) {
        m_path = SvgPathData::toPainterPath(SvgPathData::parse(attribute(QStringLiteral("d"))));
        m_path.setFillRule(styleProperty(QStringLiteral("fill-rule")) == QLatin1String("evenodd")
                               ? Qt::OddEvenFill : Qt::WindingFill);
        m_pathValid = true;
    }
    return m_path;
}

QRectF QSvgPath::rect() const { return path().boundingRect(); }
QPainterPath QSvgPath::shape() const { return path(); }

void QSvgPath::translate(double dx, double dy)
{
    auto segs = SvgPathData::parse(attribute(QStringLiteral("d")));
    SvgPathData::translate(segs, dx, dy);
    setAttribute(QStringLiteral("d"), SvgPathData::write(segs));
}

void QSvgPath::copyPath(const QSvgNode *from)
{
    if (from && from->type() == Path)
        setAttribute(QStringLiteral("d"), from->attribute(QStringLiteral("d")));
}

void QSvgPath::attributeChanged(const QString &name)
{
    QSvgNode::attributeChanged(name);
    if (name == QLatin1String("d") || name == QLatin1String("fill-rule") || name == QLatin1String("style"))
        m_pathValid = false;
}

QVector<QPointF> QSvgPolygon::points() const
{
    const QString s = attribute(QStringLiteral("points"));
    const QChar *p = s.constData();
    const QVector<double> v = SvgNumbers::parseList(p, p + s.size());
    QVector<QPointF> pts;
    for (int i = 0; i + 1 < v.size(); i += 2)
        pts.append(QPointF(v[i], v[i + 1]));
    return pts;
}

void QSvgPolygon::setPoints(const QVector<QPointF> &pts)
{
    QStringList parts;
    for (const QPointF &p : pts)
        parts << SvgNumbers::format(p.x()) + QLatin1Char(',') + SvgNumbers::format(p.y());
    setAttribute(QStringLiteral("points"), parts.join(QLatin1Char(' ')));
}

QRectF QSvgPolygon::rect() const { return shape().boundingRect(); }

QPainterPath QSvgPolygon::shape() const
{
    QPainterPath p;
    const QVector<QPointF> pts = points();
    if (pts.isEmpty())
        return p;
    p.moveTo(pts.first());
    for (int i = 1; i < pts.size(); ++i)
        p.lineTo(pts[i]);
    if (type() == Polygon)
        p.closeSubpath();
    return p;
}

void QSvgPolygon::translate(double dx, double dy)
{
    QVector<QPointF> pts = points();
    for (QPointF &p : pts)
        p += QPointF(dx, dy);
    setPoints(pts);
}

QFont QSvgText::font() const
{
    QString family = styleProperty(QStringLiteral("font-family"));
    family.remove(QLatin1Char('\'')).remove(QLatin1Char('"'));
    // A PostScript bold face ("Arial-BoldMT") is drawn bold, as other renderers are told.
    const bool boldFace = family.section(QLatin1Char(','), 0, 0).contains(QLatin1String("Bold"), Qt::CaseInsensitive);
    // The templates name PostScript faces; the metric-compatible free face stands in.
    if (family.isEmpty() || family.startsWith(QLatin1String("Arial")) || family.contains(QLatin1String("Helvetica")))
        family = QStringLiteral("Liberation Sans");
    QFont f(family.section(QLatin1Char(','), 0, 0).trimmed());
    double size = numAttribute(QStringLiteral("font-size"), 0);
    const QString styled = styleProperty(QStringLiteral("font-size"));
    if (!styled.isEmpty()) {
        const QChar *p = styled.constData();
        const QVector<double> v = SvgNumbers::parseList(p, p + styled.size());
        if (!v.isEmpty())
            size = v.first();
    }
    if (!(size > 0) || size > 10000)
        size = 16;
    f.setPixelSize(qMax(1, qRound(size)));
    const QString weight = styleProperty(QStringLiteral("font-weight"));
    if (boldFace || weight == QLatin1String("bold") || weight.toInt() >= 600)
        f.setBold(true);
    const QString style = styleProperty(QStringLiteral("font-style"));
    if (style == QLatin1String("italic") || style == QLatin1String("oblique"))
        f.setItalic(true);
    return f;
}

QRectF QSvgText::rect() const
{
    const QFontMetricsF fm(font());
    const double w = fm.horizontalAdvance(drawnText(text()));
    double x = numAttribute(QStringLiteral("x"));
    const QString anchor = styleProperty(QStringLiteral("text-anchor"));
    if (anchor == QLatin1String("middle"))
        x -= w / 2;
    else if (anchor == QLatin1String("end"))
        x -= w;
    const double y = numAttribute(QStringLiteral("y"));
    return QRectF(x, y - fm.ascent(), w, fm.ascent() + fm.descent());
}

void QSvgText::translate(double dx, double dy)
{
    translateNumAttr(QStringLiteral("x"), dx);
    translateNumAttr(QStringLiteral("y"), dy);
}

void QSvgText::attributeChanged(const QString &name) { QSvgNode::attributeChanged(name); }

QRectF QSvgStructureNode::rect() const { return transformedBounds(); }

void QSvgStructureNode::translate(double dx, double dy)
{
    if (type() != Group)
        return;
    for (const auto &c : children())
        c->translate(dx, dy);
}
