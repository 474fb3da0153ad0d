#include "Commands.h"
#include "Annotations.h"
#include "Page.h"
#include <QGraphicsItem>

ItemPlacement ItemPlacement::of(const QGraphicsItem *item)
{
    return ItemPlacement{item->pos(), item->rotation(), item->scale()};
}

void ItemPlacement::applyTo(QGraphicsItem *item) const
{
    item->setPos(pos);
    item->setRotation(rotation);
    item->setScale(scale);
}

AddItemsCmd::AddItemsCmd(BoardPage *page, const QList<QGraphicsItem *> &items, const QString &text)
    : m_page(page), m_items(items)
{
    setText(text);
}

AddItemsCmd::~AddItemsCmd()
{
    if (m_owns)
        for (QGraphicsItem *i : m_items)
            BoardPage::releaseItem(i);
}

void AddItemsCmd::undo()
{
    for (QGraphicsItem *i : m_items)
        m_page->takeItem(i);
    m_owns = true;
}

void AddItemsCmd::redo()
{
    for (QGraphicsItem *i : m_items)
        m_page->insertItem(i);
    m_owns = false;
}

RemoveItemsCmd::RemoveItemsCmd(BoardPage *page, const QList<QGraphicsItem *> &items, const QString &text)
    : m_page(page), m_items(items)
{
    setText(text);
}

RemoveItemsCmd::~RemoveItemsCmd()
{
    if (m_owns)
        for (QGraphicsItem *i : m_items)
            BoardPage::releaseItem(i);
}

void RemoveItemsCmd::undo()
{
    for (QGraphicsItem *i : m_items)
        m_page->insertItem(i);
    m_owns = false;
}

void RemoveItemsCmd::redo()
{
    for (QGraphicsItem *i : m_items)
        m_page->takeItem(i);
    m_owns = true;
}

PlaceItemsCmd::PlaceItemsCmd(const QVector<Change> &changes, const QString &text) : m_changes(changes) { setText(text); }

void PlaceItemsCmd::undo()
{
    for (const Change &c : m_changes)
        c.from.applyTo(c.item);
}

void PlaceItemsCmd::redo()
{
    if (m_first) {
        m_first = false;
        return;
    }
    for (const Change &c : m_changes)
        c.to.applyTo(c.item);
}

StackItemsCmd::StackItemsCmd(const QVector<Change> &changes, const QString &text) : m_changes(changes) { setText(text); }

void StackItemsCmd::undo()
{
    for (const Change &c : m_changes)
        c.item->setZValue(c.from);
}

void StackItemsCmd::redo()
{
    if (m_first) {
        m_first = false;
        return;
    }
    for (const Change &c : m_changes)
        c.item->setZValue(c.to);
}

LinkCmd::LinkCmd(BoardPage *page, const QVector<WireLink> &from, const QVector<WireLink> &to, const QString &text)
    : m_page(page), m_from(from), m_to(to)
{
    setText(text);
}

void LinkCmd::undo() { m_page->setLinks(m_from); }

void LinkCmd::redo()
{
    if (m_first) {
        m_first = false;
        return;
    }
    m_page->setLinks(m_to);
}

MarkDataCmd::MarkDataCmd(Annotation *mark, const QByteArray &from, const QByteArray &to, const QString &text)
    : m_mark(mark), m_from(from), m_to(to)
{
    setText(text);
}

void MarkDataCmd::undo() { m_mark->setData(m_from); }

void MarkDataCmd::redo()
{
    if (m_first) {
        m_first = false;
        return;
    }
    m_mark->setData(m_to);
}
