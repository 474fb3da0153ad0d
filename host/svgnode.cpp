// The node tree: nodes, their children, state for undo, and transforms.
#include "svgnode_p.h"
#include "svgpathdata.h"
#include "svgtinydocument.h"
#include <QSet>
#include <QtMath>
#include <cmath>
#include <cstring>

namespace SvgNodeDetail {

const QString kId = QStringLiteral("id");
const QString kStyle = QStringLiteral("style");
const QString kTransform = QStringLiteral("transform");
const QString kRotateAngle = QStringLiteral("rotate_angle");
const QString kRotateX = QStringLiteral("rotate_x");
const QString kRotateY = QStringLiteral("rotate_y");

QTransform parseTransform(const QString &text)
{
    QTransform result;
    const QChar *p = text.constData();
    const QChar *end = p + text.size();
    while (p < end) {
        while (p < end && (p->isSpace() || *p == QLatin1Char(',')))
            ++p;
        const QChar *nameStart = p;
        while (p < end && p->isLetter())
            ++p;
        const QString name(nameStart, int(p - nameStart));
        while (p < end && p->isSpace())
            ++p;
        if (name.isEmpty() || p >= end || *p != QLatin1Char('('))
            break;
        ++p;
        const QVector<double> a = SvgNumbers::parseList(p, end);
        while (p < end && *p != QLatin1Char(')'))
            ++p;
        if (p < end)
            ++p;
        QTransform t;
        if (name == QLatin1String("matrix") && a.size() == 6)
            t = QTransform(a[0], a[1], a[2], a[3], a[4], a[5]);
        else if (name == QLatin1String("translate") && !a.isEmpty())
            t.translate(a[0], a.size() > 1 ? a[1] : 0);
        else if (name == QLatin1String("scale") && !a.isEmpty())
            t.scale(a[0], a.size() > 1 ? a[1] : a[0]);
        else if (name == QLatin1String("rotate") && !a.isEmpty()) {
            const double cx = a.size() > 2 ? a[1] : 0, cy = a.size() > 2 ? a[2] : 0;
            t.translate(cx, cy);
            t.rotate(a[0]);
            t.translate(-cx, -cy);
        } else if (name == QLatin1String("skewX") && a.size() == 1)
            t.shear(std::tan(qDegreesToRadians(a[0])), 0);
        else if (name == QLatin1String("skewY") && a.size() == 1)
            t.shear(0, std::tan(qDegreesToRadians(a[0])));
        else
            break;
        // SVG lists apply right to left to points; QTransform composes row vectors.
        result = t * result;
    }
    return result;
}


} // namespace SvgNodeDetail

using namespace SvgNodeDetail;

// ---------------------------------------------------------------- QSvgNode

QSvgNode::QSvgNode(Type type, const QString &tag) : m_type(type), m_tag(tag) {}

QSvgNode::~QSvgNode() = default;

QString QSvgNode::internName(const QString &name)
{
    // Templates use a few dozen names; a bound keeps hostile documents from growing it.
    static QSet<QString> pool;
    const auto it = pool.constFind(name);
    if (it != pool.cend())
        return *it;
    if (pool.size() < 4096)
        pool.insert(name);
    return name;
}

QString QSvgNode::Attr::text() const
{
    return value.isNull() && numberState == 1 ? SvgNumbers::format(number) : value;
}

void QSvgNode::changed() const
{
    if (QSvgTinyDocument *doc = document())
        doc->bumpRevision();
}

void QSvgNode::setVisible(bool visible)
{
    if (m_visible != visible) {
        m_visible = visible;
        changed();
    }
}

void QSvgNode::setStrokeEnabled(bool on)
{
    if (m_strokeEnabled != on) {
        m_strokeEnabled = on;
        changed();
    }
}

void QSvgNode::setFillEnabled(bool on)
{
    if (m_fillEnabled != on) {
        m_fillEnabled = on;
        changed();
    }
}

void QSvgNode::set3DBack(bool on)
{
    if (m_3dBack != on) {
        m_3dBack = on;
        changed();
    }
}

const QString &QSvgNode::hostSavedPaint(bool stroke) const
{
    static const QString none;
    if (!m_saved)
        return none;
    return stroke ? m_saved->stroke : m_saved->fill;
}

void QSvgNode::setHostSavedPaint(bool stroke, const QString &paint)
{
    if (!m_saved) {
        if (paint.isNull())
            return;
        m_saved = std::make_unique<SavedPaint>();
    }
    (stroke ? m_saved->stroke : m_saved->fill) = paint;
    if (m_saved->fill.isNull() && m_saved->stroke.isNull())
        m_saved.reset();
    changed();
}

