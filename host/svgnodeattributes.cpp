// A node's attributes and style: read, changed, removed, shared with the node it was
// copied from.
#include "svgnode_p.h"
#include "svgtinydocument.h"
#include <cmath>

namespace SvgNodeDetail {

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


QColor parsePaintColor(const QString &v)
{
    if (v.isEmpty() || v == QLatin1String("none") || v.startsWith(QLatin1String("url(")))
        return QColor();
    return QColor(v);
}


} // namespace SvgNodeDetail

using namespace SvgNodeDetail;

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
