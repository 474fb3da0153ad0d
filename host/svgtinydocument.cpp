#include "svgtinydocument.h"

QSvgTinyDocument::QSvgTinyDocument() : QSvgNode(Doc, QStringLiteral("svg")) {}

QSvgTinyDocument::~QSvgTinyDocument() = default;

QSizeF QSvgTinyDocument::size() const
{
    if (m_size.width() > 0 && m_size.height() > 0)
        return m_size;
    return m_viewBox.size();
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
