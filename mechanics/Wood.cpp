#include "Wood.h"
#include "bases/HandlePos.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kWoodColourAttr = 5100, kWoodHookAttr = 5101;
constexpr double kWoodLeft = 0, kWoodTop = 0;
constexpr double kMinW = 30, kMaxW = 600, kMinH = 20, kMaxH = 300, kGrainPitch = 12;
constexpr double kWoodHookReach = 13; // the ring's outer edge past the right face

const HandlePos::Slot kWoodSlots[] = {
    {0, HandlePos::X, "idWidth", "IDS_PHYSICSOBJ_WIDTH", false},
    {0, HandlePos::Y, "idHeight", "IDS_PHYSICSOBJ_HEIGHT", false},
};

using SvgNumbers::format;

} // namespace

CWood::CWood(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CWood::~CWood() = default;

QString CWood::getSVG()
{
    // The shading over the body keeps any colour chosen looking like a lit block.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"134px\" height=\"66px\""
        " viewBox=\"-0.5 -0.5 134 66\">\n"
        "<defs>\n"
        "<linearGradient id=\"wd_shade\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.3\"/><stop offset=\"0.25\" stop-color=\"#FFFFFF\""
        " stop-opacity=\"0.05\"/><stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.18\"/></linearGradient>\n"
        "<linearGradient id=\"wd_metal\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#E3E8EC\"/><stop offset=\"1\" stop-color=\"#7D8791\"/></linearGradient>\n"
        "</defs>\n"
        "<g id=\"hook\" transform=\"translate(120,30)\">"
        "<rect id=\"hook_plate\" x=\"-1\" y=\"-3\" width=\"4\" height=\"6\" rx=\"1\" fill=\"url(#wd_metal)\" stroke=\"#4A5560\""
        " stroke-width=\"0.6\"/>"
        "<circle id=\"hook_ring\" cx=\"8\" cy=\"0\" r=\"4.2\" fill=\"none\" stroke=\"#6B747D\" stroke-width=\"1.6\"/>"
        "</g>\n"
        "<rect id=\"block\" x=\"0\" y=\"0\" width=\"120\" height=\"60\" rx=\"1.5\" ry=\"1.5\" fill=\"#C8A165\" stroke=\"#7A5A2E\""
        " stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>\n"
        "<path id=\"grain_1\" fill=\"none\" stroke=\"#5A3D1A\" stroke-opacity=\"0.35\" stroke-width=\"0.7\""
        " d=\"M4,6C34,4 64,8 116,6\"/>\n"
        "<rect id=\"shade\" x=\"0.5\" y=\"0.5\" width=\"119\" height=\"59\" rx=\"1\" ry=\"1\" fill=\"url(#wd_shade)\"/>\n"
        "<rect id=\"control_1\" x=\"115.5\" y=\"55.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"25.5\" x_to=\"595.5\" y_from=\"15.5\" y_to=\"295.5\"/>\n"
        "</svg>\n");
}

int CWood::getSVGType() { return 106; }

void CWood::ResetAtrribute()
{
    addColour(kWoodColourAttr, 1101, QStringLiteral("IDS_SVG_PHYSICAL_BODY_COLOR"), QColor(0xC8A165));
    addAttribute(kWoodHookAttr, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_HOOK"), 0, true);
}

bool CWood::showsHook() const { return m_attributes.value(kWoodHookAttr).boolValue; }

void CWood::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"shade", "hook_plate"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setFillEnabled(false);
    for (const char *id : {"hook_ring", "hook_plate"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setStrokeEnabled(false);
    layout();
    UpdateColor(false);
    UpdateCheckBox(false);
    Resize(false);
}

void CWood::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const QPointF corner = HandlePos::centre(*this, 0);
    auto held = [](double v, double lo, double hi) { return std::isfinite(v) ? std::max(lo, std::min(hi, v)) : lo; };
    m_dWidth = held(corner.x() - kWoodLeft, kMinW, kMaxW);
    m_dHeight = held(corner.y() - kWoodTop, kMinH, kMaxH);
    const double w = m_dWidth, h = m_dHeight;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("block"))) {
        n->setNumAttribute(QStringLiteral("width"), w);
        n->setNumAttribute(QStringLiteral("height"), h);
    }
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("shade"))) {
        n->setNumAttribute(QStringLiteral("width"), w - 1);
        n->setNumAttribute(QStringLiteral("height"), h - 1);
    }
    // Grain along the block, evenly spread down it; each line sags and rises a little
    // differently, as sawn grain does.
    const int lines = std::max(1, int(std::floor(h / kGrainPitch)));
    const QVector<QSvgNode *> grain = Series::fit(*this, QStringLiteral("grain"), lines);
    const double gap = h / (grain.size() + 1);
    for (int k = 0; k < grain.size(); ++k) {
        const double y = kWoodTop + gap * (k + 1), wave = std::min(2.0, gap * 0.3) * (k % 2 ? 1 : -1);
        const double x0 = kWoodLeft + 3 + (k % 3) * 2, x1 = kWoodLeft + w - 3 - (k % 2) * 3;
        grain[k]->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2C%3,%4 %5,%6 %7,%2")
                                                        .arg(format(x0), format(y), format(x0 + (x1 - x0) * 0.3), format(y + wave),
                                                             format(x0 + (x1 - x0) * 0.6), format(y - wave), format(x1)));
        grain[k]->setStrokeEnabled(false);
    }
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("hook")))
        n->setAttribute(QStringLiteral("transform"),
                        QStringLiteral("translate(%1,%2)").arg(format(kWoodLeft + w), format(kWoodTop + h / 2)));
    HandlePos::placeCentre(*this, 0, QPointF(kWoodLeft + w, kWoodTop + h));
}

void CWood::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("block")))
        n->setFillColor(m_attributes.value(kWoodColourAttr).color);
    repaint();
}

void CWood::UpdateCheckBox(bool)
{
    if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QStringLiteral("hook")) : nullptr)
        n->setVisible(showsHook());
    repaint();
}

bool CWood::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CWood::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(QRectF(kWoodLeft - 0.5, kWoodTop - 0.5, m_dWidth + 1, m_dHeight + 1), topLeft, bottomRight);
    if (showsHook())
        enclose(QPointF(kWoodLeft + m_dWidth + kWoodHookReach, kWoodTop + m_dHeight / 2), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CWood::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idBodyColor", kWoodColourAttr}, {"idShowHook", kWoodHookAttr}});
    m_panel.append(*this, array, 2, kWoodSlots);
}

bool CWood::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idBodyColor", kWoodColourAttr}, {"idShowHook", kWoodHookAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kWoodSlots, m_bPosByCode);
    return true;
}

bool CWood::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
