#include "Candle.h"
#include "bases/Attribute.h"
#include "bases/HandlePos.h"
#include <svgobj.h>

CCandle::CCandle(CSVGObj *owner) : CSVGBase(owner) {}

CCandle::~CCandle() = default;

bool CCandle::loadSVG(bool bLoad)
{
    const QString svg = QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"42px\" height=\"189px\""
        " viewBox=\"0 0 42 189\">\n"
        "<rect id=\"body\" x=\"3.873\" y=\"55.113\" width=\"34.5\" height=\"120\" fill=\"#FFFFFF\" stroke=\"#000000\"/>\n"
        "<ellipse cx=\"21.123\" cy=\"55.113\" rx=\"17.25\" ry=\"3.666\" fill=\"#FFFFFF\" stroke=\"#000000\"/>\n"
        "<path fill=\"#FFFFFF\" stroke=\"#F7931E\" stroke-width=\"1.5\""
        " d=\"M21.5,6 C24.5,16 31.5,24 31.5,34 C31.5,41.5 27,47 21.5,47 C16,47 11.5,41.5 11.5,34 C11.5,24 18.5,16 21.5,6 Z\"/>\n"
        "<path fill=\"#FFFFFF\" stroke=\"#FBB040\""
        " d=\"M21.5,22 C23,28 26.5,32 26.5,37.5 C26.5,41.5 24.3,44 21.5,44 C18.7,44 16.5,41.5 16.5,37.5 C16.5,32 20,28 21.5,22 Z\"/>\n"
        "<rect x=\"19.623\" y=\"48.542\" width=\"1.812\" height=\"6.079\" fill=\"#000000\"/>\n"
        "<path id=\"down_part\" fill=\"#FFFFFF\" stroke=\"#000000\""
        " d=\"M38.373,171.945v3.168c0,2.025,-7.724,3.666,-17.25,3.666s-17.25,-1.641,-17.25,-3.666v-3.168\"/>\n"
        "<rect id=\"control_1\" x=\"16.935\" y=\"176.613\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"75\" y_to=\"300\"/>\n"
        "</svg>\n");
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::fromTemplate(svg);
    return CSVGBase::loadSVG(bLoad);
}

int CCandle::getSVGType() { return 607; }

bool CCandle::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!m_pDocument || !node || node != m_pDocument->namedNode(QStringLiteral("control_1")))
        return false;
    QSvgNode *foot = m_pDocument->namedNode(QStringLiteral("down_part"));
    QSvgNode *body = m_pDocument->namedNode(QStringLiteral("body"));
    if (body)
        body->setNumAttribute(QStringLiteral("height"), body->numAttribute(QStringLiteral("height")) + offset.y());
    if (foot)
        foot->setAttribute(QStringLiteral("d"), changePathBeginPoint(foot->attribute(QStringLiteral("d")), 0, offset.y()));
    resizeSVG(0, offset.y(), bFinal);
    if (m_pOwner)
        m_pOwner->update(QRectF());
    if (!m_bPosByCode)
        posChangedByControl();
    return true;
}

double CCandle::getControlPos() { return HandlePos::get(*this, 0, HandlePos::Y); }

void CCandle::setControlPos(double y) { HandlePos::set(*this, 0, HandlePos::Y, y, m_bPosByCode); }

int CCandle::percent() { return HandlePos::percent(*this, 0, HandlePos::Y, getControlPos()); }

void CCandle::posChangedByControl() { postSetting(QStringLiteral("idPosValue"), QString::number(percent())); }

void CCandle::GetSettingArray(QJsonArray &array)
{
    if (m_pOwner)
        HandlePos::appendInput(*this, array, QStringLiteral("IDS_PHYSICSOBJ_HEIGHT"), percent());
}

bool CCandle::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    double y = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::Y, false, y))
        setControlPos(y);
    return true;
}

bool CCandle::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CSVGBase::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id))
        m_dSavedControlPos = getControlPos();
    else if (isRestore(id))
        setControlPos(m_dSavedControlPos);
    return r;
}

QString CCandle::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}
