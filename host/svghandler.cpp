#include "svghandler.h"

namespace {
// Input is untrusted page data: bound nesting and size rather than trust it.
constexpr int kMaxDepth = 256;
constexpr int kMaxNodes = 2000000;

QString lastErrorText;

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

SvgHandler::SvgHandler(const QByteArray &contents) : m_xml(contents)
{
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

std::unique_ptr<QSvgNode> SvgHandler::createNode(const QStringRef &name)
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
    const Factory f = factories.value(name.toString(), nullptr);
    if (f)
        return f();
    return std::unique_ptr<QSvgNode>(new QSvgStructureNode(QSvgNode::Other, name.toString()));
}

void SvgHandler::copyNamespaces(QSvgNode *node)
{
    for (const QXmlStreamNamespaceDeclaration &ns : m_xml.namespaceDeclarations()) {
        const QString name = ns.prefix().isEmpty() ? QStringLiteral("xmlns")
                                                   : QStringLiteral("xmlns:") + ns.prefix().toString();
        node->setAttribute(name, ns.namespaceUri().toString());
    }
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
        node->setAttribute(name, a.value().toString());
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
