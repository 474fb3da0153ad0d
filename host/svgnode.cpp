#include "svgnode.h"
#include "svgpathdata.h"
#include "svgtinydocument.h"
#include <QFontMetricsF>
#include <QSet>
#include <QtMath>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

const QString kId = QStringLiteral("id");
const QString kStyle = QStringLiteral("style");
const QString kTransform = QStringLiteral("transform");
const QString kRotateAngle = QStringLiteral("rotate_angle");
const QString kRotateX = QStringLiteral("rotate_x");
const QString kRotateY = QStringLiteral("rotate_y");

QVector<QSvgNode::Attr> parseStyle(const QString &s)
{
    QVector<QSvgNode::Attr> out;
    const auto decls = s.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &decl : decls) {
        const int colon = decl.indexOf(QLatin1Char(':'));
        if (colon <= 0)
            continue;
        out.append({QSvgNode::internName(decl.left(colon).trimmed()), decl.mid(colon + 1).trimmed()});
    }
    return out;
}

QString writeStyle(const QVector<QSvgNode::Attr> &style)
{
    QStringList parts;
    for (const auto &a : style)
        parts << a.name + QLatin1Char(':') + a.value;
    return parts.join(QLatin1Char(';'));
}

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

QColor parsePaintColor(const QString &v)
{
    if (v.isEmpty() || v == QLatin1String("none") || v.startsWith(QLatin1String("url(")))
        return QColor();
    return QColor(v);
}

} // namespace

// Attribute names are looked up on every step of a drag; most candidates differ in
// length, which is checked here without a call into QtCore.
inline bool sameName(const QString &a, const QString &b)
{
    const int n = a.size();
    if (a.constData() == b.constData())
        return n == b.size();
    if (n != b.size())
        return false;
    const QChar *x = a.constData(), *y = b.constData();
    for (int i = 0; i < n; ++i)
        if (x[i] != y[i])
            return false;
    return true;
}

// ---------------------------------------------------------------- numbers

// Shortest round-trip digits: a number written and read back is the same double, so a
// drawing saved, reloaded or undone comes back bit for bit.
QString SvgNumbers::format(double v)
{
    if (v == 0)
        return QStringLiteral("0");
    if (std::isnan(v))
        return QStringLiteral("NaN");
    if (std::isinf(v))
        return v > 0 ? QStringLiteral("Infinity") : QStringLiteral("-Infinity");
    char s[32];
    const auto r = std::to_chars(s, s + sizeof s, v);
    return QString::fromLatin1(s, int(r.ptr - s));
}

namespace {

// Reads one number at p (sign, digits, fraction, exponent) and moves p past it.
// Numbers are read on every step of a drag, so this allocates nothing.
bool readNumber(const QChar *&p, const QChar *end, double &value)
{
    auto atEnd = [&](const QChar *q) { return end ? q >= end : q->isNull(); };
    while (!atEnd(p) && (p->isSpace() || *p == QLatin1Char(',')))
        ++p;
    if (atEnd(p))
        return false;
    const QChar *q = p;
    if (*q == QLatin1Char('+') || *q == QLatin1Char('-'))
        ++q;
    bool digits = false;
    while (!atEnd(q) && q->isDigit()) { ++q; digits = true; }
    if (!atEnd(q) && *q == QLatin1Char('.')) {
        ++q;
        while (!atEnd(q) && q->isDigit()) { ++q; digits = true; }
    }
    if (!digits)
        return false;
    if (!atEnd(q) && (*q == QLatin1Char('e') || *q == QLatin1Char('E'))) {
        const QChar *e = q + 1;
        if (!atEnd(e) && (*e == QLatin1Char('+') || *e == QLatin1Char('-')))
            ++e;
        if (!atEnd(e) && e->isDigit()) {
            while (!atEnd(e) && e->isDigit())
                ++e;
            q = e;
        }
    }
    // Only ASCII digits, signs, '.' and 'e' were accepted above.
    char buf[64];
    const int n = int(q - p);
    if (n < int(sizeof buf)) {
        const QChar *from = *p == QLatin1Char('+') ? p + 1 : p;
        int k = 0;
        for (const QChar *c = from; c < q; ++c)
            buf[k++] = char(c->unicode());
        const auto r = std::from_chars(buf, buf + k, value);
        if (r.ec == std::errc() && r.ptr == buf + k) {
            p = q;
            return true;
        }
    }
    bool ok = false;
    value = QString(p, n).toDouble(&ok);
    if (!ok)
        return false;
    p = q;
    return true;
}

} // namespace

