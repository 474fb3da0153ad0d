#include "PulleyRig.h"
#include "HandlePos.h"
#include <QJsonArray>
#include <svgobj.h>

CPulleyRig::CPulleyRig(CSVGObj *owner) : CBasic(owner) {}

CPulleyRig::~CPulleyRig() = default;

void CPulleyRig::refresh()
{
    layout();
    m_shown = {{QStringLiteral("idPosValue"), QString::number(percent())}};
}

bool CPulleyRig::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    // The other handles have no travel of their own: only the rope's handle moves them.
    if (node != m_controlNodes.value(0))
        return true;
    m_before = m_shown;
    refresh();
    Resize(bFinal);
    repaint();
    if (!m_bPosByCode && !isLoading())
        posChangedByControl();
    return true;
}

void CPulleyRig::posChangedByControl() { ShownValues::postChanged(m_before, m_shown); }

double CPulleyRig::getControlPos() { return HandlePos::get(*this, 0, HandlePos::Y); }

void CPulleyRig::setControlPos(double y) { HandlePos::set(*this, 0, HandlePos::Y, y, m_bPosByCode); }

int CPulleyRig::percent() { return HandlePos::percent(*this, 0, HandlePos::Y, getControlPos()); }

void CPulleyRig::appendRopeLength(QJsonArray &array)
{
    HandlePos::appendInput(*this, array, QStringLiteral("IDS_PHYSICSOBJ_ROPE_LENGTH"), percent());
}

void CPulleyRig::typedRopeLength(const QMap<QString, QString> &values)
{
    double y = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::Y, false, y, HandlePos::Decimal))
        setControlPos(y);
}

void CPulleyRig::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    if (m_pDocument)
        enclose(m_pDocument->transformedBounds().adjusted(-1, -1, 1, 1), topLeft, bottomRight);
}

bool CPulleyRig::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}

CPulleyBlock::CPulleyBlock(CSVGObj *owner, double hookBelowAxle, int segmentsAttr)
    : CPulleyRig(owner), m_dHookBelowAxle(hookBelowAxle), m_nSegmentsAttr(segmentsAttr)
{
}

void CPulleyBlock::UpdateCheckBox(bool)
{
    if (QSvgNode *label = m_pDocument ? m_pDocument->namedNode(QStringLiteral("n_label")) : nullptr)
        label->setVisible(m_attributes.value(m_nSegmentsAttr).boolValue);
    repaint();
}

double CPulleyBlock::drop() const
{
    QSvgNode *h = m_controlNodes.value(0);
    return h ? h->rect().center().y() - m_dHookBelowAxle - kFixedY : kMaxDrop;
}

QPointF CPulleyBlock::freeEnd() const
{
    QSvgNode *h = m_controlNodes.value(1);
    return h ? h->rect().center() : QPointF();
}

void CPulleyBlock::hangMovingBlock(double d)
{
    if (QSvgNode *moving = m_pDocument ? m_pDocument->namedNode(QStringLiteral("moving")) : nullptr)
        moving->setAttribute(QStringLiteral("transform"),
                             QStringLiteral("translate(0,%1)").arg(SvgNumbers::format(d - kMaxDrop)));
}
