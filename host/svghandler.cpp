#include "svghandler.h"
#include <QSet>
#include <cstring>

namespace {
// Input is untrusted page data: bound nesting and size rather than trust it.
constexpr int kMaxDepth = 256;
constexpr int kMaxNodes = 2000000;

QString lastErrorText;

// QXmlStreamReader checks each attribute of an element against all the ones before it,
// which is quadratic in their number. A start tag with more than this many attributes
// keeps its first ones for the reader; the rest are read here, in one linear pass, into
// a side table the tag points to with one attribute of a name no input uses.
constexpr int kWide = 16;

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

bool startsAt(const QByteArray &in, int i, const char *what)
{
    const int len = int(qstrlen(what));
    return i + len <= in.size() && qstrncmp(in.constData() + i, what, uint(len)) == 0;
}

// Index just past `what` at or after i, or -1.
int skipPast(const QByteArray &in, int i, const char *what)
{
    const int at = in.indexOf(what, i);
    return at < 0 ? -1 : at + int(qstrlen(what));
}

// An attribute value as XML reads it: references resolved, white space made spaces.
// False for what XML refuses (a '<', an unknown or broken reference).
// UTF-8 bytes as text; most names and values are plain ASCII, read faster as such.
QString textOf(const char *p, int n)
{
    for (int i = 0; i < n; ++i)
        if (quint8(p[i]) >= 0x80)
            return QString::fromUtf8(p, n);
    return QString::fromLatin1(p, n);
}

bool attributeValue(const char *p, int n, QString &out)
{
    bool plain = true;
    for (int i = 0; i < n && plain; ++i)
        plain = p[i] != '&' && p[i] != '<' && p[i] != '\r' && p[i] != '\n' && p[i] != '\t';
    if (plain) {
        out = textOf(p, n);
        return true;
    }
    QByteArray v;
    v.reserve(n);
    for (int i = 0; i < n; ++i) {
        const char c = p[i];
        if (c == '<')
            return false;
        if (c == '\r') {
            v += ' ';
            if (i + 1 < n && p[i + 1] == '\n')
                ++i;
        } else if (c == '\n' || c == '\t') {
            v += ' ';
        } else if (c == '&') {
            const char *end = static_cast<const char *>(memchr(p + i, ';', size_t(n - i)));
            if (!end)
                return false;
            const int semi = int(end - p);
            const QByteArray ref(p + i + 1, semi - i - 1);
            if (ref == "lt") v += '<';
            else if (ref == "gt") v += '>';
            else if (ref == "amp") v += '&';
            else if (ref == "apos") v += '\'';
            else if (ref == "quot") v += '"';
            else if (ref.startsWith('#')) {
                bool ok = false;
                const uint code = ref.startsWith("#x") ? ref.mid(2).toUInt(&ok, 16) : ref.mid(1).toUInt(&ok, 10);
                if (!ok || code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
                    return false;
                v += QString::fromUcs4(&code, 1).toUtf8();
            } else {
                return false;
            }
            i = semi;
        } else {
            v += c;
        }
    }
    out = QString::fromUtf8(v);
    return true;
}

// Returns the input with every wide start tag cut down to its first kWide attributes
// and a pointer into `side`, which gets the rest (or the input itself when there is no
// wide tag, or when the markup is malformed: the reader then reports it).
QByteArray splitWideTags(const QByteArray &in, const QByteArray &marker, QVector<QVector<QPair<QString, QString>>> &side,
                         QString &error)
{
    QByteArray out;
    int copied = 0;
    int i = 0;
    const int n = in.size();
    while (true) {
        i = in.indexOf('<', i);
        if (i < 0 || i + 1 >= n)
            break;
        if (startsAt(in, i, "<!--")) {
            i = skipPast(in, i + 4, "-->");
        } else if (startsAt(in, i, "<![CDATA[")) {
            i = skipPast(in, i + 9, "]]>");
        } else if (in.at(i + 1) == '?') {
            i = skipPast(in, i + 2, "?>");
        } else if (in.at(i + 1) == '!') {
            // A doctype: its internal subset may hold '>' inside brackets and quotes.
            int depth = 0;
            char quote = 0;
            int j = i + 2;
            for (; j < n; ++j) {
                const char c = in.at(j);
                if (quote) {
                    if (c == quote)
                        quote = 0;
                } else if (c == '"' || c == '\'') {
                    quote = c;
                } else if (c == '[') {
                    ++depth;
                } else if (c == ']') {
                    --depth;
                } else if (c == '>' && depth <= 0) {
                    break;
                }
            }
            i = j < n ? j + 1 : -1;
        } else if (in.at(i + 1) == '/') {
            i = skipPast(in, i + 2, ">");
        } else {
            // A start tag: its name, then name="value" pairs.
            int j = i + 1;
            while (j < n && !isSpace(in.at(j)) && in.at(j) != '>' && in.at(j) != '/')
                ++j;
            struct Span { int name, nameEnd, value, valueEnd; };
            QVector<Span> attrs;
            while (true) {
                while (j < n && isSpace(in.at(j)))
                    ++j;
                if (j >= n)
                    return in;
                if (in.at(j) == '>')
                    break;
                if (in.at(j) == '/') {
                    if (j + 1 >= n || in.at(j + 1) != '>')
                        return in;
                    break;
                }
                Span a;
                a.name = j;
                while (j < n && !isSpace(in.at(j)) && in.at(j) != '=' && in.at(j) != '>' && in.at(j) != '/')
                    ++j;
                a.nameEnd = j;
                while (j < n && isSpace(in.at(j)))
                    ++j;
                if (j >= n || in.at(j) != '=')
                    return in;
                ++j;
                while (j < n && isSpace(in.at(j)))
                    ++j;
                if (j >= n || (in.at(j) != '"' && in.at(j) != '\''))
                    return in;
                const int close = in.indexOf(in.at(j), j + 1);
                if (close < 0)
                    return in;
                a.value = j + 1;
                a.valueEnd = close;
                j = close + 1;
                attrs.append(a);
            }
            if (attrs.size() > kWide) {
                if (out.isEmpty())
                    out.reserve(in.size());
                const char *d = in.constData();
                // Up to just after the last attribute the reader keeps.
                const int keepEnd = attrs[kWide - 1].valueEnd + 1;
                out.append(d + copied, keepEnd - copied);
                out += ' ';
                out += marker;
                out += "=\"" + QByteArray::number(side.size()) + '"';
                QVector<QPair<QString, QString>> rest;
                rest.reserve(attrs.size() - kWide);
                for (int k = kWide; k < attrs.size(); ++k) {
                    const QString name = textOf(d + attrs[k].name, attrs[k].nameEnd - attrs[k].name);
                    QString value;
                    if (!SvgXml::isName(name) || !attributeValue(d + attrs[k].value, attrs[k].valueEnd - attrs[k].value, value)) {
                        error = QStringLiteral("malformed attribute '%1'").arg(name.left(64));
                        return QByteArray();
                    }
                    rest.append(qMakePair(name, value));
                }
                side.append(rest);
                copied = attrs.last().valueEnd + 1; // the tag's end follows as it was
            }
            i = j + 1;
        }
        if (i < 0)
            break;
    }
    if (copied == 0)
        return in;
    out += in.mid(copied);
    return out;
}

QByteArray uniqueMarker(const QByteArray &in)
{
    QByteArray m = "host.attrs";
    for (int k = 0; in.contains(m); ++k)
        m = "host.attrs" + QByteArray::number(k);
    return m;
}

double parseLength(const QString &text)
{
    QString t = text.trimmed();
    if (t.endsWith(QLatin1String("px")) || t.endsWith(QLatin1String("pt")))
        t.chop(2);
    bool ok = false;
    const double v = t.toDouble(&ok);
    return ok && v > 0 && v < 1e9 ? v : 0;
}
} // namespace

SvgHandler::SvgHandler(const QByteArray &contents) : m_marker(uniqueMarker(contents))
{
    const QByteArray split = splitWideTags(contents, m_marker, m_side, m_error);
    if (!m_error.isEmpty())
        return;
    m_xml.addData(split);
    if (!parse())
        m_doc.reset();
}

QSvgTinyDocument *SvgHandler::takeDocument() { return m_doc.release(); }

bool SvgHandler::parse()
{
    auto doc = std::make_unique<QSvgTinyDocument>();
    while (!m_xml.atEnd()) {
        const auto tok = m_xml.readNext();
        if (tok == QXmlStreamReader::StartDocument) {
            QString decl = QStringLiteral("<?xml version=\"%1\"").arg(m_xml.documentVersion().isEmpty() ? QStringLiteral("1.0") : m_xml.documentVersion().toString());
            if (!m_xml.documentEncoding().isEmpty())
                decl += QStringLiteral(" encoding=\"%1\"").arg(m_xml.documentEncoding().toString());
            if (m_xml.isStandaloneDocument())
                decl += QStringLiteral(" standalone=\"yes\"");
            doc->prolog() << decl + QStringLiteral("?>");
        } else if (tok == QXmlStreamReader::Comment) {
            doc->prolog() << QStringLiteral("<!--") + m_xml.text().toString() + QStringLiteral("-->");
        } else if (tok == QXmlStreamReader::DTD) {
            doc->prolog() << m_xml.text().toString().trimmed();
        } else if (tok == QXmlStreamReader::StartElement) {
            if (m_xml.name() != QLatin1String("svg")) {
                m_error = QStringLiteral("root element is <%1>, not <svg>").arg(m_xml.name().toString());
                return false;
            }
            if (!readRoot(doc.get()))
                return false;
            m_doc = std::move(doc);
            return true;
        }
    }
    m_error = m_xml.hasError() ? m_xml.errorString() : QStringLiteral("no <svg> element");
    return false;
}

bool SvgHandler::readRoot(QSvgTinyDocument *doc)
{
    copyNamespaces(doc);
    if (!copyAttributes(m_xml.attributes(), doc))
        return false;
    doc->squeezeAttributes();
    double w = parseLength(doc->attribute(QStringLiteral("width")));
    double h = parseLength(doc->attribute(QStringLiteral("height")));
    const QString sw = doc->styleProperty(QStringLiteral("width"));
    const QString sh = doc->styleProperty(QStringLiteral("height"));
    if (!sw.isEmpty()) w = parseLength(sw);
    if (!sh.isEmpty()) h = parseLength(sh);
    const QString vb = doc->attribute(QStringLiteral("viewBox"));
    const QChar *p = vb.constData();
    const QVector<double> v = SvgNumbers::parseList(p, p + vb.size());
    if (v.size() == 4 && v[2] >= 0 && v[3] >= 0)
        doc->setViewBox(QRectF(v[0], v[1], v[2], v[3]));
    else
        doc->setViewBox(QRectF(0, 0, w, h));
    doc->setSize(QSizeF(w, h));
    if (!readChildren(doc, 1))
        return false;
    if (m_xml.hasError()) {
        m_error = m_xml.errorString();
        return false;
    }
    if (doc->viewBox().size().isNull() && !(w > 0 && h > 0))
        doc->setViewBox(QRectF()); // left empty: callers fall back to the node bounds
    return true;
}

bool SvgHandler::readChildren(QSvgNode *parent, int depth)
{
    while (!m_xml.atEnd()) {
        const auto tok = m_xml.readNext();
        if (tok == QXmlStreamReader::EndElement)
            return true;
        if (tok == QXmlStreamReader::Characters) {
            if (parent->type() == QSvgNode::Text || parent->type() == QSvgNode::Other) {
                if (!m_xml.isWhitespace() || !parent->text().isEmpty())
                    parent->setText(parent->text() + m_xml.text().toString());
            }
            continue;
        }
        if (tok != QXmlStreamReader::StartElement)
            continue;
        if (depth >= kMaxDepth || ++m_nodeCount > kMaxNodes) {
            m_error = QStringLiteral("document nests or grows too deep");
            return false;
        }
        std::unique_ptr<QSvgNode> node = createNode(m_xml.qualifiedName());
        copyNamespaces(node.get());
        if (!copyAttributes(m_xml.attributes(), node.get()))
            return false;
        node->squeezeAttributes();
        QSvgNode *raw = node.get();
        parent->appendChild(std::move(node));
        if (!readChildren(raw, depth + 1))
            return false;
        if (raw->type() == QSvgNode::Text)
            raw->setText(raw->text().trimmed());
    }
    if (m_xml.hasError()) {
        m_error = m_xml.errorString();
        return false;
    }
    return true;
}

std::unique_ptr<QSvgNode> SvgHandler::createNode(const QStringRef &name) { return QSvgNode::create(name.toString()); }

std::unique_ptr<QSvgNode> QSvgNode::create(const QString &name)
{
    using Factory = std::unique_ptr<QSvgNode> (*)();
    static const QHash<QString, Factory> factories = {
        {QStringLiteral("g"), [] { return std::unique_ptr<QSvgNode>(new QSvgStructureNode(QSvgNode::Group, QStringLiteral("g"))); }},
        {QStringLiteral("rect"), [] { return std::unique_ptr<QSvgNode>(new QSvgRect); }},
        {QStringLiteral("line"), [] { return std::unique_ptr<QSvgNode>(new QSvgLine); }},
        {QStringLiteral("path"), [] { return std::unique_ptr<QSvgNode>(new QSvgPath); }},
        {QStringLiteral("polygon"), [] { return std::unique_ptr<QSvgNode>(new QSvgPolygon(true)); }},
        {QStringLiteral("polyline"), [] { return std::unique_ptr<QSvgNode>(new QSvgPolygon(false)); }},
        {QStringLiteral("ellipse"), [] { return std::unique_ptr<QSvgNode>(new QSvgEllipse(false)); }},
        {QStringLiteral("circle"), [] { return std::unique_ptr<QSvgNode>(new QSvgEllipse(true)); }},
        {QStringLiteral("text"), [] { return std::unique_ptr<QSvgNode>(new QSvgText); }},
        {QStringLiteral("defs"), [] { return std::unique_ptr<QSvgNode>(new QSvgStructureNode(QSvgNode::Defs, QStringLiteral("defs"))); }},
        {QStringLiteral("linearGradient"), [] { return std::unique_ptr<QSvgNode>(new QSvgStructureNode(QSvgNode::LinearGradient, QStringLiteral("linearGradient"))); }},
        {QStringLiteral("radialGradient"), [] { return std::unique_ptr<QSvgNode>(new QSvgStructureNode(QSvgNode::RadialGradient, QStringLiteral("radialGradient"))); }},
        {QStringLiteral("stop"), [] { return std::unique_ptr<QSvgNode>(new QSvgStructureNode(QSvgNode::Stop, QStringLiteral("stop"))); }},
    };
    const Factory f = factories.value(name, nullptr);
    if (f)
        return f();
    return std::unique_ptr<QSvgNode>(new QSvgStructureNode(QSvgNode::Other, name));
}

void SvgHandler::copyNamespaces(QSvgNode *node)
{
    for (const QXmlStreamNamespaceDeclaration &ns : m_xml.namespaceDeclarations()) {
        const QString name = ns.prefix().isEmpty() ? QStringLiteral("xmlns")
                                                   : QStringLiteral("xmlns:") + ns.prefix().toString();
        node->setAttribute(name, ns.namespaceUri().toString());
    }
}

bool SvgHandler::copyAttributes(const QXmlStreamAttributes &attrs, QSvgNode *node)
{
    QString baseTransform;
    bool hasBase = false, display = false;
    for (const QXmlStreamAttribute &a : attrs) {
        const QString name = a.qualifiedName().toString();
        if (name == QLatin1String(m_marker)) {
            // The rest of a wide tag: names must still be unique in the element.
            const int k = a.value().toInt();
            if (k < 0 || k >= m_side.size())
                continue;
            QSet<QString> seen;
            seen.reserve(attrs.size() + m_side[k].size());
            for (const QXmlStreamAttribute &b : attrs)
                seen.insert(b.qualifiedName().toString());
            for (const auto &pair : qAsConst(m_side[k])) {
                const int before = seen.size();
                seen.insert(pair.first);
                if (seen.size() == before) {
                    m_error = QStringLiteral("attribute '%1' redefined").arg(pair.first.left(64));
                    return false;
                }
            }
            for (const auto &pair : qAsConst(m_side[k])) {
                display = display || pair.first == QLatin1String("display") || pair.first == QLatin1String("style");
                node->addParsedAttribute(pair.first, pair.second);
            }
            m_side[k].clear();
            continue;
        }
        if (name == QLatin1String("host_transform")) {
            hasBase = true;
            baseTransform = a.value().toString();
            continue;
        }
        display = display || name == QLatin1String("display") || name == QLatin1String("style");
        node->addParsedAttribute(name, a.value().toString());
    }
    // Our writer bakes rotate_angle into transform and keeps the node's own one aside.
    if (hasBase) {
        if (baseTransform.isEmpty())
            node->removeAttribute(QStringLiteral("transform"));
        else
            node->setAttribute(QStringLiteral("transform"), baseTransform);
    }
    // Looked up only when it can be there: an element may come in many parts.
    if (display && node->styleProperty(QStringLiteral("display")) == QLatin1String("none")) {
        node->setVisible(false);
        node->removeAttribute(QStringLiteral("display"));
    }
    return true;
}

QSvgTinyDocument *QSvgTinyDocument::load(const QByteArray &contents)
{
    SvgHandler handler(contents);
    lastErrorText = handler.error();
    return handler.takeDocument();
}

QString QSvgTinyDocument::lastError() { return lastErrorText; }
