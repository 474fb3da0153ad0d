#include "svgbaseundocmd.h"
#include "framework.h"
#include "svgbase.h"

CSVGBaseUndoCmd::CSVGBaseUndoCmd(CSVGBase *target, int propId, QUndoCommand *parent, bool)
    : QUndoCommand(parent), m_target(target ? target->serial() : 0), m_propId(propId)
{
    setText(QStringLiteral("property %1").arg(propId));
}

void CSVGBaseUndoCmd::setInt(int o, int n) { m_old = o; m_new = n; }
void CSVGBaseUndoCmd::setBool(bool o, bool n) { m_old = o; m_new = n; }
void CSVGBaseUndoCmd::setColor(QColor o, QColor n) { m_old = QVariant::fromValue(o); m_new = QVariant::fromValue(n); }
void CSVGBaseUndoCmd::setString(QString o, QString n) { m_old = o; m_new = n; }

void CSVGBaseUndoCmd::apply(const QVariant &v)
{
    CSVGBase *t = GetFramework()->object(m_target);
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

void CSVGBaseUndoCmd::undo() { apply(m_old); }

void CSVGBaseUndoCmd::redo()
{
    // The change is already made when the command is pushed.
    if (m_firstRedo) {
        m_firstRedo = false;
        return;
    }
    apply(m_new);
}

CSVGHandleMoveCmd::CSVGHandleMoveCmd(CSVGBase *target, int handle, QPointF from, QPointF to,
                                     std::shared_ptr<const SvgDocumentState> before,
                                     std::shared_ptr<const SvgDocumentState> after)
    : m_before(std::move(before)), m_after(std::move(after)), m_target(target->serial()), m_handle(handle),
      m_from(from), m_to(to)
{
    setText(QStringLiteral("move control_%1").arg(handle + 1));
}

void CSVGHandleMoveCmd::moveTo(QPointF p, const std::shared_ptr<const SvgDocumentState> &state)
{
    CSVGBase *t = GetFramework()->object(m_target);
    if (!t || m_handle < 0 || m_handle >= t->controlNodes().size())
        return;
    QSvgNode *h = t->controlNodes().at(m_handle);
    t->moveControlPoint(h, p - h->rect().topLeft(), true, false);
    if (state)
        t->restoreDocumentState(*state);
}

void CSVGHandleMoveCmd::undo() { moveTo(m_from, m_before); }

void CSVGHandleMoveCmd::redo()
{
    if (m_firstRedo) {
        m_firstRedo = false;
        return;
    }
    moveTo(m_to, m_after);
}
