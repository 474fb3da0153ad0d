#pragma once
#include "svgtinydocument.h"
#include <QXmlStreamReader>

// Builds a document from SVG text. Nodes know nothing of XML; this is the only reader.
class SvgHandler
{
public:
    explicit SvgHandler(const QByteArray &contents);
    QSvgTinyDocument *takeDocument();
    QString error() const { return m_error; }

private:
    bool parse();
    bool readRoot(QSvgTinyDocument *doc);
    bool readChildren(QSvgNode *parent, int depth);
    static std::unique_ptr<QSvgNode> createNode(const QStringRef &name);
    void copyNamespaces(QSvgNode *node);
    static void copyAttributes(const QXmlStreamAttributes &attrs, QSvgNode *node);
    // Takes the attributes of a continuation element (see splitWideTags) into node.
    bool continueAttributes(QSvgNode *node);

    QByteArray m_marker;  // name of the continuation elements, unique in this input
    QXmlStreamReader m_xml;
    std::unique_ptr<QSvgTinyDocument> m_doc;
    QString m_error;
    int m_nodeCount = 0;
};
