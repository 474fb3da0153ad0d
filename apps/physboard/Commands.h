#pragma once
// Undo steps of the board itself: placing, removing and transforming apparatus. Edits
// of an apparatus are the host's own steps (CSVGBase's edit path).
#include <QByteArray>
#include <QPointF>
#include <QUndoCommand>

class BoardPage;
class CWBPhysicalObject;

struct ItemPlacement {
    QPointF pos;
    double rotation = 0;
    double scale = 1;
    bool operator==(const ItemPlacement &o) const { return pos == o.pos && rotation == o.rotation && scale == o.scale; }
    bool operator!=(const ItemPlacement &o) const { return !(*this == o); }
    static ItemPlacement of(const CWBPhysicalObject *obj);
    void applyTo(CWBPhysicalObject *obj) const;
};

// Puts a new object on the page; while undone the command owns it.
class AddObjectCmd : public QUndoCommand
{
public:
    AddObjectCmd(BoardPage *page, CWBPhysicalObject *obj);
    ~AddObjectCmd() override;
    void undo() override;
    void redo() override;

private:
    BoardPage *m_page;
    CWBPhysicalObject *m_obj;
    bool m_owns = true;
};

// Takes an object off the page; while done the command owns it.
class RemoveObjectCmd : public QUndoCommand
{
public:
    RemoveObjectCmd(BoardPage *page, CWBPhysicalObject *obj);
    ~RemoveObjectCmd() override;
    void undo() override;
    void redo() override;

private:
    BoardPage *m_page;
    CWBPhysicalObject *m_obj;
    bool m_owns = false;
};

// Position, rotation and scale of one object, already applied when pushed.
class PlaceObjectCmd : public QUndoCommand
{
public:
    PlaceObjectCmd(CWBPhysicalObject *obj, const ItemPlacement &from, const ItemPlacement &to, const QString &text);
    void undo() override;
    void redo() override;

private:
    CWBPhysicalObject *m_obj;
    ItemPlacement m_from, m_to;
    bool m_first = true;
};
