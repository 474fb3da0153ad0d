#pragma once
// Undo steps of the board itself: placing, removing, arranging and transforming what is
// on the page, one item or many at once. Edits of an apparatus are the host's own steps
// (CSVGBase's edit path).
#include <QByteArray>
#include <QList>
#include <QPointF>
#include <QUndoCommand>
#include <QVector>

class BoardPage;
class QGraphicsItem;

struct ItemPlacement {
    QPointF pos;
    double rotation = 0;
    double scale = 1;
    bool operator==(const ItemPlacement &o) const { return pos == o.pos && rotation == o.rotation && scale == o.scale; }
    bool operator!=(const ItemPlacement &o) const { return !(*this == o); }
    static ItemPlacement of(const QGraphicsItem *item);
    void applyTo(QGraphicsItem *item) const;
};

// Puts new items on the page; while undone the command owns them.
class AddItemsCmd : public QUndoCommand
{
public:
    AddItemsCmd(BoardPage *page, const QList<QGraphicsItem *> &items, const QString &text);
    ~AddItemsCmd() override;
    void undo() override;
    void redo() override;

private:
    BoardPage *m_page;
    QList<QGraphicsItem *> m_items;
    bool m_owns = true;
};

// Takes items off the page; while done the command owns them.
class RemoveItemsCmd : public QUndoCommand
{
public:
    RemoveItemsCmd(BoardPage *page, const QList<QGraphicsItem *> &items, const QString &text);
    ~RemoveItemsCmd() override;
    void undo() override;
    void redo() override;

private:
    BoardPage *m_page;
    QList<QGraphicsItem *> m_items;
    bool m_owns = false;
};

// Position, rotation and scale of items, already applied when pushed.
class PlaceItemsCmd : public QUndoCommand
{
public:
    struct Change {
        QGraphicsItem *item;
        ItemPlacement from, to;
    };
    PlaceItemsCmd(const QVector<Change> &changes, const QString &text);
    void undo() override;
    void redo() override;

private:
    QVector<Change> m_changes;
    bool m_first = true;
};

// The stacking order of items, already applied when pushed.
class StackItemsCmd : public QUndoCommand
{
public:
    struct Change {
        QGraphicsItem *item;
        double from, to;
    };
    StackItemsCmd(const QVector<Change> &changes, const QString &text);
    void undo() override;
    void redo() override;

private:
    QVector<Change> m_changes;
    bool m_first = true;
};

struct WireLink;

// The wire links of a page, already applied when pushed.
class LinkCmd : public QUndoCommand
{
public:
    LinkCmd(BoardPage *page, const QVector<WireLink> &from, const QVector<WireLink> &to, const QString &text);
    void undo() override;
    void redo() override;

private:
    BoardPage *m_page;
    QVector<WireLink> m_from, m_to;
    bool m_first = true;
};

class Annotation;

// A mark's colour, size or shape, already applied when pushed.
class MarkDataCmd : public QUndoCommand
{
public:
    MarkDataCmd(Annotation *mark, const QByteArray &from, const QByteArray &to, const QString &text);
    void undo() override;
    void redo() override;

private:
    Annotation *m_mark;
    QByteArray m_from, m_to;
    bool m_first = true;
};
