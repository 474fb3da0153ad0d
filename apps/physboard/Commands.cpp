#include "Commands.h"
#include "Page.h"
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

ItemPlacement ItemPlacement::of(const CWBPhysicalObject *obj)
{
    return ItemPlacement{obj->pos(), obj->rotation(), obj->scale()};
}

void ItemPlacement::applyTo(CWBPhysicalObject *obj) const
{
    obj->setPos(pos);
    obj->setRotation(rotation);
    obj->setScale(scale);
}

AddObjectCmd::AddObjectCmd(BoardPage *page, CWBPhysicalObject *obj) : m_page(page), m_obj(obj) {}

AddObjectCmd::~AddObjectCmd()
{
    if (m_owns)
        m_obj->Release();
}

void AddObjectCmd::undo()
{
    m_page->takeObject(m_obj);
    m_owns = true;
}

void AddObjectCmd::redo()
{
    m_page->insertObject(m_obj);
    m_owns = false;
}

RemoveObjectCmd::RemoveObjectCmd(BoardPage *page, CWBPhysicalObject *obj) : m_page(page), m_obj(obj) {}

RemoveObjectCmd::~RemoveObjectCmd()
{
    if (m_owns)
        m_obj->Release();
}

void RemoveObjectCmd::undo()
{
    m_page->insertObject(m_obj);
    m_owns = false;
}

void RemoveObjectCmd::redo()
{
    m_page->takeObject(m_obj);
    m_owns = true;
}

PlaceObjectCmd::PlaceObjectCmd(CWBPhysicalObject *obj, const ItemPlacement &from, const ItemPlacement &to, const QString &text)
    : m_obj(obj), m_from(from), m_to(to)
{
    setText(text);
}

void PlaceObjectCmd::undo() { m_from.applyTo(m_obj); }

void PlaceObjectCmd::redo()
{
    if (m_first) {
        m_first = false;
        return;
    }
    m_to.applyTo(m_obj);
}