QVector<double> SvgNumbers::parseList(const QChar *&p, const QChar *end)
{
    QVector<double> out;
    double v = 0;
    while (readNumber(p, end, v))
        out.append(v);
    return out;
}

QString SvgNumbers::join(const QVector<double> &v)
{
    QString s;
    for (int i = 0; i < v.size(); ++i) {
        if (i)
            s += QLatin1Char(',');
        s += format(v[i]);
    }
    return s;
}

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

// ---------------------------------------------------------------- attributes
// A node's attributes are its base (shared with the node it was copied from, never
// written through) overlaid by its own list: changed base attributes (or a removal
// marker), then attributes the base does not have, in the order they came.

QVector<QSvgNode::Attr> QSvgNode::mergeAttributes(const QVector<Attr> &base, const QVector<Attr> &own)
{
    if (base.isEmpty())
        return own; // parsed nodes: all their own, and never a removal marker
    auto findIn = [](const QVector<Attr> &list, const QString &name) -> const Attr * {
        for (const Attr &a : list)
            if (sameName(a.name, name))
                return &a;
        return nullptr;
    };
    QVector<Attr> out;
    out.reserve(base.size() + own.size());
    for (const Attr &b : base) {
        const Attr *o = findIn(own, b.name);
        if (!o)
            out.append(b);
        else if (!o->removed())
            out.append(*o);
    }
    for (const Attr &o : own)
        if (!o.removed() && !findIn(base, o.name))
            out.append(o);
    return out;
}

QVector<QSvgNode::Attr> QSvgNode::attributes() const { return mergeAttributes(m_base, m_attrs); }

int QSvgNode::ownIndex(const QString &name) const
{
    const Attr *d = m_attrs.constData();
    for (int i = 0, n = m_attrs.size(); i < n; ++i)
        if (sameName(d[i].name, name))
            return i;
    return -1;
}

const QSvgNode::Attr *QSvgNode::baseAttr(const QString &name) const
{
    for (const Attr &a : m_base)
        if (sameName(a.name, name))
            return &a;
    return nullptr;
}

const QSvgNode::Attr *QSvgNode::findAttr(const QString &name) const
{
    const int i = ownIndex(name);
    if (i >= 0)
        return m_attrs.at(i).removed() ? nullptr : &m_attrs.at(i);
    return baseAttr(name);
}

QSvgNode::Attr &QSvgNode::ownEntry(const QString &name)
{
    const int i = ownIndex(name);
    if (i >= 0) {
        Attr &a = m_attrs[i];
        if (a.removed())
            a.numberState = 0;
        return a;
    }
    const Attr *b = baseAttr(name);
    // Grown one at a time: own lists stay short, and spare room in thousands of generated
    // nodes adds up.
    m_attrs.reserve(m_attrs.size() + 1);
    m_attrs.append(Attr{b ? b->name : internName(name), QString()});
    return m_attrs.last();
}

void QSvgNode::squeezeAttributes() { m_attrs.squeeze(); }

bool QSvgNode::hasAttribute(const QString &name) const
{
    if (m_type == Text && name == QLatin1String("value"))
        return true;
    return findAttr(name) != nullptr;
}

QString QSvgNode::attribute(const QString &name) const
{
    if (m_type == Text && name == QLatin1String("value"))
        return m_text;
    const Attr *a = findAttr(name);
    return a ? a->text() : QString();
}

void QSvgNode::setAttribute(const QString &name, const QString &value)
{
    if (m_type == Text && name == QLatin1String("value")) {
        setText(value);
        return;
    }
    // A null text would read as "set as a number"; an empty one is what is meant.
    const QString text = value.isNull() ? QStringLiteral("") : value;
    // The same text again changes nothing, and costs a shared node no copy of its own.
    if (const Attr *now = findAttr(name))
        if (!now->value.isNull() && now->value == text)
            return;
    QString oldId;
    const bool isId = sameName(name, kId);
    if (isId)
        oldId = nodeId();
    Attr &a = ownEntry(name);
    a.value = text;
    a.numberState = 0;
    changed();
    if (sameName(name, kStyle))
        m_style = parseStyle(text);
    if (isId && oldId != text) {
        if (QSvgTinyDocument *doc = document())
            doc->reindex(this, oldId, text);
    }
    attributeChanged(name);
}

