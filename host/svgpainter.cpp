// QPainter rendering of the document model.
#include "svgtinydocument.h"
#include <QLinearGradient>
#include <QRadialGradient>
#include <QPainter>
#include <cmath>

namespace {

struct Style {
    QString fill = QStringLiteral("black");
    QString stroke = QStringLiteral("none");
    double strokeWidth = 1;
    double fillOpacity = 1, strokeOpacity = 1;
    double miterLimit = 4;
    Qt::PenCapStyle cap = Qt::FlatCap;
    Qt::PenJoinStyle join = Qt::SvgMiterJoin;
    QVector<double> dashes;
    bool nonScaling = false;
    QString anchor;
    bool evenOdd = false;
};

double number(const QString &s, double fallback)
{
    const QChar *p = s.constData();
    const QVector<double> v = SvgNumbers::parseList(p, p + s.size());
    return v.isEmpty() ? fallback : v.first();
}

void applyStyle(const QSvgNode *n, Style &st)
{
    QString v;
    if (!(v = n->styleProperty(QStringLiteral("fill"))).isEmpty()) st.fill = v;
    if (!(v = n->styleProperty(QStringLiteral("stroke"))).isEmpty()) st.stroke = v;
    if (!(v = n->styleProperty(QStringLiteral("stroke-width"))).isEmpty()) st.strokeWidth = number(v, 1);
    if (!(v = n->styleProperty(QStringLiteral("fill-opacity"))).isEmpty()) st.fillOpacity = number(v, 1);
    if (!(v = n->styleProperty(QStringLiteral("stroke-opacity"))).isEmpty()) st.strokeOpacity = number(v, 1);
    if (!(v = n->styleProperty(QStringLiteral("stroke-miterlimit"))).isEmpty()) st.miterLimit = number(v, 4);
    if (!(v = n->styleProperty(QStringLiteral("stroke-linecap"))).isEmpty())
        st.cap = v == QLatin1String("round") ? Qt::RoundCap : v == QLatin1String("square") ? Qt::SquareCap : Qt::FlatCap;
    if (!(v = n->styleProperty(QStringLiteral("stroke-linejoin"))).isEmpty())
        st.join = v == QLatin1String("round") ? Qt::RoundJoin : v == QLatin1String("bevel") ? Qt::BevelJoin : Qt::SvgMiterJoin;
    if (!(v = n->styleProperty(QStringLiteral("stroke-dasharray"))).isEmpty()) {
        const QChar *p = v.constData();
        st.dashes = v == QLatin1String("none") ? QVector<double>() : SvgNumbers::parseList(p, p + v.size());
    }
    if (!(v = n->styleProperty(QStringLiteral("vector-effect"))).isEmpty())
        st.nonScaling = v == QLatin1String("non-scaling-stroke");
    if (!(v = n->styleProperty(QStringLiteral("text-anchor"))).isEmpty()) st.anchor = v;
    if (!(v = n->styleProperty(QStringLiteral("fill-rule"))).isEmpty()) st.evenOdd = v == QLatin1String("evenodd");
}

class Renderer
{
public:
    Renderer(QPainter *p, const QSvgTinyDocument *doc, bool handles) : m_p(p), m_doc(doc), m_handles(handles) {}

