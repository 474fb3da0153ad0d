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
    bool hidden = false; // visibility: hidden (inherited; a child may show itself again)
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
    if (!(v = n->styleProperty(QStringLiteral("visibility"))).isEmpty()) st.hidden = v != QLatin1String("visible");
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

bool isGradient(const QSvgNode *n)
{
    return n->type() == QSvgNode::LinearGradient || n->type() == QSvgNode::RadialGradient;
}

class Renderer
{
public:
    Renderer(QPainter *p, const QSvgTinyDocument *doc, const QSvgTinyDocument::RenderOptions &o)
        : m_p(p), m_doc(doc), m_handles(o.handles), m_minHandle(o.minHandlePixels), m_docTransform(p->worldTransform())
    {
    }

    void draw(const QSvgNode *n, Style st)
    {
        if (!n->isVisible())
            return;
        const bool handle = (!m_handles || m_minHandle > 0) && n->nodeId().startsWith(QLatin1String("control_"));
        if (handle && !m_handles)
            return;
        const QSvgNode::Type t = n->type();
        if (t == QSvgNode::Defs || t == QSvgNode::LinearGradient || t == QSvgNode::RadialGradient || t == QSvgNode::Stop ||
            t == QSvgNode::Other)
            return;
        applyStyle(n, st);
        const double opacity = number(n->styleProperty(QStringLiteral("opacity")), 1);
        const QTransform local = t != QSvgNode::Doc ? n->localTransform() : QTransform();
        // A shape sets its own pen and brush before it draws: one that neither moves
        // nor fades leaves nothing to put back, and saving the painter's whole state
        // for each of thousands of marks costs more than drawing some of them.
        const bool keep = t == QSvgNode::Group || t == QSvgNode::Doc || !local.isIdentity() || opacity < 1 || handle;
        if (keep)
            m_p->save();
        if (!local.isIdentity())
            m_p->setTransform(local, true);
        if (handle)
            enlargeHandle(n);
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
        if (keep)
            m_p->restore();
    }

private:
    // A handle seen smaller than a fingertip is drawn that large, about its own centre.
    void enlargeHandle(const QSvgNode *n)
    {
        const QRectF r = m_docTransform.mapRect(n->documentBounds());
        const double side = qMax(r.width(), r.height());
        if (!(side > 0) || side >= m_minHandle)
            return;
        const double k = m_minHandle / side;
        const QPointF c = r.center();
        m_p->setWorldTransform(m_p->worldTransform() * QTransform::fromTranslate(-c.x(), -c.y()) *
                               QTransform::fromScale(k, k) * QTransform::fromTranslate(c.x(), c.y()));
    }

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
            return g && isGradient(g) ? gradient(g, opacity, bbox) : QBrush(Qt::NoBrush);
        }
        // Marks by the thousand share one colour: parse each text once per render.
        for (const Solid &k : m_solids)
            if (k.opacity == opacity && k.text == paintText)
                return k.brush;
        QColor c(paintText);
        QBrush b = Qt::NoBrush;
        if (c.isValid()) {
            c.setAlphaF(c.alphaF() * qBound(0.0, opacity, 1.0));
            b = c;
        }
        m_solids[m_nextSolid] = {paintText, opacity, b};
        m_nextSolid = (m_nextSolid + 1) % 2;
        return b;
    }

    struct Solid {
        QString text;
        double opacity = -1;
        QBrush brush;
    };
    Solid m_solids[2];
    int m_nextSolid = 0;

    QBrush gradient(const QSvgNode *g, double opacity, const QRectF &bbox)
    {
        // Stops may come from a referenced gradient, of either kind.
        const QSvgNode *stopsFrom = g;
        for (int hops = 0; stopsFrom->children().empty() && hops < 8; ++hops) {
            QString href = stopsFrom->attribute(QStringLiteral("xlink:href"));
            if (href.isEmpty())
                href = stopsFrom->attribute(QStringLiteral("href"));
            const QSvgNode *next = href.startsWith(QLatin1Char('#')) ? m_doc->namedNode(href.mid(1)) : nullptr;
            if (!next || !isGradient(next))
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
        QLinearGradient lg(coord("x1", 0), coord("y1", 0), coord("x2", userSpace ? 0 : 1), coord("y2", 0));
        QRadialGradient rg;
        if (g->type() == QSvgNode::RadialGradient) {
            const double cx = coord("cx", 0.5), cy = coord("cy", 0.5);
            rg = QRadialGradient(QPointF(cx, cy), coord("r", 0.5), QPointF(coord("fx", cx), coord("fy", cy)));
        }
        QGradient &grad = g->type() == QSvgNode::RadialGradient ? static_cast<QGradient &>(rg) : lg;
        if (!userSpace)
            grad.setCoordinateMode(QGradient::ObjectMode);
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
            grad.setColorAt(qBound(0.0, pos, 1.0), c);
        }
        QBrush b(grad);
        const QString gt = g->attribute(QStringLiteral("gradientTransform"));
        if (!gt.isEmpty()) {
            QSvgStructureNode tmp(QSvgNode::Group, QStringLiteral("g"));
            tmp.setAttribute(QStringLiteral("transform"), gt);
            b.setTransform(tmp.localTransform());
        }
        Q_UNUSED(bbox);
        return b;
    }

    // Whether every subpath is a single straight segment (a cross, a tick): filling
    // it would paint nothing, at the cost of a pass of the rasteriser per shape.
    static bool enclosesNothing(const QPainterPath &path)
    {
        int lines = 0;
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPainterPath::Element e = path.elementAt(i);
            if (e.isMoveTo())
                lines = 0;
            else if (!e.isLineTo() || ++lines > 1)
                return false;
        }
        return true;
    }

    void drawShape(const QPainterPath &path, const Style &st, bool fill)
    {
        if (path.isEmpty() || st.hidden)
            return;
        const QRectF bbox = path.boundingRect();
        m_p->setBrush(fill && !enclosesNothing(path) ? paint(st.fill, st.fillOpacity, bbox) : QBrush(Qt::NoBrush));
        m_p->setPen(pen(st, bbox));
        m_p->drawPath(path);
    }

    QPen pen(const Style &st, const QRectF &bbox)
    {
        const QBrush b = paint(st.stroke, st.strokeOpacity, bbox);
        if (b.style() == Qt::NoBrush || !(st.strokeWidth > 0))
            return Qt::NoPen;
        QPen pen(b, st.strokeWidth, Qt::SolidLine, st.cap, st.join);
        pen.setMiterLimit(st.miterLimit);
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
        if (text.isEmpty() || st.hidden)
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
    double m_minHandle;
    QTransform m_docTransform; // document units to the device
};

} // namespace

void QSvgTinyDocument::render(QPainter *p, const QRectF &target, const RenderOptions &options) const
{
    const QRectF vb = shownBox();
    const QRectF to = target.isNull() ? QRectF(QPointF(0, 0), size()) : target;
    if (vb.isEmpty() || to.isEmpty())
        return;
    p->save();
    p->setRenderHint(QPainter::Antialiasing, true);
    p->setRenderHint(QPainter::TextAntialiasing, true);
    p->translate(to.topLeft());
    p->scale(to.width() / vb.width(), to.height() / vb.height());
    p->translate(-vb.topLeft());
    Renderer(p, this, options).draw(this, Style());
    p->restore();
}
