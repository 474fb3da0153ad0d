#pragma once
#include "svgtinydocument.h"
#include <QSet>
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
    bool copyAttributes(const QXmlStreamAttributes &attrs, QSvgNode *node);

    QByteArray m_marker;  // name of the attribute that points into m_side, unique in this input
    QVector<QVector<QPair<QString, QString>>> m_side;  // the rest of each wide tag's attributes
    QXmlStreamReader m_xml;
    std::unique_ptr<QSvgTinyDocument> m_doc;
    QString m_error;
    int m_nodeCount = 0;
};
