#pragma once
#include "hostglobal.h"
#include <QColor>
#include <QPointF>
#include <QUndoCommand>
#include <QVariant>

class CSVGBase;

// Undo of one property change: re-applies the old or new value through setInnerProperty.
class HOST_EXPORT CSVGBaseUndoCmd : public QUndoCommand
{
public:
    CSVGBaseUndoCmd(CSVGBase *target, int propId, QUndoCommand *parent, bool);
    void setInt(int oldValue, int newValue);
    void setBool(bool oldValue, bool newValue);
    void setColor(QColor oldValue, QColor newValue);
    void setString(QString oldValue, QString newValue);
    int propId() const { return m_propId; }
    void undo() override;
    void redo() override;

private:
    void apply(const QVariant &v);
    quint64 m_target;
    int m_propId;
    QVariant m_old, m_new;
    bool m_firstRedo = true;
};

// Undo of one handle drag: moves the handle back through the host's drag path.
class HOST_EXPORT CSVGHandleMoveCmd : public QUndoCommand
{
public:
    CSVGHandleMoveCmd(CSVGBase *target, int handle, QPointF from, QPointF to);
    void undo() override;
    void redo() override;

private:
    void moveTo(QPointF p);
    quint64 m_target;
    int m_handle;
    QPointF m_from, m_to;
    bool m_firstRedo = true;
};
