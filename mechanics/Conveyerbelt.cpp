#include "Conveyerbelt.h"
#include "bases/HandlePos.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kDirectionAttr = 5100, kConveyerbeltColourAttr = 5101;
constexpr double kConveyerbeltCx = 40, kConveyerbeltCy = 60;
constexpr double kMinD = 80, kMaxD = 1000, kConveyerbeltMinR = 10, kConveyerbeltMaxR = 35;
constexpr double kBelt = 4;          // the belt's thickness
constexpr double kArrowPitch = 100;  // centre distance per arrow

const HandlePos::Slot kConveyerbeltSlots[] = {
    {0, HandlePos::X, "idLength", "IDS_PHYSICSOBJ_LENGTH", false},
    {1, HandlePos::Y, "idRadius", "IDS_PHYSICSOBJ_RADIUS", true},
};

using SvgNumbers::format;

} // namespace

Conveyerbelt::Conveyerbelt(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

Conveyerbelt::~Conveyerbelt() = default;

QString Conveyerbelt::getSVG()
{
    // Each roller is a metal drum with a hub and one spoke, so that its turning could be
    // seen; the belt runs round them a little outside, and the arrows ride above it.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"306px\" height=\"76px\""
        " viewBox=\"10 18 306 76\">\n"
        "<defs>\n"
        "<radialGradient id=\"cv_drum\" cx=\"0.4\" cy=\"0.35\" r=\"0.75\">"
        "<stop offset=\"0\" stop-color=\"#EEF1F3\"/><stop offset=\"0.6\" stop-color=\"#B7C0C8\"/>"
        "<stop offset=\"1\" stop-color=\"#7D8791\"/></radialGradient>\n"
        "</defs>\n"
        "<g id=\"roller_1\" transform=\"translate(40,60)\">"
        "<circle id=\"drum_1\" r=\"25\" fill=\"url(#cv_drum)\" stroke=\"#4A5560\" stroke-width=\"1\""
        " vector-effect=\"non-scaling-stroke\"/>"
        "<line id=\"spoke_1\" x1=\"0\" y1=\"0\" x2=\"15.91\" y2=\"-15.91\" stroke=\"#4A5560\" stroke-width=\"2\""
        " stroke-linecap=\"round\"/>"
        "<circle id=\"hub_1\" r=\"5\" fill=\"#6B747D\" stroke=\"#3A434C\" stroke-width=\"0.8\"/></g>\n"
        "<g id=\"roller_2\" transform=\"translate(280,60)\">"
        "<circle id=\"drum_2\" r=\"25\" fill=\"url(#cv_drum)\" stroke=\"#4A5560\" stroke-width=\"1\""
        " vector-effect=\"non-scaling-stroke\"/>"
        "<line id=\"spoke_2\" x1=\"0\" y1=\"0\" x2=\"15.91\" y2=\"-15.91\" stroke=\"#4A5560\" stroke-width=\"2\""
        " stroke-linecap=\"round\"/>"
        "<circle id=\"hub_2\" r=\"5\" fill=\"#6B747D\" stroke=\"#3A434C\" stroke-width=\"0.8\"/></g>\n"
        "<path id=\"belt\" fill=\"none\" stroke=\"#3C3C3C\" stroke-width=\"4\" stroke-linejoin=\"round\""
        " d=\"M40,33H280A27,27 0 0 1 280,87H40A27,27 0 0 1 40,33Z\"/>\n"
        "<path id=\"arrow_1\" fill=\"#E02020\" transform=\"translate(160,22)\" d=\"M-10,-1.6H3V-5L11,0L3,5V1.6H-10Z\"/>\n"
        "<rect id=\"control_1\" x=\"275.5\" y=\"55.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"115.5\" x_to=\"1035.5\"/>\n"
        "<rect id=\"control_2\" x=\"35.5\" y=\"30.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"20.5\" y_to=\"45.5\"/>\n"
        "</svg>\n");
}

int Conveyerbelt::getSVGType() { return 103; }

