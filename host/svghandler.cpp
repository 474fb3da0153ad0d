#include "svghandler.h"
#include <QSet>

namespace {
// Input is untrusted page data: bound nesting and size rather than trust it.
constexpr int kMaxDepth = 256;
constexpr int kMaxNodes = 2000000;

QString lastErrorText;

// QXmlStreamReader checks each attribute of an element against all the ones before it,
// which is quadratic in their number. A start tag with more than this many attributes
// is split before the reader sees it: its first ones stay, the rest follow as empty
// continuation elements of kWide each, which the handler folds back into the element.
constexpr int kWide = 64;

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

// Returns the input with every wide start tag split (or the input itself when there is
// none, or when the markup is malformed: the reader then reports it).
QByteArray splitWideTags(const QByteArray &in, const QByteArray &marker)
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
            const QByteArray name = in.mid(i + 1, j - i - 1);
            QVector<QPair<int, int>> attrs;
            bool selfClosing = false;
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
                    selfClosing = true;
                    ++j;
                    break;
                }
                const int start = j;
                while (j < n && !isSpace(in.at(j)) && in.at(j) != '=' && in.at(j) != '>' && in.at(j) != '/')
                    ++j;
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
                j = close + 1;
                attrs.append(qMakePair(start, j));
            }
            const int end = j + 1; // just past '>'
            if (attrs.size() > kWide) {
                out += in.mid(copied, i - copied);
                out += '<' + name;
                for (int k = 0; k < kWide; ++k)
                    out += ' ' + in.mid(attrs[k].first, attrs[k].second - attrs[k].first);
                out += '>';
                for (int k = kWide; k < attrs.size(); k += kWide) {
                    out += '<' + marker;
                    for (int m = k; m < qMin(k + kWide, attrs.size()); ++m)
                        out += ' ' + in.mid(attrs[m].first, attrs[m].second - attrs[m].first);
                    out += "/>";
                }
                if (selfClosing)
                    out += "</" + name + '>';
                copied = end;
            }
            i = end;
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
    m_xml.addData(splitWideTags(contents, m_marker));
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
    copyAttributes(m_xml.attributes(), doc);
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
        if (m_xml.qualifiedName() == QLatin1String(m_marker)) {
            if (!continueAttributes(parent))
                return false;
            continue;
        }
        std::unique_ptr<QSvgNode> node = createNode(m_xml.qualifiedName());
        copyNamespaces(node.get());
        copyAttributes(m_xml.attributes(), node.get());
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

bool SvgHandler::continueAttributes(QSvgNode *node)
{
    // Names are unique within one element; the reader only checked them chunk by chunk.
    QSet<QString> seen;
    for (const QSvgNode::Attr &a : node->attributes())
        seen.insert(a.name);
    for (const QXmlStreamAttribute &a : m_xml.attributes()) {
        const QString name = a.qualifiedName().toString();
        if (seen.contains(name)) {
            m_error = QStringLiteral("attribute '%1' redefined").arg(name);
            return false;
        }
        seen.insert(name);
    }
    copyAttributes(m_xml.attributes(), node);
    // The continuation element is empty: read up to its end.
    while (!m_xml.atEnd()) {
        const auto tok = m_xml.readNext();
        if (tok == QXmlStreamReader::EndElement)
            return true;
        if (tok == QXmlStreamReader::StartElement || (tok == QXmlStreamReader::Characters && !m_xml.isWhitespace())) {
            m_error = QStringLiteral("malformed element");
            return false;
        }
    }
    m_error = m_xml.hasError() ? m_xml.errorString() : QStringLiteral("unexpected end");
    return false;
}

void SvgHandler::copyAttributes(const QXmlStreamAttributes &attrs, QSvgNode *node)
{
    QString baseTransform;
    bool hasBase = false;
    for (const QXmlStreamAttribute &a : attrs) {
        const QString name = a.qualifiedName().toString();
        if (name == QLatin1String("host_transform")) {
            hasBase = true;
            baseTransform = a.value().toString();
            continue;
        }
        node->addParsedAttribute(name, a.value().toString());
    }
    // Our writer bakes rotate_angle into transform and keeps the node's own one aside.
    if (hasBase) {
        if (baseTransform.isEmpty())
            node->removeAttribute(QStringLiteral("transform"));
        else
            node->setAttribute(QStringLiteral("transform"), baseTransform);
    }
    if (node->styleProperty(QStringLiteral("display")) == QLatin1String("none")) {
        node->setVisible(false);
        node->removeAttribute(QStringLiteral("display"));
    }
}

QSvgTinyDocument *QSvgTinyDocument::load(const QByteArray &contents)
{
    SvgHandler handler(contents);
    lastErrorText = handler.error();
    return handler.takeDocument();
}

QString QSvgTinyDocument::lastError() { return lastErrorText; }