const std::vector<std::unique_ptr<QSvgNode>> &QSvgNode::children() const
{
    static const Children none;
    return m_children ? *m_children : none;
}

void QSvgNode::setText(const QString &t)
{
    if (m_text != t || m_text.isNull() != t.isNull()) {
        m_text = t;
        changed();
    }
}

QSvgTinyDocument *QSvgNode::document() const
{
    const QSvgNode *n = this;
    while (n->m_parent)
        n = n->m_parent;
    return n->m_type == Doc ? static_cast<QSvgTinyDocument *>(const_cast<QSvgNode *>(n)) : nullptr;
}

std::unique_ptr<QSvgNode> QSvgNode::clone() const
{
    std::unique_ptr<QSvgNode> c;
    switch (m_type) {
    case Rect: c.reset(new QSvgRect); break;
    case Line: c.reset(new QSvgLine); break;
    case Path: c.reset(new QSvgPath); break;
    case Polygon: c.reset(new QSvgPolygon(true)); break;
    case Polyline: c.reset(new QSvgPolygon(false)); break;
    case Ellipse: c.reset(new QSvgEllipse(false)); break;
    case Circle: c.reset(new QSvgEllipse(true)); break;
    case Text: c.reset(new QSvgText); break;
    case Doc: // a document clones as a plain group
    case Group: c.reset(new QSvgStructureNode(Group, QStringLiteral("g"))); break;
    default: c.reset(new QSvgStructureNode(m_type, m_tag)); break;
    }
    c->m_tag = m_type == Doc ? QStringLiteral("g") : m_tag;
    // The copy shares what it was copied from and keeps its own changes apart: a series
    // of generated nodes holds each template attribute once.
    if (m_base.isEmpty()) {
        c->m_base = m_attrs;
    } else {
        c->m_base = m_base;
        c->m_attrs = m_attrs;
    }
    c->m_style = m_style;
    c->m_text = m_text;
    c->m_visible = m_visible;
    c->m_strokeEnabled = m_strokeEnabled;
    c->m_fillEnabled = m_fillEnabled;
    c->m_3dBack = m_3dBack;
    if (m_saved)
        c->m_saved = std::make_unique<SavedPaint>(*m_saved);
    c->m_cloneSource = const_cast<QSvgNode *>(this);
    for (const auto &child : children()) {
        auto cc = child->clone();
        cc->m_cloneSource = nullptr;
        c->appendChild(std::move(cc));
    }
    return c;
}

QSvgNodeState QSvgNode::state() const
{
    QSvgNodeState s;
    s.base = m_base;
    s.attrs = m_attrs;
    s.text = m_text;
    s.savedFill = hostSavedPaint(false);
    s.savedStroke = hostSavedPaint(true);
    s.flags = quint8((m_visible ? QSvgNodeState::Visible : 0) | (m_strokeEnabled ? QSvgNodeState::StrokeEnabled : 0) |
                     (m_fillEnabled ? QSvgNodeState::FillEnabled : 0) | (m_3dBack ? QSvgNodeState::Back3D : 0));
    return s;
}

void QSvgNode::setState(const QSvgNodeState &s)
{
    const QString oldId = nodeId();
    const QVector<Attr> old = attributes();
    m_base = s.base;
    m_attrs = s.attrs;
    m_style.clear();
    if (const Attr *style = findAttr(kStyle))
        m_style = parseStyle(style->text());
    m_text = s.text;
    if (s.savedFill.isNull() && s.savedStroke.isNull())
        m_saved.reset();
    else
        m_saved = std::make_unique<SavedPaint>(SavedPaint{s.savedFill, s.savedStroke});
    m_visible = s.flags & QSvgNodeState::Visible;
    m_strokeEnabled = s.flags & QSvgNodeState::StrokeEnabled;
    m_fillEnabled = s.flags & QSvgNodeState::FillEnabled;
    m_3dBack = s.flags & QSvgNodeState::Back3D;
    const QString newId = nodeId();
    if (oldId != newId)
        if (QSvgTinyDocument *doc = document())
            doc->reindex(this, oldId, newId);
    // Whatever a kind caches from its attributes goes.
    for (const Attr &a : old)
        attributeChanged(a.name);
    for (const Attr &a : attributes())
        attributeChanged(a.name);
    changed();
}

QVector<QSvgNode::Attr> QSvgNodeState::merged() const { return QSvgNode::mergeAttributes(base, attrs); }

