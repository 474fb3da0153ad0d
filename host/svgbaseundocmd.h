#pragma once
#include "hostglobal.h"
#include <QColor>
#include <QPointF>
#include <QUndoCommand>
#include <QVariant>
#include <memory>

struct SvgDocumentState;

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

// Undo of one handle drag: moves the handle back through the host's drag path, so
// that the apparatus re-derives what it keeps, then puts the drawing back exactly as
// it was (a drag path may snap or clamp on the way back).
class HOST_EXPORT CSVGHandleMoveCmd : public QUndoCommand
{
public:
    CSVGHandleMoveCmd(CSVGBase *target, int handle, QPointF from, QPointF to,
                      std::shared_ptr<const SvgDocumentState> before = nullptr,
                      std::shared_ptr<const SvgDocumentState> after = nullptr);
    void undo() override;
    void redo() override;

private:
    void moveTo(QPointF p, const std::shared_ptr<const SvgDocumentState> &state);
    std::shared_ptr<const SvgDocumentState> m_before, m_after;
    quint64 m_target;
    int m_handle;
    QPointF m_from, m_to;
    bool m_firstRedo = true;
};