    void draw(const QSvgNode *n, Style st)
    {
        if (!n->isVisible())
            return;
        if (!m_handles && n->nodeId().startsWith(QLatin1String("control_")))
            return;
        const QSvgNode::Type t = n->type();
        if (t == QSvgNode::Defs || t == QSvgNode::LinearGradient || t == QSvgNode::RadialGradient || t == QSvgNode::Stop ||
            t == QSvgNode::Other)
            return;
        applyStyle(n, st);
        const double opacity = number(n->styleProperty(QStringLiteral("opacity")), 1);
        m_p->save();
        if (t != QSvgNode::Doc)
            m_p->setTransform(n->localTransform(), true);
        if (opacity < 1)
            m_p->setOpacity(m_p->opacity() * qBound(0.0, opacity, 1.0));
        if (t == QSvgNode::Group || t == QSvgNode::Doc) {
            for (const auto &c : n->children())
                draw(c.get(), st);
        } else if (t == QSvgNode::Text) {
            drawText(n, st);
        } else {
            QPainterPath path = n->shape();
            if (st.evenOdd)
                path.setFillRule(Qt::OddEvenFill);
            drawShape(path, st, t != QSvgNode::Line);
        }
        m_p->restore();
    }

private:
    QBrush paint(const QString &paintText, double opacity, const QRectF &bbox)
    {
        if (paintText.isEmpty() || paintText == QLatin1String("none"))
            return Qt::NoBrush;
        if (paintText.startsWith(QLatin1String("url("))) {
            const int hash = paintText.indexOf(QLatin1Char('#'));
            const int close = paintText.indexOf(QLatin1Char(')'));
            if (hash < 0 || close < hash)
                return Qt::NoBrush;
            const QSvgNode *g = m_doc->namedNode(paintText.mid(hash + 1, close - hash - 1).trimmed());
            return g && (g->type() == QSvgNode::LinearGradient || g->type() == QSvgNode::RadialGradient)
                       ? gradient(g, opacity, bbox)
                       : QBrush(Qt::NoBrush);
        }
        QColor c(paintText);
        if (!c.isValid())
            return Qt::NoBrush;
        c.setAlphaF(c.alphaF() * qBound(0.0, opacity, 1.0));
        return c;
    }

    QBrush gradient(const QSvgNode *g, double opacity, const QRectF &bbox)
    {
        // Stops may come from a referenced gradient, of either kind.
        const QSvgNode *stopsFrom = g;
        for (int hops = 0; stopsFrom->children().empty() && hops < 8; ++hops) {
            QString href = stopsFrom->attribute(QStringLiteral("xlink:href"));
            if (href.isEmpty())
                href = stopsFrom->attribute(QStringLiteral("href"));
            const QSvgNode *next = href.startsWith(QLatin1Char('#')) ? m_doc->namedNode(href.mid(1)) : nullptr;
            if (!next || (next->type() != QSvgNode::LinearGradient && next->type() != QSvgNode::RadialGradient))
                break;
            stopsFrom = next;
        }
        const bool userSpace = g->attribute(QStringLiteral("gradientUnits")) == QLatin1String("userSpaceOnUse");
        auto coord = [&](const char *name, double def) {
            const QString s = g->attribute(QLatin1String(name));
            if (s.isEmpty())
                return def;
            const double v = number(s, def);
            return s.trimmed().endsWith(QLatin1Char('%')) ? v / 100 : v;
        };
        QGradient *grad;
        QLinearGradient lg;
        QRadialGradient rg;
        if (g->type() == QSvgNode::RadialGradient) {
            // Centre, radius and focus default to the middle of the box, as SVG has them.
            const double def = userSpace ? 0 : 0.5;
            const double cx = coord("cx", def), cy = coord("cy", def), r = coord("r", def);
            rg = QRadialGradient(QPointF(cx, cy), qMax(0.0, r), QPointF(coord("fx", cx), coord("fy", cy)));
            grad = &rg;
        } else {
            lg = QLinearGradient(coord("x1", 0), coord("y1", 0), coord("x2", userSpace ? 0 : 1), coord("y2", 0));
            grad = &lg;
        }
        if (!userSpace)
            grad->setCoordinateMode(QGradient::ObjectMode);
        for (const auto &s : stopsFrom->children()) {
            if (s->type() != QSvgNode::Stop)
                continue;
            const QString off = s->attribute(QStringLiteral("offset"));
            double pos = number(off, 0);
            if (off.trimmed().endsWith(QLatin1Char('%')))
                pos /= 100;
            QColor c(s->styleProperty(QStringLiteral("stop-color")));
            if (!c.isValid())
                c = Qt::black;
            c.setAlphaF(qBound(0.0, number(s->styleProperty(QStringLiteral("stop-opacity")), 1) * opacity, 1.0));
            grad->setColorAt(qBound(0.0, pos, 1.0), c);
        }
        QBrush b(*grad);
        const QString gt = g->attribute(QStringLiteral("gradientTransform"));
        if (!gt.isEmpty()) {
            QSvgStructureNode tmp(QSvgNode::Group, QStringLiteral("g"));
            tmp.setAttribute(QStringLiteral("transform"), gt);
            b.setTransform(tmp.localTransform());
        }
        Q_UNUSED(bbox);
        return b;
    }

