#include "SmallCar.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kSmallCarColourAttr = 5100, kSmallCarHookAttr = 5101;
constexpr double kSmallCarLeft = 0, kSmallCarTop = 0, kBodyH = 34, kSmallCarWheelY = 44, kSmallCarWheelR = 14;
constexpr double kSmallCarMinL = 80, kSmallCarMaxL = 500, kSmallCarHookReach = 14;

const HandlePos::Slot kSmallCarSlots[] = {{0, HandlePos::X, "idLength", "IDS_PHYSICSOBJ_LENGTH", false}};

using SvgNumbers::format;

} // namespace

CSmallCar::CSmallCar(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CSmallCar::~CSmallCar() = default;

QString CSmallCar::getSVG()
{
    // Wheels behind the body, each a tyre, a hub and an axle cap; the shading over the
    // body keeps any colour looking like painted sheet metal.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"176px\" height=\"60px\""
        " viewBox=\"-1 -1 176 60\">\n"
        "<defs>\n"
        "<linearGradient id=\"sc_shade\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.4\"/><stop offset=\"0.3\" stop-color=\"#FFFFFF\""
        " stop-opacity=\"0.06\"/><stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.28\"/></linearGradient>\n"
        "<radialGradient id=\"sc_hub\" cx=\"0.4\" cy=\"0.35\" r=\"0.7\">"
        "<stop offset=\"0\" stop-color=\"#F4F6F8\"/><stop offset=\"1\" stop-color=\"#7D8791\"/></radialGradient>\n"
        "<linearGradient id=\"sc_metal\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#E3E8EC\"/><stop offset=\"1\" stop-color=\"#7D8791\"/></linearGradient>\n"
        "</defs>\n"
        "<g id=\"wheel_1\" transform=\"translate(32,44)\">"
        "<circle r=\"14\" fill=\"#2B2B2B\" stroke=\"#111111\" stroke-width=\"0.8\"/>"
        "<circle r=\"8.5\" fill=\"url(#sc_hub)\" stroke=\"#4A5560\" stroke-width=\"0.6\"/>"
        "<circle r=\"2.2\" fill=\"#4A5560\"/></g>\n"
        "<g id=\"wheel_2\" transform=\"translate(128,44)\">"
        "<circle r=\"14\" fill=\"#2B2B2B\" stroke=\"#111111\" stroke-width=\"0.8\"/>"
        "<circle r=\"8.5\" fill=\"url(#sc_hub)\" stroke=\"#4A5560\" stroke-width=\"0.6\"/>"
        "<circle r=\"2.2\" fill=\"#4A5560\"/></g>\n"
        "<g id=\"hook\" transform=\"translate(160,17)\">"
        "<path fill=\"none\" stroke=\"#4A5560\" stroke-width=\"2.2\" stroke-linecap=\"round\" stroke-linejoin=\"round\""
        " d=\"M0,0H7C12,0 13,-7 9,-8\"/>"
        "<rect x=\"-1\" y=\"-3.5\" width=\"4\" height=\"7\" rx=\"1\" fill=\"url(#sc_metal)\" stroke=\"#4A5560\" stroke-width=\"0.6\"/>"
        "</g>\n"
        "<rect id=\"body\" x=\"0\" y=\"0\" width=\"160\" height=\"34\" rx=\"7\" ry=\"7\" fill=\"#2E7D32\" stroke=\"#1B3A1C\""
        " stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>\n"
        "<rect id=\"body_shade\" x=\"0.5\" y=\"0.5\" width=\"159\" height=\"33\" rx=\"6.5\" ry=\"6.5\" fill=\"url(#sc_shade)\"/>\n"
        "<rect id=\"body_rim\" x=\"6\" y=\"6\" width=\"148\" height=\"4\" rx=\"2\" ry=\"2\" fill=\"#000000\" fill-opacity=\"0.22\"/>\n"
        "<rect id=\"control_1\" x=\"155.5\" y=\"12.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"75.5\" x_to=\"495.5\"/>\n"
        "</svg>\n");
}

int CSmallCar::getSVGType() { return 105; }

void CSmallCar::ResetAtrribute()
{
    addColour(kSmallCarColourAttr, 1101, QStringLiteral("IDS_SVG_PHYSICAL_BODY_COLOR"), QColor(0x2E7D32));
    addAttribute(kSmallCarHookAttr, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_HOOK"), 0, true);
}

bool CSmallCar::showsHook() const { return m_attributes.value(kSmallCarHookAttr).boolValue; }

void CSmallCar::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"body_shade", "body_rim", "wheel_1", "wheel_2", "hook"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id))) {
            n->setFillEnabled(false);
            n->setStrokeEnabled(false);
        }
    layout();
    UpdateColor(false);
    UpdateCheckBox(false);
    Resize(false);
}

void CSmallCar::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const double x = HandlePos::centre(*this, 0).x() - kSmallCarLeft;
    m_dLength = std::isfinite(x) ? std::max(kSmallCarMinL, std::min(kSmallCarMaxL, x)) : kSmallCarMinL;
    const double l = m_dLength;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("body")))
        n->setNumAttribute(QStringLiteral("width"), l);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("body_shade")))
        n->setNumAttribute(QStringLiteral("width"), l - 1);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("body_rim")))
        n->setNumAttribute(QStringLiteral("width"), l - 12);
    const struct {
        const char *id;
        double x, y;
    } placed[] = {{"wheel_1", kSmallCarLeft + l / 5, kSmallCarWheelY}, {"wheel_2", kSmallCarLeft + l * 4 / 5, kSmallCarWheelY}, {"hook", kSmallCarLeft + l, kBodyH / 2}};
    for (const auto &p : placed)
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(p.id)))
            n->setAttribute(QStringLiteral("transform"), QStringLiteral("translate(%1,%2)").arg(format(p.x), format(p.y)));
    HandlePos::placeCentre(*this, 0, QPointF(kSmallCarLeft + l, kBodyH / 2));
}

void CSmallCar::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kSmallCarColourAttr).color;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("body"))) {
        n->setFillColor(c);
        n->setStrokeColor(c.darker(220));
    }
    repaint();
}

void CSmallCar::UpdateCheckBox(bool)
{
    if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QStringLiteral("hook")) : nullptr)
        n->setVisible(showsHook());
    repaint();
}

bool CSmallCar::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CSmallCar::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    // Body, wheels below it, and the hook ahead of it.
    enclose(QRectF(kSmallCarLeft - 0.5, kSmallCarTop - 0.5, m_dLength + 1, kSmallCarWheelY + kSmallCarWheelR + 1), topLeft, bottomRight);
    if (showsHook())
        enclose(QRectF(kSmallCarLeft + m_dLength, kBodyH / 2 - 9.5, kSmallCarHookReach, 13), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CSmallCar::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idBodyColor", kSmallCarColourAttr}, {"idShowHook", kSmallCarHookAttr}});
    m_panel.append(*this, array, 2, kSmallCarSlots);
}

bool CSmallCar::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idBodyColor", kSmallCarColourAttr}, {"idShowHook", kSmallCarHookAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kSmallCarSlots, m_bPosByCode);
    return true;
}

bool CSmallCar::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