bool QSvgNodeState::operator==(const QSvgNodeState &o) const
{
    if (flags != o.flags || text != o.text || text.isNull() != o.text.isNull() || savedFill != o.savedFill ||
        savedFill.isNull() != o.savedFill.isNull() || savedStroke != o.savedStroke ||
        savedStroke.isNull() != o.savedStroke.isNull())
        return false;
    // The same storage is the same attributes.
    if (base.constData() == o.base.constData() && attrs.constData() == o.attrs.constData() && base.size() == o.base.size() &&
        attrs.size() == o.attrs.size())
        return true;
    const QVector<QSvgNode::Attr> mine = merged(), theirs = o.merged();
    if (mine.size() != theirs.size())
        return false;
    for (int i = 0; i < mine.size(); ++i) {
        const QSvgNode::Attr &a = mine[i], &b = theirs[i];
        if (a.name != b.name)
            return false;
        // Numbers kept as numbers compare bit for bit; texts as written.
        const bool an = a.value.isNull() && a.numberState == 1, bn = b.value.isNull() && b.numberState == 1;
        if (an && bn) {
            if (std::memcmp(&a.number, &b.number, sizeof(double)) != 0)
                return false;
        } else if (a.text() != b.text()) {
            return false;
        }
    }
    return true;
}

bool QSvgNode::hasRotation() const { return findAttr(kRotateAngle) != nullptr; }

QTransform QSvgNode::localTransform() const
{
    if (!m_transformValid) {
        QTransform t = parseTransform(attribute(kTransform));
        if (hasRotation()) {
            const double a = numAttribute(kRotateAngle);
            if (std::isfinite(a) && a != 0) {
                const double cx = numAttribute(kRotateX), cy = numAttribute(kRotateY);
                QTransform r;
                r.translate(cx, cy);
                r.rotate(a);
                r.translate(-cx, -cy);
                t = r * t;
            }
        }
        if (t.isIdentity())
            m_transform.reset();
        else
            m_transform = std::make_unique<QTransform>(t);
        m_transformValid = true;
    }
    return m_transform ? *m_transform : QTransform();
}

QTransform QSvgNode::documentTransform() const
{
    QTransform t;
    for (const QSvgNode *n = this; n && n->m_type != Doc; n = n->m_parent)
        t = t * n->localTransform();
    return t;
}

QRectF QSvgNode::transformedBounds() const
{
    QRectF r;
    if (m_type == Group || m_type == Doc) {
        for (const auto &c : children()) {
            if (!c->isVisible())
                continue;
            const QRectF cb = c->transformedBounds();
            if (cb.isNull())
                continue;
            r = r.isNull() ? cb : r.united(cb);
        }
        return m_type == Doc ? r : localTransform().mapRect(r);
    }
    if (m_type == Text)
        return localTransform().mapRect(rect());
    const QPainterPath s = shape();
    if (s.isEmpty())
        return QRectF();
    return localTransform().map(s).boundingRect();
}

QRectF QSvgNode::documentBounds() const
{
    const QRectF b = transformedBounds();
    return m_parent ? m_parent->documentTransform().mapRect(b) : b;
}

void QSvgNode::appendChild(std::unique_ptr<QSvgNode> child)
{
    insertChild(int(children().size()), std::move(child));
}

void QSvgNode::insertChild(int index, std::unique_ptr<QSvgNode> child)
{
    if (!child)
        return;
    child->m_parent = this;
    QSvgNode *raw = child.get();
    if (!m_children)
        m_children = std::make_unique<Children>();
    index = qBound(0, index, int(m_children->size()));
    m_children->insert(m_children->begin() + index, std::move(child));
    if (QSvgTinyDocument *doc = document()) {
        doc->indexSubtree(raw);
        doc->bumpRevision();
    }
}

std::unique_ptr<QSvgNode> QSvgNode::takeChild(QSvgNode *child)
{
    const int i = indexOf(child);
    if (i < 0)
        return nullptr;
    if (QSvgTinyDocument *doc = document()) {
        doc->unindexSubtree(child);
        doc->bumpRevision();
    }
    std::unique_ptr<QSvgNode> out = std::move((*m_children)[size_t(i)]);
    m_children->erase(m_children->begin() + i);
    if (m_children->empty())
        m_children.reset();
    out->m_parent = nullptr;
    return out;
}

int QSvgNode::indexOf(const QSvgNode *child) const
{
    const Children &kids = children();
    for (size_t i = 0; i < kids.size(); ++i)
        if (kids[i].get() == child)
            return int(i);
    return -1;
}
