// Writes a document back as standard SVG.
#include "svgtinydocument.h"
#include <QRegularExpression>
#include <QXmlStreamWriter>
#include <algorithm>
#include <cmath>

namespace {

bool xmlChar(uint c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

bool isHandle(const QSvgNode *n)
{
    return n->nodeId().startsWith(QLatin1String("control_"));
}

// A face named like a PostScript bold face ("Arial-BoldMT") is bold wherever it is drawn.
bool namesBoldFace(const QString &family) { return family.contains(QLatin1String("Bold"), Qt::CaseInsensitive); }

// A font list every renderer can resolve: the names given, the free face metric-compatible
// with Arial where they name Arial, and a generic family last.
QString portableFamily(const QString &family)
{
    static const QStringList generic = {QStringLiteral("serif"), QStringLiteral("sans-serif"), QStringLiteral("monospace"),
                                        QStringLiteral("cursive"), QStringLiteral("fantasy"), QStringLiteral("system-ui")};
    QStringList names;
    for (const QString &part : family.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        QString n = part.trimmed();
        if (n.size() >= 2 && (n.startsWith(QLatin1Char('\'')) || n.startsWith(QLatin1Char('"'))))
            n = n.mid(1, n.size() - 2);
        if (!n.isEmpty())
            names << n;
    }
    for (const QString &n : names)
        if (generic.contains(n))
            return family;
    const bool arial = std::any_of(names.begin(), names.end(), [](const QString &n) { return n.startsWith(QLatin1String("Arial")); });
    if (arial) {
        if (!names.contains(QLatin1String("Arial")))
            names << QStringLiteral("Arial");
        if (!names.contains(QLatin1String("Liberation Sans")))
            names << QStringLiteral("Liberation Sans");
    }
    names << QStringLiteral("sans-serif");
    QStringList quoted;
    for (const QString &n : names)
        quoted << ((n.contains(QLatin1Char(' ')) || n.contains(QLatin1Char('-'))) && !generic.contains(n) ? QStringLiteral("'%1'").arg(n) : n);
    return quoted.join(QStringLiteral(", "));
}

// The root's style may repeat its size (as the templates do); it follows the size written.
QString styleWithSize(QString style, const QSizeF &size)
{
    static const QRegularExpression width(QStringLiteral("(^|;|\\s)width\\s*:[^;]*")), height(QStringLiteral("(^|;|\\s)height\\s*:[^;]*"));
    style.replace(width, QStringLiteral("\\1width:%1px").arg(SvgNumbers::format(size.width())));
    style.replace(height, QStringLiteral("\\1height:%1px").arg(SvgNumbers::format(size.height())));
    return style;
}

void writeNode(QXmlStreamWriter &w, const QSvgNode *n, const QSvgTinyDocument::WriteOptions &o)
{
    if (!o.handles && isHandle(n))
        return;
    if (!o.handles && !n->isVisible())
        return;
    w.writeStartElement(n->tagName());
    const bool bake = o.standalone && n->hasRotation();
    bool boldFace = false;
    for (const QSvgNode::Attr &a : n->attributes()) {
        if (bake && a.name == QLatin1String("transform"))
            continue;
        if (a.name == QLatin1String("font-family")) {
            boldFace = namesBoldFace(a.text());
            w.writeAttribute(a.name, SvgXml::clean(portableFamily(a.text())));
            continue;
        }
        w.writeAttribute(a.name, SvgXml::clean(a.text()));
    }
    if (boldFace && n->attribute(QStringLiteral("font-weight")).isEmpty())
        w.writeAttribute(QStringLiteral("font-weight"), QStringLiteral("bold"));
    if (bake) {
        // Ordinary renderers ignore rotate_angle: express it as a rotation about the pivot,
        // and keep the node's own transform aside so reading it back restores both.
        const QString own = n->attribute(QStringLiteral("transform"));
        const double angle = n->numAttribute(QStringLiteral("rotate_angle"));
        QString t = own;
        if (std::isfinite(angle)) {
            if (!t.isEmpty())
                t += QLatin1Char(' ');
            t += QStringLiteral("rotate(%1 %2 %3)").arg(SvgNumbers::format(angle),
                                                          SvgNumbers::format(n->numAttribute(QStringLiteral("rotate_x"))),
                                                          SvgNumbers::format(n->numAttribute(QStringLiteral("rotate_y"))));
        }
        if (!t.isEmpty())
            w.writeAttribute(QStringLiteral("transform"), t);
        w.writeAttribute(QStringLiteral("host_transform"), own);
    }
    if (!n->isVisible())
        w.writeAttribute(QStringLiteral("display"), QStringLiteral("none"));
    if (!n->text().isEmpty())
        w.writeCharacters(SvgXml::clean(n->text()));
    for (const auto &c : n->children())
        writeNode(w, c.get(), o);
    w.writeEndElement();
}

} // namespace

QString SvgXml::clean(const QString &text)
{
    const int n = text.size();
    const QChar *p = text.constData();
    int i = 0;
    // Most texts are clean: find the first character that is not before copying.
    for (; i < n; ++i) {
        const ushort u = p[i].unicode();
        if (QChar::isHighSurrogate(u) && i + 1 < n && QChar::isLowSurrogate(p[i + 1].unicode())) {
            ++i;
            continue;
        }
        if (!xmlChar(u) || QChar::isSurrogate(u))
            break;
    }
    if (i == n)
        return text;
    QString out = text.left(i);
    out.reserve(n);
    for (; i < n; ++i) {
        const ushort u = p[i].unicode();
        if (QChar::isHighSurrogate(u) && i + 1 < n && QChar::isLowSurrogate(p[i + 1].unicode())) {
            out += p[i];
            out += p[++i];
        } else if (!xmlChar(u) || QChar::isSurrogate(u)) {
            out += QChar(QChar::ReplacementCharacter);
        } else {
            out += p[i];
        }
    }
    return out;
}

bool SvgXml::isName(const QString &name)
{
    if (name.isEmpty() || name.size() > 256)
        return false;
    for (int i = 0; i < name.size(); ++i) {
        const QChar c = name.at(i);
        const bool start = c.isLetter() || c == QLatin1Char('_') || c == QLatin1Char(':');
        if (i == 0 ? !start : !(start || c.isDigit() || c == QLatin1Char('-') || c == QLatin1Char('.')))
            return false;
    }
    return true;
}

QByteArray QSvgTinyDocument::toSvg(const WriteOptions &o) const
{
    QByteArray out;
    QXmlStreamWriter w(&out);
    w.setAutoFormatting(true);
    w.setAutoFormattingIndent(1);
    bool declared = false;
    for (const QString &line : m_prolog) {
        if (line.startsWith(QLatin1String("<?xml"))) {
            w.writeStartDocument();
            declared = true;
        } else if (line.startsWith(QLatin1String("<!--"))) {
            w.writeComment(line.mid(4, line.size() - 7));
        } else {
            w.writeDTD(line);
        }
    }
    if (!declared && m_prolog.isEmpty())
        w.writeStartDocument();
    w.writeStartElement(QStringLiteral("svg"));
    bool hasNs = false;
    for (const Attr &a : attributes()) {
        if (a.name == QLatin1String("width") || a.name == QLatin1String("height") || a.name == QLatin1String("viewBox"))
            continue;
        if (a.name == QLatin1String("xmlns"))
            hasNs = true;
        if (a.name == QLatin1String("style")) {
            w.writeAttribute(a.name, SvgXml::clean(styleWithSize(a.text(), size())));
            continue;
        }
        w.writeAttribute(a.name, SvgXml::clean(a.text()));
    }
    if (!hasNs)
        w.writeAttribute(QStringLiteral("xmlns"), QStringLiteral("http://www.w3.org/2000/svg"));
    const QSizeF s = size();
    w.writeAttribute(QStringLiteral("width"), SvgNumbers::format(s.width()) + QStringLiteral("px"));
    w.writeAttribute(QStringLiteral("height"), SvgNumbers::format(s.height()) + QStringLiteral("px"));
    const QRectF vb = shownBox();
    w.writeAttribute(QStringLiteral("viewBox"), QStringLiteral("%1 %2 %3 %4").arg(SvgNumbers::format(vb.x()), SvgNumbers::format(vb.y()),
                                                                           SvgNumbers::format(vb.width()), SvgNumbers::format(vb.height())));
    for (const auto &c : children())
        writeNode(w, c.get(), o);
    w.writeEndElement();
    w.writeEndDocument();
    return out;
}
