#pragma once
#include "hostglobal.h"
#include <QColor>
#include <QPointF>
#include <QUndoCommand>
#include <QVariant>
#include <memory>
#include <vector>

struct SvgUndoState;
class CSVGBase;

// An undo step that puts its object back from saved states: undo gives back exactly
// the object as it was before the step, redo exactly as it was after it, drawing and
// stream alike. The object is found by its serial, so a step outliving it does nothing.
class HOST_EXPORT CSVGStateUndo : public QUndoCommand
{
public:
    CSVGStateUndo(CSVGBase *target, std::shared_ptr<const SvgUndoState> before,
                  std::shared_ptr<const SvgUndoState> after, QUndoCommand *parent = nullptr);
    ~CSVGStateUndo() override;
    void undo() override;
    void redo() override;
    // Gives up the saved states (history past its budget): the step then does nothing
    // and the stack drops it when undo reaches it.
    void release();
    bool released() const { return m_released; }
    qint64 cost() const;
    quint64 target() const { return m_target; }

protected:
    CSVGBase *targetObject() const;
    void setStates(std::shared_ptr<const SvgUndoState> before, std::shared_ptr<const SvgUndoState> after);
    std::shared_ptr<const SvgUndoState> m_before, m_after;
    quint64 m_target;
    bool m_firstRedo = true;
    bool m_released = false;
};

// Undo of one property change, as apparatus make it. It keeps the object's state from
// when it is made (before the change is stored) and from when it is first undone
// (after it), so that undo and redo put back exactly those.
class HOST_EXPORT CSVGBaseUndoCmd : public CSVGStateUndo
{
public:
    CSVGBaseUndoCmd(CSVGBase *target, int propId, QUndoCommand *parent, bool);
    void setInt(int oldValue, int newValue);
    void setBool(bool oldValue, bool newValue);
    void setColor(QColor oldValue, QColor newValue);
    void setString(QString oldValue, QString newValue);
    int propId() const { return m_propId; }
    QVariant oldValue() const { return m_old; }
    QVariant newValue() const { return m_new; }
    void undo() override;
    void redo() override;

private:
    // Without saved states (made inside an edit, whose step holds them): the value again.
    void apply(const QVariant &v);
    int m_propId;
    QVariant m_old, m_new;
};

// The one step of an edit made through the host's edit path. The commands the apparatus
// pushed on the way are kept as its parts: the step itself puts the states back.
class HOST_EXPORT CSVGEditCmd : public CSVGStateUndo
{
public:
    CSVGEditCmd(CSVGBase *target, std::shared_ptr<const SvgUndoState> before,
                std::shared_ptr<const SvgUndoState> after, const QString &text,
                std::vector<std::unique_ptr<QUndoCommand>> parts);
    const std::vector<std::unique_ptr<QUndoCommand>> &parts() const { return m_parts; }

private:
    std::vector<std::unique_ptr<QUndoCommand>> m_parts;
};
