#include "OpticalBracket.h"
#include "bases/AttrValue.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {
constexpr int kOrientationAttr = 5102;
}

COpticalBracket::COpticalBracket(CSVGObj *owner) : CAttribute(owner) {}

COpticalBracket::~COpticalBracket() = default;

QString COpticalBracket::getSVG()
{
    // The holder is a U seen from the front, tilted either way by 45 degrees, or a
    // narrow bar seen from the side.
    static const char *const kHolder =
        "<polygon fill=\"#3D3D3D\" stroke=\"#3A3A3A\" stroke-width=\"0.5\""
        " points=\"17.74,6 20.24,6 20.24,16.01 39.24,16.01 39.24,6 41.74,6 41.74,18.51 17.74,18.51\"/>";
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
               "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"59.672px\""
               " height=\"82.126px\" viewBox=\"0 0 59.672 82.126\">\n"
               "<defs>\n"
               "<linearGradient id=\"SVGID_4_\" gradientUnits=\"userSpaceOnUse\" x1=\"4.155\" y1=\"0\" x2=\"55.323\" y2=\"0\">"
               "<stop offset=\"0\" stop-color=\"#000000\"/><stop offset=\"0.5152\" stop-color=\"#D6D6D6\"/>"
               "<stop offset=\"1\" stop-color=\"#000000\"/></linearGradient>\n"
               "<linearGradient id=\"SVGID_1_\" gradientUnits=\"userSpaceOnUse\" x1=\"4.155\" y1=\"0\" x2=\"55.323\" y2=\"0\">"
               "<stop offset=\"0\" stop-color=\"#000000\"/><stop offset=\"0.5152\" stop-color=\"#D6D6D6\"/>"
               "<stop offset=\"1\" stop-color=\"#000000\"/></linearGradient>\n"
               "<linearGradient id=\"SVGID_2_\" gradientUnits=\"userSpaceOnUse\" x1=\"28.389\" y1=\"0\" x2=\"31.09\" y2=\"0\">"
               "<stop offset=\"0\" stop-color=\"#000000\"/><stop offset=\"0.5152\" stop-color=\"#D6D6D6\"/>"
               "<stop offset=\"1\" stop-color=\"#000000\"/></linearGradient>\n"
               "</defs>\n"
               "<g id=\"down_part\">\n"
               "<path id=\"down1\" fill=\"url(#SVGID_4_)\" d=\"M4.155,70.998v4.5A25.584,4.666,0,0,0,55.323,75.498v-4.5Z\"/>\n"
               "<ellipse id=\"down2\" fill=\"url(#SVGID_1_)\" cx=\"29.739\" cy=\"70.998\" rx=\"25.584\" ry=\"4.666\"/>\n"
               "</g>\n"
               "<rect id=\"body\" fill=\"url(#SVGID_2_)\" x=\"28.389\" y=\"21.01\" width=\"2.701\" height=\"49.988\"/>\n"
               "<rect fill=\"#3D3D3D\" x=\"27.889\" y=\"18.51\" width=\"3.701\" height=\"2.5\"/>\n"
               "<g id=\"rotate_1\">%1</g>\n"
               "<g id=\"rotate_2\" transform=\"rotate(45 29.74 18.51)\">%1</g>\n"
               "<g id=\"rotate_4\" transform=\"rotate(-45 29.74 18.51)\">%1</g>\n"
               "<g id=\"rotate_3\"><polygon fill=\"#3D3D3D\" stroke=\"#3A3A3A\" stroke-width=\"0.5\""
               " points=\"27.74,6 31.74,6 31.74,18.51 27.74,18.51\"/></g>\n"
               "<rect id=\"control_1\" x=\"30\" y=\"71\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
               " y_from=\"30\" y_to=\"100\"/>\n"
               "</svg>\n")
        .arg(QLatin1String(kHolder));
}

int COpticalBracket::getSVGType() { return 606; }

