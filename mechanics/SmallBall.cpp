#include "SmallBall.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kSmallBallColourAttr = 5100, kCentreAttr = 5101;
constexpr double kSmallBallCx = 130, kSmallBallCy = 130, kSmallBallMinR = 6, kSmallBallMaxR = 120;

const HandlePos::Slot kSmallBallSlots[] = {{0, HandlePos::X, "idPosValue", "IDS_PHYSICSOBJ_SIZE", false}};

// The sphere's shading from its body colour: a pale tint where the light falls and a
// deep shade on the far side.
QColor mixed(const QColor &c, const QColor &with, double t)
{
    return QColor::fromRgbF(c.redF() + (with.redF() - c.redF()) * t, c.greenF() + (with.greenF() - c.greenF()) * t,
                            c.blueF() + (with.blueF() - c.blueF()) * t);
}

} // namespace

CSmallBall::CSmallBall(CSVGObj *owner) : CBasic(owner)
{
    m_bItemsOutline = true;
    setPostsChangedSettings(true);
}

CSmallBall::~CSmallBall() = default;

QString CSmallBall::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"46px\" height=\"41px\""
        " viewBox=\"109.5 109.5 46 41\">\n"
        "<defs>\n"
        "<radialGradient id=\"sb_shade\" cx=\"0.36\" cy=\"0.32\" r=\"0.72\" fx=\"0.3\" fy=\"0.26\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\"/>"
        "<stop id=\"sb_light\" offset=\"0.14\" stop-color=\"#F2A68E\"/>"
        "<stop id=\"sb_body\" offset=\"0.55\" stop-color=\"#D84315\"/>"
        "<stop id=\"sb_dark\" offset=\"1\" stop-color=\"#772509\"/></radialGradient>\n"
        "</defs>\n"
        "<circle id=\"ball\" cx=\"130\" cy=\"130\" r=\"20\" fill=\"url(#sb_shade)\" stroke=\"#5A1A06\" stroke-width=\"0.8\""
        " stroke-opacity=\"0.6\" vector-effect=\"non-scaling-stroke\"/>\n"
        "<circle id=\"center\" cx=\"130\" cy=\"130\" r=\"2.2\" fill=\"#1A1A1A\" stroke=\"#FFFFFF\" stroke-width=\"0.6\""
        " display=\"none\"/>\n"
        "<rect id=\"control_1\" x=\"145.5\" y=\"125.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"131.5\" x_to=\"245.5\"/>\n"
        "</svg>\n");
}

int CSmallBall::getSVGType() { return 104; }

void CSmallBall::ResetAtrribute()
{
    addColour(kSmallBallColourAttr, 1101, QStringLiteral("IDS_SVG_PHYSICAL_BALL_COLOR"), QColor(0xD84315));
    addAttribute(kCentreAttr, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_CENTER"), 0, false);
}

void CSmallBall::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("center")))
        n->setFillEnabled(false);
    layout();
    UpdateColor(false);
    UpdateCheckBox(false);
    Resize(false);
}

void CSmallBall::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const double r = HandlePos::centre(*this, 0).x() - kSmallBallCx;
    m_dRadius = std::isfinite(r) ? std::max(kSmallBallMinR, std::min(kSmallBallMaxR, r)) : kSmallBallMinR;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("ball")))
        n->setNumAttribute(QStringLiteral("r"), m_dRadius);
    // The centre mark grows a little with the ball, but stays a dot.
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("center")))
        n->setNumAttribute(QStringLiteral("r"), std::min(4.0, 1.5 + m_dRadius * 0.03));
    HandlePos::placeCentre(*this, 0, QPointF(kSmallBallCx + m_dRadius, kSmallBallCy));
}

void CSmallBall::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor body = m_attributes.value(kSmallBallColourAttr).color;
    const struct {
        const char *id;
        QColor colour;
    } stops[] = {{"sb_light", mixed(body, Qt::white, 0.55)}, {"sb_body", body}, {"sb_dark", mixed(body, Qt::black, 0.5)}};
    for (const auto &s : stops)
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(s.id)))
            n->setAttribute(QStringLiteral("stop-color"), s.colour.name().toUpper());
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("ball")))
        n->setAttribute(QStringLiteral("stroke"), mixed(body, Qt::black, 0.65).name().toUpper());
    repaint();
}

void CSmallBall::UpdateCheckBox(bool)
{
    if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QStringLiteral("center")) : nullptr)
        n->setVisible(m_attributes.value(kCentreAttr).boolValue);
    repaint();
}

bool CSmallBall::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CSmallBall::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    const double r = m_dRadius + 0.5;
    enclose(QRectF(kSmallBallCx - r, kSmallBallCy - r, 2 * r, 2 * r), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CSmallBall::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idBallColor", kSmallBallColourAttr}, {"idShowCenter", kCentreAttr}});
    m_panel.append(*this, array, 2, kSmallBallSlots);
}

bool CSmallBall::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idBallColor", kSmallBallColourAttr}, {"idShowCenter", kCentreAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kSmallBallSlots, m_bPosByCode);
    return true;
}

bool CSmallBall::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
