#include "svgbaseundocmd.h"
#include "framework.h"
#include "svgbase.h"

CSVGStateUndo::CSVGStateUndo(CSVGBase *target, std::shared_ptr<const SvgUndoState> before,
                             std::shared_ptr<const SvgUndoState> after, QUndoCommand *parent)
    : QUndoCommand(parent), m_target(target ? target->serial() : 0)
{
    setStates(std::move(before), std::move(after));
}

CSVGStateUndo::~CSVGStateUndo() { GetFramework()->setUndoCost(this, 0); }

CSVGBase *CSVGStateUndo::targetObject() const { return GetFramework()->object(m_target); }

void CSVGStateUndo::setStates(std::shared_ptr<const SvgUndoState> before, std::shared_ptr<const SvgUndoState> after)
{
    m_before = std::move(before);
    m_after = std::move(after);
    GetFramework()->setUndoCost(this, cost());
}

qint64 CSVGStateUndo::cost() const
{
    // Neighbouring steps share a state; counting it on both sides keeps the budget safe.
    return (m_before ? m_before->cost() : 0) + (m_after ? m_after->cost() : 0);
}

void CSVGStateUndo::release()
{
    if (m_released)
        return;
    m_released = true;
    setStates(nullptr, nullptr);
    setObsolete(true);
}

void CSVGStateUndo::undo()
{
    CSVGBase *t = targetObject();
    if (!t || m_released)
        return;
    if (!m_after) // a step pushed as it was made learns its after state now
        setStates(m_before, t->undoState());
    if (m_before)
        t->restoreUndoState(m_before);
}

void CSVGStateUndo::redo()
{
    // The change is already made when the step is pushed.
    if (m_firstRedo) {
        m_firstRedo = false;
        return;
    }
    CSVGBase *t = targetObject();
    if (t && m_after && !m_released)
        t->restoreUndoState(m_after);
}

CSVGBaseUndoCmd::CSVGBaseUndoCmd(CSVGBase *target, int propId, QUndoCommand *parent, bool)
    : CSVGStateUndo(target,
                    // Inside an edit the edit's own step keeps the states.
                    target && !target->editing() ? target->undoState() : nullptr,
                    nullptr, parent),
      m_propId(propId)
{
    setText(QStringLiteral("property %1").arg(propId));
}

void CSVGBaseUndoCmd::setInt(int o, int n) { m_old = o; m_new = n; }
void CSVGBaseUndoCmd::setBool(bool o, bool n) { m_old = o; m_new = n; }
void CSVGBaseUndoCmd::setColor(QColor o, QColor n) { m_old = QVariant::fromValue(o); m_new = QVariant::fromValue(n); }
void CSVGBaseUndoCmd::setString(QString o, QString n) { m_old = o; m_new = n; }

void CSVGBaseUndoCmd::apply(const QVariant &v)
{
    CSVGBase *t = targetObject();
    if (!t)
        return; // the object is gone: nothing to put back
    const CSVGPropItem *item = t->propItemByPropId(m_propId);
    const int attributeId = item ? item->attributeId() : m_propId;
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        switch (v.userType()) {
        case QMetaType::Int: out << v.toInt(); break;
        case QMetaType::Bool: out << v.toBool(); break;
        case QMetaType::QColor: out << v.value<QColor>(); break;
        default: out << v.toString(); break;
        }
    }
    QDataStream in(bytes);
    t->setInnerProperty(attributeId, in, false, false);
}

void CSVGBaseUndoCmd::undo()
{
    if (m_before || released())
        CSVGStateUndo::undo();
    else
        apply(m_old);
}

void CSVGBaseUndoCmd::redo()
{
    if (m_firstRedo || m_before || released()) {
        CSVGStateUndo::redo();
        return;
    }
    apply(m_new);
}

CSVGEditCmd::CSVGEditCmd(CSVGBase *target, std::shared_ptr<const SvgUndoState> before,
                         std::shared_ptr<const SvgUndoState> after, const QString &text,
                         std::vector<std::unique_ptr<QUndoCommand>> parts)
    : CSVGStateUndo(target, std::move(before), std::move(after)), m_parts(std::move(parts))
{
    setText(text);
}