void COpticalBracket::ResetAtrribute()
{
    addAttribute(kOrientationAttr, 1103, 1, QStringLiteral("IDS_SVG_PHYSICAL_BRACKET_LOCATION"));
}

QByteArray COpticalBracket::GetComboboxData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(4) << int(0) << QStringLiteral("IDS_SVG_PHYSICAL_BRACKET_POSITIVE")
        << QStringLiteral("IDS_SVG_PHYSICAL_BRACKET_TURN_45_DEGREES_CLOCKWISE") << QStringLiteral("IDS_SVG_PHYSICAL_BRACKET_SIDE")
        << QStringLiteral("IDS_SVG_PHYSICAL_BRACKET_TURN_45_DEGREES_COUNTERCLOCKWISE");
    return data;
}

int COpticalBracket::orientation() const { return m_attributes.value(kOrientationAttr).intValue; }

void COpticalBracket::UpdateCombobox(bool)
{
    if (!m_pDocument)
        return;
    // The panel's order (front, +45, side, -45) is not the groups' numbering.
    static const char *const kGroups[] = {"rotate_1", "rotate_2", "rotate_3", "rotate_4"};
    const int index = orientation();
    if (index < 0 || index > 3)
        return;
    for (int i = 0; i < 4; ++i)
        if (QSvgNode *g = m_pDocument->namedNode(QLatin1String(kGroups[i])))
            g->setVisible(i == index);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

bool COpticalBracket::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0) || !m_pDocument)
        return false;
    if (QSvgNode *body = m_pDocument->namedNode(QStringLiteral("body")))
        body->setNumAttribute(QStringLiteral("height"), body->numAttribute(QStringLiteral("height")) + offset.y());
    if (QSvgNode *foot = m_pDocument->namedNode(QStringLiteral("down_part")))
        foot->translate(0, offset.y());
    resizeSVG(0, offset.y(), bFinal);
    if (m_pOwner)
        m_pOwner->update(QRectF());
    if (!m_bPosByCode)
        posChangedByControl();
    return true;
}

double COpticalBracket::getControlPos() { return HandlePos::get(*this, 0, HandlePos::Y); }

void COpticalBracket::setControlPos(double y) { HandlePos::set(*this, 0, HandlePos::Y, y, m_bPosByCode); }

int COpticalBracket::percent() { return HandlePos::percent(*this, 0, HandlePos::Y, getControlPos()); }

void COpticalBracket::posChangedByControl()
{
    postSetting(QStringLiteral("idPosValue"), QString::number(percent()));
}

void COpticalBracket::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonComboBox(
        QStringLiteral("idBracketDirection"), QStringLiteral("IDS_PHYSICSOBJ_DIRECTION"), orientation(), QStringList(),
        {QStringLiteral("IDS_PHYSICSOBJ_BRACKET_POSITIVE"), QStringLiteral("IDS_PHYSICSOBJ_BRACKET_POSI45"),
         QStringLiteral("IDS_PHYSICSOBJ_BRACKET_SIDE"), QStringLiteral("IDS_PHYSICSOBJ_BRACKET_NEGA45")}));
    HandlePos::appendInput(*this, array, QStringLiteral("IDS_PHYSICSOBJ_BRACKET_HEIGHT"), percent());
}

bool COpticalBracket::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto dir = values.constFind(QStringLiteral("idBracketDirection"));
    if (dir != values.cend())
        AttrValue::apply(*this, kOrientationAttr, dir.value().toInt(), bRecord, bUndo);
    double y = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::Y, false, y))
        setControlPos(y);
    return true;
}

bool COpticalBracket::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    // The orientation goes back before the height.
    keepAttribute(id, kOrientationAttr, m_nSavedOrientation);
    if (isCapture(id))
        m_dSavedControlPos = getControlPos();
    else if (isRestore(id))
        setControlPos(m_dSavedControlPos);
    return r;
}

QString COpticalBracket::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CAttribute::getPropName(id);
}