    void drawShape(const QPainterPath &path, const Style &st, bool fill)
    {
        if (path.isEmpty())
            return;
        const QRectF bbox = path.boundingRect();
        m_p->setBrush(fill ? paint(st.fill, st.fillOpacity, bbox) : QBrush(Qt::NoBrush));
        m_p->setPen(pen(st, bbox));
        m_p->drawPath(path);
    }

    QPen pen(const Style &st, const QRectF &bbox)
    {
        const QBrush b = paint(st.stroke, st.strokeOpacity, bbox);
        if (b.style() == Qt::NoBrush || !(st.strokeWidth > 0))
            return Qt::NoPen;
        QPen pen(b, st.strokeWidth, Qt::SolidLine, st.cap, st.join);
        pen.setMiterLimit(st.miterLimit / 2);
        if (st.nonScaling) {
            // Keep the stroke's width in document units whatever the view scale.
            const QTransform t = m_p->worldTransform();
            pen.setWidthF(st.strokeWidth * std::sqrt(std::fabs(t.determinant())));
            pen.setCosmetic(true);
        }
        if (!st.dashes.isEmpty()) {
            QVector<qreal> d;
            for (double v : st.dashes)
                d << qMax(0.0, v) / qMax(1e-9, st.strokeWidth);
            if (d.size() % 2)
                d += d;
            double sum = 0;
            for (double v : d) sum += v;
            if (sum > 0)
                pen.setDashPattern(d);
        }
        return pen;
    }

    void drawText(const QSvgNode *n, const Style &st)
    {
        const QString text = QSvgText::drawnText(n->text());
        if (text.isEmpty())
            return;
        const QFont font = static_cast<const QSvgText *>(n)->font();
        QPainterPath path;
        double x = n->numAttribute(QStringLiteral("x"));
        const double y = n->numAttribute(QStringLiteral("y"));
        path.addText(0, 0, font, text);
        const double w = QFontMetricsF(font).horizontalAdvance(text);
        if (st.anchor == QLatin1String("middle"))
            x -= w / 2;
        else if (st.anchor == QLatin1String("end"))
            x -= w;
        path.translate(x, y);
        m_p->setBrush(paint(st.fill, st.fillOpacity, path.boundingRect()));
        m_p->setPen(pen(st, path.boundingRect()));
        m_p->drawPath(path);
    }

    QPainter *m_p;
    const QSvgTinyDocument *m_doc;
    bool m_handles;
};

} // namespace

void QSvgTinyDocument::render(QPainter *p, const QRectF &target, bool handles) const
{
    const QRectF vb = m_viewBox.isEmpty() ? const_cast<QSvgTinyDocument *>(this)->transformedBounds() : m_viewBox;
    const QRectF to = target.isNull() ? QRectF(QPointF(0, 0), size()) : target;
    if (vb.isEmpty() || to.isEmpty())
        return;
    p->save();
    p->setRenderHint(QPainter::Antialiasing, true);
    p->setRenderHint(QPainter::TextAntialiasing, true);
    p->translate(to.topLeft());
    p->scale(to.width() / vb.width(), to.height() / vb.height());
    p->translate(-vb.topLeft());
    Renderer(p, this, handles).draw(this, Style());
    p->restore();
}