void Conveyerbelt::ResetAtrribute()
{
    addAttribute(kDirectionAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_DIRECTION"), 1);
    addColour(kConveyerbeltColourAttr, 1102, QStringLiteral("IDS_SVG_PHYSICAL_BELT_COLOR"), QColor(0x3C3C3C));
}

QByteArray Conveyerbelt::GetComboboxData()
{
    return comboData({QStringLiteral("IDS_SVG_PHYSICAL_NONE"), QStringLiteral("IDS_SVG_PHYSICAL_RIGHT"),
                      QStringLiteral("IDS_SVG_PHYSICAL_LEFT")});
}

int Conveyerbelt::direction() const { return m_attributes.value(kDirectionAttr).intValue; }

void Conveyerbelt::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"roller_1", "roller_2"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id))) {
            n->setFillEnabled(false);
            n->setStrokeEnabled(false);
        }
    layout();
    UpdateColor(false);
    Resize(false);
}

void Conveyerbelt::layout()
{
    if (!m_pDocument || m_controlNodes.size() < 2)
        return;
    auto held = [](double v, double lo, double hi) { return std::isfinite(v) ? std::max(lo, std::min(hi, v)) : lo; };
    m_dDistance = held(HandlePos::centre(*this, 0).x() - kConveyerbeltCx, kMinD, kMaxD);
    m_dRadius = held(kConveyerbeltCy - HandlePos::centre(*this, 1).y(), kConveyerbeltMinR, kConveyerbeltMaxR);
    const double d = m_dDistance, r = m_dRadius, right = kConveyerbeltCx + d;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("roller_2")))
        n->setAttribute(QStringLiteral("transform"), QStringLiteral("translate(%1,%2)").arg(format(right), format(kConveyerbeltCy)));
    for (int k = 1; k <= 2; ++k) {
        if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("drum_%1").arg(k)))
            n->setNumAttribute(QStringLiteral("r"), r);
        if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("hub_%1").arg(k)))
            n->setNumAttribute(QStringLiteral("r"), std::max(2.5, r * 0.2));
        if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("spoke_%1").arg(k))) {
            n->setNumAttribute(QStringLiteral("x2"), r * 0.6364);
            n->setNumAttribute(QStringLiteral("y2"), -r * 0.6364);
        }
    }
    const double b = r + kBelt / 2;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("belt")))
        n->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2H%3A%4,%4 0 0 1 %3,%5H%1A%4,%4 0 0 1 %1,%2Z")
                                                 .arg(format(kConveyerbeltCx), format(kConveyerbeltCy - b), format(right), format(b), format(kConveyerbeltCy + b)));
    // One arrow per 100 of centre distance, spread along the top run.
    const int count = std::max(1, int(std::floor(d / kArrowPitch)));
    const QVector<QSvgNode *> arrows = Series::fit(*this, QStringLiteral("arrow"), count);
    const QString flip = direction() == 2 ? QStringLiteral(" scale(-1,1)") : QString();
    for (int k = 0; k < arrows.size(); ++k) {
        arrows[k]->setAttribute(QStringLiteral("transform"),
                                QStringLiteral("translate(%1,%2)").arg(format(kConveyerbeltCx + d * (k + 0.5) / arrows.size()),
                                                                       format(kConveyerbeltCy - b - kBelt / 2 - 8)) + flip);
        arrows[k]->setVisible(direction() == 1 || direction() == 2);
        arrows[k]->setFillEnabled(false);
    }
    HandlePos::placeCentre(*this, 0, QPointF(right, kConveyerbeltCy));
    HandlePos::placeCentre(*this, 1, QPointF(kConveyerbeltCx, kConveyerbeltCy - r));
}

void Conveyerbelt::UpdateColor(bool)
{
    if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QStringLiteral("belt")) : nullptr)
        n->setStrokeColor(m_attributes.value(kConveyerbeltColourAttr).color);
    repaint();
}

void Conveyerbelt::UpdateCombobox(bool)
{
    layout();
    repaint();
}

bool Conveyerbelt::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void Conveyerbelt::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    // The belt round both rollers, the arrows above it, and the handles.
    const double b = m_dRadius + kBelt;
    enclose(QRectF(kConveyerbeltCx - b, kConveyerbeltCy - b - 14, m_dDistance + 2 * b, 2 * b + 14), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void Conveyerbelt::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idBeltDirection", kDirectionAttr}, {"idBeltColor", kConveyerbeltColourAttr}});
    m_panel.append(*this, array, 2, kConveyerbeltSlots);
}

bool Conveyerbelt::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idBeltDirection", kDirectionAttr}, {"idBeltColor", kConveyerbeltColourAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kConveyerbeltSlots, m_bPosByCode);
    return true;
}

bool Conveyerbelt::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
