#pragma once
#include "svgnode.h"
#include <QByteArray>
#include <QHash>
#include <QSizeF>
#include <QStringList>

class QPainter;

// The parsed drawing of one apparatus: the root node, one id index and the view box.
class HOST_EXPORT QSvgTinyDocument : public QSvgNode
{
public:
    QSvgTinyDocument();
    ~QSvgTinyDocument() override;

    // Parses UTF-8 SVG text; returns null for text that is not an SVG document.
    static QSvgTinyDocument *load(const QByteArray &contents);
    // Why the last load failed (empty after a success).
    static QString lastError();

    QSvgNode *namedNode(const QString &id) const { return m_index.value(id, nullptr); }
    int indexedCount() const { return m_index.size(); }

    QRectF viewBox() const { return m_viewBox; }
    void setViewBox(const QRectF &r) { m_viewBox = r; }
    // Document size in px; the view box when none was given.
    QSizeF size() const;
    void setSize(const QSizeF &s) { m_size = s; }
    // Bounds of the whole drawing, computed on first request and kept.
    QRectF cachedBounds();
    void resetCachedBounds() { m_cachedBounds = QRectF(); }

    // Lines kept before the root element (declaration, comments, doctype).
    QStringList &prolog() { return m_prolog; }
    const QStringList &prolog() const { return m_prolog; }

    struct WriteOptions {
        bool handles = true;     // keep control_N handles
        bool standalone = true;  // bake rotate_angle into transform for ordinary renderers
    };
    QByteArray toSvg(const WriteOptions &options) const;
    QByteArray toSvg() const { return toSvg(WriteOptions()); }
    // Draws the view box into target (or the document size at the origin).
    void render(QPainter *p, const QRectF &target = QRectF(), bool handles = true) const;

private:
    friend class QSvgNode;
    friend class SvgHandler;
    void reindex(QSvgNode *node, const QString &oldId, const QString &newId);
    void indexSubtree(QSvgNode *node);
    void indexName(const QString &id, QSvgNode *node);
    void unindexSubtree(QSvgNode *node);
    void unindexSubtree(QSvgNode *node, QSvgNode *root);
    QSvgNode *findById(const QSvgNode *from, const QString &id, const QSvgNode *skip) const;

    QHash<QString, QSvgNode *> m_index;
    // Ids ever indexed while another node held them. Zero means every id is unique,
    // so removing a node never has to look for a namesake to take over its id.
    int m_shadowedIds = 0;
    QRectF m_viewBox;
    QSizeF m_size;
    QRectF m_cachedBounds;
    QStringList m_prolog;
};