void QSvgNode::addParsedAttribute(const QString &name, const QString &value)
{
    m_attrs.append({internName(name), value.isNull() ? QStringLiteral("") : value});
    if (sameName(name, kStyle))
        m_style = parseStyle(value);
    else if (sameName(name, kId))
        if (QSvgTinyDocument *doc = document())
            doc->reindex(this, QString(), value);
    attributeChanged(name);
}

void QSvgNode::removeAttribute(const QString &name)
{
    const int i = ownIndex(name);
    const Attr *b = baseAttr(name);
    if (i < 0 && !b)
        return;
    if (i >= 0 && m_attrs.at(i).removed())
        return;
    const QString oldId = sameName(name, kId) ? nodeId() : QString();
    if (b) {
        Attr &a = ownEntry(name);
        a.value = QString();
        a.numberState = 3; // the base has it: mark it gone
    } else {
        m_attrs.remove(i);
    }
    if (sameName(name, kStyle))
        m_style.clear();
    if (!oldId.isEmpty())
        if (QSvgTinyDocument *doc = document())
            doc->reindex(this, oldId, QString());
    changed();
    attributeChanged(name);
}

bool QSvgNode::findNumAttribute(const QString &name, double *value) const
{
    const Attr *a = findAttr(name);
    if (!a)
        return false;
    if (a->numberState == 0) {
        const QChar *p = a->value.constData();
        bool ok = readNumber(p, p + a->value.size(), a->number);
        if (!ok)
            a->number = a->value.trimmed().toDouble(&ok); // NaN, Infinity
        a->numberState = ok ? 1 : 2;
    }
    if (a->numberState == 1)
        *value = a->number;
    return true;
}

double QSvgNode::numAttribute(const QString &name, double fallback) const
{
    double v = fallback;
    findNumAttribute(name, &v);
    return v;
}

void QSvgNode::setNumAttribute(const QString &name, double value)
{
    // Kept as the number itself: its text is made only when it is written.
    const Attr *now = findAttr(name);
    if (now && now->numberState == 1 && now->value.isNull() &&
        (now->number == value || (std::isnan(now->number) && std::isnan(value))) &&
        std::signbit(now->number) == std::signbit(value))
        return;
    // These keep their side effects: they go the long way.
    if (sameName(name, kId) || sameName(name, kStyle) || (m_type == Text && name == QLatin1String("value"))) {
        setAttribute(name, SvgNumbers::format(value));
        return;
    }
    Attr &a = ownEntry(name);
    a.value = QString();
    a.number = value;
    a.numberState = 1;
    changed();
    attributeChanged(name);
}

QString QSvgNode::styleProperty(const QString &name) const
{
    for (const Attr &a : m_style)
        if (sameName(a.name, name))
            return a.value;
    const Attr *a = findAttr(name);
    return a ? a->text() : QString();
}

void QSvgNode::setStyleProperty(const QString &name, const QString &value)
{
    for (Attr &a : m_style) {
        if (sameName(a.name, name)) {
            a.value = value;
            setAttribute(kStyle, writeStyle(m_style));
            return;
        }
    }
    setAttribute(name, value);
}

// A colour the node already has, however its text spells it, is no change: a series of
// generated nodes then keeps sharing its template's text instead of a copy each.
void QSvgNode::setFillColor(const QColor &c)
{
    if (c.isValid() && fillColor() == c)
        return;
    setStyleProperty(QStringLiteral("fill"), c.name());
}

void QSvgNode::setStrokeColor(const QColor &c)
{
    if (c.isValid() && strokeColor() == c)
        return;
    setStyleProperty(QStringLiteral("stroke"), c.name());
}

QColor QSvgNode::fillColor() const { return parsePaintColor(styleProperty(QStringLiteral("fill"))); }
QColor QSvgNode::strokeColor() const { return parsePaintColor(styleProperty(QStringLiteral("stroke"))); }

QRectF QSvgNode::rect() const { return shape().boundingRect(); }
QPainterPath QSvgNode::shape() const { return QPainterPath(); }
void QSvgNode::translate(double, double) {}

void QSvgNode::translateNumAttr(const char *name, double d)
{
    translateNumAttr(QString(QLatin1String(name)), d);
}

void QSvgNode::translateNumAttr(const QString &name, double d)
{
    setNumAttribute(name, numAttribute(name) + d);
}

void QSvgNode::attributeChanged(const QString &name)
{
    if (sameName(name, kTransform) || sameName(name, kRotateAngle) || sameName(name, kRotateX) || sameName(name, kRotateY)) {
        m_transformValid = false;
        m_transform.reset();
    }
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
