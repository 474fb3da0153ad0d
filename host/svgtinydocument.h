#pragma once
#include "svgnode.h"
#include <QByteArray>
#include <QHash>
#include <QSizeF>
#include <QStringList>

class QPainter;

// The whole drawing at one moment, node by node in document order (the root first),
// with the shape of the tree: enough to put the drawing back exactly.
struct HOST_EXPORT SvgDocumentState {
    QVector<QString> tags;
    QVector<int> depths;   // 0 for the root
    QVector<QSvgNodeState> nodes;
    QRectF viewBox;
    QSizeF size;           // as set; empty when the view box gives it
    QRectF cachedBounds;
    bool sameShape(const SvgDocumentState &o) const { return tags == o.tags && depths == o.depths; }
    // Roughly the bytes it holds of its own (attribute storage it shares counts too).
    qint64 cost() const;
};

// The parsed drawing of one apparatus: the root node, one id index and the view box.
class HOST_EXPORT QSvgTinyDocument : public QSvgNode
{
public:
    QSvgTinyDocument();
    ~QSvgTinyDocument() override;

    // Parses UTF-8 SVG text; returns null for text that is not an SVG document.
    static QSvgTinyDocument *load(const QByteArray &contents);
    // An apparatus template: parsed once per text and copied, so that every object of a
    // type shares the template's strings until it changes them.
    static QSvgTinyDocument *fromTemplate(const QString &svg);
    // A deep copy that shares attribute storage with this one until either changes.
    std::unique_ptr<QSvgTinyDocument> cloneDocument() const;

    SvgDocumentState capture() const;
    // Puts a captured drawing back. Where the tree still has the captured shape, every
    // node keeps its address; otherwise the tree is built anew from the state.
    void restore(const SvgDocumentState &state);

    // Counts every change of the drawing: equal revisions mean an unchanged drawing.
    quint64 revision() const { return m_revision; }
    void bumpRevision()
    {
        ++m_revision;
        if (m_watcher)
            m_watcher(m_watcherContext);
    }
    // Told of every change of the drawing, as it happens (the item showing it repaints).
    // Copies and clones are not watched.
    using Watcher = void (*)(void *context);
    void setWatcher(Watcher watcher, void *context)
    {
        m_watcher = watcher;
        m_watcherContext = context;
    }
    void *watcherContext() const { return m_watcherContext; }
    // Why the last load failed (empty after a success).
    static QString lastError();

    QSvgNode *namedNode(const QString &id) const { return m_index.value(id, nullptr); }
    int indexedCount() const { return m_index.size(); }

    QRectF viewBox() const { return m_viewBox; }
    // The box the drawing is shown in: the view box, or the drawing's own bounds when
    // the file gave none. Painting, writing and sizing all use this one.
    QRectF shownBox() const;
    // Qt compares rectangles and sizes fuzzily; a drawing is kept to the last bit.
    void setViewBox(const QRectF &r)
    {
        if (r.x() != m_viewBox.x() || r.y() != m_viewBox.y() || r.width() != m_viewBox.width() ||
            r.height() != m_viewBox.height()) {
            m_viewBox = r;
            bumpRevision();
        }
    }
    // Document size in px; the view box when none was given.
    QSizeF size() const;
    void setSize(const QSizeF &s)
    {
        if (s.width() != m_size.width() || s.height() != m_size.height()) {
            m_size = s;
            bumpRevision();
        }
    }
    // The size as set, which size() falls back from when it is empty.
    QSizeF givenSize() const { return m_size; }
    // Bounds of the whole drawing, computed on first request and kept.
    QRectF cachedBounds();
    void resetCachedBounds() { m_cachedBounds = QRectF(); }
    QRectF cachedBoundsAsIs() const { return m_cachedBounds; }
    void setCachedBounds(const QRectF &r) { m_cachedBounds = r; }

    // Lines kept before the root element (declaration, comments, doctype).
    QStringList &prolog() { return m_prolog; }
    const QStringList &prolog() const { return m_prolog; }

    struct WriteOptions {
        bool handles = true;     // keep control_N handles
        bool standalone = true;  // bake rotate_angle into transform for ordinary renderers
    };
    QByteArray toSvg(const WriteOptions &options) const;
    QByteArray toSvg() const { return toSvg(WriteOptions()); }
    struct RenderOptions {
        bool handles = true;         // draw control_N handles
        double minHandlePixels = 0;  // handles smaller on the device are drawn this large
    };
    // Draws the view box into target (or the document size at the origin).
    void render(QPainter *p, const QRectF &target, const RenderOptions &options) const;
    void render(QPainter *p, const QRectF &target = QRectF(), bool handles = true) const
    {
        RenderOptions o;
        o.handles = handles;
        render(p, target, o);
    }

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
    quint64 m_revision = 0;
    Watcher m_watcher = nullptr;
    void *m_watcherContext = nullptr;
};
