#include "svgtinydocument.h"
#include <memory>

QSvgTinyDocument::QSvgTinyDocument() : QSvgNode(Doc, QStringLiteral("svg")) {}

QSvgTinyDocument::~QSvgTinyDocument() = default;

QSizeF QSvgTinyDocument::size() const
{
    if (m_size.width() > 0 && m_size.height() > 0)
        return m_size;
    return shownBox().size();
}

QRectF QSvgTinyDocument::shownBox() const
{
    return m_viewBox.isEmpty() ? const_cast<QSvgTinyDocument *>(this)->transformedBounds() : m_viewBox;
}

QRectF QSvgTinyDocument::cachedBounds()
{
    if (m_cachedBounds.size().isNull())
        m_cachedBounds = transformedBounds();
    return m_cachedBounds;
}

QSvgNode *QSvgTinyDocument::findById(const QSvgNode *from, const QString &id, const QSvgNode *skip) const
{
    for (const auto &c : from->children()) {
        if (c.get() == skip)
            continue;
        if (c->nodeId() == id)
            return c.get();
        if (QSvgNode *n = findById(c.get(), id, skip))
            return n;
    }
    return nullptr;
}

void QSvgTinyDocument::reindex(QSvgNode *node, const QString &oldId, const QString &newId)
{
    if (!oldId.isEmpty() && m_index.value(oldId) == node) {
        m_index.remove(oldId);
        // Another node may carry the same id; it takes over the name.
        if (QSvgNode *other = m_shadowedIds ? findById(this, oldId, node) : nullptr)
            m_index.insert(oldId, other);
    }
    indexName(newId, node);
}

void QSvgTinyDocument::indexName(const QString &id, QSvgNode *node)
{
    if (id.isEmpty())
        return;
    // The first node keeps a name; later namesakes are only counted, so that a
    // removal knows whether a search for the next holder is needed at all.
    const auto it = m_index.constFind(id);
    if (it == m_index.cend())
        m_index.insert(id, node);
    else if (it.value() != node)
        ++m_shadowedIds;
}

void QSvgTinyDocument::indexSubtree(QSvgNode *node)
{
    indexName(node->nodeId(), node);
    for (const auto &c : node->children())
        indexSubtree(c.get());
}

void QSvgTinyDocument::unindexSubtree(QSvgNode *node)
{
    unindexSubtree(node, node);
}

void QSvgTinyDocument::unindexSubtree(QSvgNode *node, QSvgNode *root)
{
    for (const auto &c : node->children())
        unindexSubtree(c.get(), root);
    const QString id = node->nodeId();
    if (!id.isEmpty() && m_index.value(id) == node) {
        m_index.remove(id);
        if (QSvgNode *other = m_shadowedIds ? findById(this, id, root) : nullptr)
            m_index.insert(id, other);
    }
}

std::unique_ptr<QSvgTinyDocument> QSvgTinyDocument::cloneDocument() const
{
    auto doc = std::make_unique<QSvgTinyDocument>();
    for (const Attr &a : attributes())
        doc->setAttribute(a.name, a.text());
    doc->m_viewBox = m_viewBox;
    doc->m_size = m_size;
    doc->m_cachedBounds = m_cachedBounds;
    doc->m_prolog = m_prolog;
    for (const auto &c : children()) {
        auto copy = c->clone();
        // Clones remember their source for addNode; a template's nodes are no source.
        copy->m_cloneSource = nullptr;
        doc->appendChild(std::move(copy));
    }
    doc->m_revision = 0;
    return doc;
}

QSvgTinyDocument *QSvgTinyDocument::fromTemplate(const QString &svg)
{
    // A few dozen templates at most; the bound only guards against misuse.
    static QHash<QString, std::shared_ptr<QSvgTinyDocument>> parsed;
    auto it = parsed.find(svg);
    if (it == parsed.end()) {
        std::shared_ptr<QSvgTinyDocument> doc(load(svg.toUtf8()));
        if (!doc)
            return nullptr;
        if (parsed.size() >= 512)
            parsed.clear();
        it = parsed.insert(svg, doc);
    }
    return it.value()->cloneDocument().release();
}

namespace {
template <typename F>
void walk(const QSvgNode *n, int depth, F f)
{
    f(n, depth);
    for (const auto &c : n->children())
        walk(c.get(), depth + 1, f);
}
} // namespace

qint64 SvgDocumentState::cost() const
{
    qint64 bytes = qint64(sizeof(*this)) + tags.size() * qint64(sizeof(QString) + sizeof(int));
    // Only a node's own attributes: its base is shared with the drawing itself.
    for (const QSvgNodeState &n : nodes) {
        bytes += qint64(sizeof(QSvgNodeState)) + n.attrs.size() * qint64(sizeof(QSvgNode::Attr)) + 2 * n.text.size();
        for (const QSvgNode::Attr &a : n.attrs)
            bytes += 2 * a.value.size();
    }
    return bytes;
}

SvgDocumentState QSvgTinyDocument::capture() const
{
    SvgDocumentState s;
    walk(this, 0, [&](const QSvgNode *n, int depth) {
        s.tags.append(n->tagName());
        s.depths.append(depth);
        s.nodes.append(n->state());
    });
    s.viewBox = m_viewBox;
    s.size = m_size;
    s.cachedBounds = m_cachedBounds;
    return s;
}

void QSvgTinyDocument::restore(const SvgDocumentState &state)
{
    QVector<QSvgNode *> nodes;
    walk(this, 0, [&](const QSvgNode *n, int) { nodes.append(const_cast<QSvgNode *>(n)); });
    QVector<QString> tags;
    QVector<int> depths;
    walk(this, 0, [&](const QSvgNode *n, int depth) {
        tags.append(n->tagName());
        depths.append(depth);
    });
    if (tags != state.tags || depths != state.depths) {
        // Another shape: build the tree anew, then fill it in below.
        while (!children().empty())
            takeChild(children().back().get());
        nodes = {this};
        QVector<QSvgNode *> parents{this};
        for (int i = 1; i < state.tags.size(); ++i) {
            const int depth = qMax(1, state.depths[i]);
            while (parents.size() > depth)
                parents.removeLast();
            std::unique_ptr<QSvgNode> n = QSvgNode::create(state.tags[i]);
            QSvgNode *raw = n.get();
            parents.last()->appendChild(std::move(n));
            parents.append(raw);
            nodes.append(raw);
        }
    }
    for (int i = 0; i < nodes.size() && i < state.nodes.size(); ++i)
        if (nodes[i]->state() != state.nodes[i])
            nodes[i]->setState(state.nodes[i]);
    setViewBox(state.viewBox);
    setSize(state.size);
    m_cachedBounds = state.cachedBounds;
}
