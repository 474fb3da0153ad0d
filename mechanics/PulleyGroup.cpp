#include "PulleyGroup.h"
#include "bases/HostColour.h"
#include "bases/PanelItems.h"
#include "bases/Pulleys.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {

constexpr int kPulleyGroupSegmentsAttr = 5100;
constexpr int kFalls = 2;
// The fixed wheel under the beam; the movable one hangs to its left, so that the fall
// between them is straight: its right side under the fixed wheel's left side.
constexpr double kFixedX = 100, kFixedR = 22;
constexpr double kMovingR = 16, kMovingX = kFixedX - kFixedR - kMovingR;
// The template draws the movable pulley at its lowest; its hook's lowest point is the handle.
constexpr double kPulleyGroupHookBelowAxle = 40;

using SvgNumbers::format;

} // namespace

CPulleyGroup::CPulleyGroup(CSVGObj *owner) : CPulleyBlock(owner, kPulleyGroupHookBelowAxle, kPulleyGroupSegmentsAttr) {}

CPulleyGroup::~CPulleyGroup() = default;

QString CPulleyGroup::getSVG()
{
    constexpr double my = kFixedY + CPulleyGroup::kMaxDrop;
    constexpr double left = kMovingX - kMovingR, right = kFixedX + kFixedR;
    static const QString svg =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                       "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"144px\" height=\"348px\""
                       " viewBox=\"14 -8 144 348\">\n<defs>\n") +
        Pulleys::defsSvg() + QStringLiteral("</defs>\n") + Pulleys::ceilingSvg(QStringLiteral("ceiling"), 26, 146) +
        Pulleys::wheelSvg(QStringLiteral("fixed_wheel"), kFixedX, kFixedY, kFixedR) +
        Pulleys::lapSvg(QStringLiteral("lap_fixed"), kFixedX, kFixedY, kFixedR, true) +
        Pulleys::bracketSvg(QStringLiteral("bracket"), kFixedX, kBeamY, kFixedY) +
        QStringLiteral("<circle cx=\"%1\" cy=\"%2\" r=\"3\" fill=\"#3A434C\" stroke=\"#C9D0D6\" stroke-width=\"0.6\""
                       " vector-effect=\"none\"/>\n"
                       "<circle cx=\"%3\" cy=\"12.5\" r=\"2.5\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"1.4\""
                       " vector-effect=\"none\"/>\n")
            .arg(format(kFixedX), format(kFixedY), format(left)) +
        Pulleys::ropeSvg(QStringLiteral("rope_1"), QPointF(left, kBeamY + 5), QPointF(left, my)) +
        Pulleys::ropeSvg(QStringLiteral("rope_2"), QPointF(kMovingX + kMovingR, my), QPointF(kMovingX + kMovingR, kFixedY)) +
        Pulleys::ropeSvg(QStringLiteral("free_end"), QPointF(right, kFixedY), QPointF(right, kFixedY + kFreeRest)) +
        QStringLiteral("<g id=\"moving\" transform=\"translate(0,0)\">\n") +
        Pulleys::wheelSvg(QStringLiteral("moving_wheel"), kMovingX, my, kMovingR) +
        Pulleys::lapSvg(QStringLiteral("lap_moving"), kMovingX, my, kMovingR, false) + Pulleys::strapSvg(kMovingX, my, my + 24) +
        QStringLiteral("<path id=\"load_hook\" d=\"%1\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"2.2\""
                       " stroke-linecap=\"round\" vector-effect=\"none\"/>\n"
                       "<text id=\"n_label\" x=\"%2\" y=\"%3\" font-family=\"Liberation Sans, Arial, sans-serif\""
                       " font-size=\"13\" font-style=\"italic\" text-anchor=\"end\" fill=\"#1A1A1A\">n = 2</text>\n"
                       "</g>\n")
            .arg(Pulleys::hookPath(kMovingX, my + 24), format(left - 8), format(my + 4.5)) +
        QStringLiteral("<rect id=\"control_1\" x=\"%1\" y=\"%2\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
                       " y_from=\"%3\" y_to=\"%2\"/>\n"
                       "<rect id=\"control_2\" x=\"%4\" y=\"%5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\"/>\n"
                       "</svg>\n")
            .arg(format(kMovingX - 4.5), format(my + kPulleyGroupHookBelowAxle - 4.5),
                 format(kFixedY + CPulleyGroup::kMinDrop + kPulleyGroupHookBelowAxle - 4.5), format(right - 4.5),
                 format(kFixedY + kFreeRest - 4.5));
    return svg;
}

int CPulleyGroup::getSVGType() { return 205; }

void CPulleyGroup::ResetAtrribute() { addAttribute(kPulleyGroupSegmentsAttr, 1101, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_SEGMENTS")); }

void CPulleyGroup::SVGInit(bool, bool)
{
    HostColour::paintsOnly(*this, {QStringLiteral("ceiling")});
    UpdateCheckBox(false);
    refresh();
    Resize(false);
}

void CPulleyGroup::layout()
{
    if (!m_pDocument)
        return;
    const double d = drop(), my = kFixedY + d;
    hangMovingBlock(d);
    // Both falls that hold the movable pulley end on it; the free end pays out what they take in.
    const double left = kMovingX - kMovingR, between = kMovingX + kMovingR, right = kFixedX + kFixedR;
    Pulleys::setLine(m_pDocument->namedNode(QStringLiteral("rope_1")), QPointF(left, kBeamY + 5), QPointF(left, my));
    Pulleys::setLine(m_pDocument->namedNode(QStringLiteral("rope_2")), QPointF(between, my), QPointF(between, kFixedY));
    const QPointF end(right, kFixedY + Pulleys::freeEnd(kFalls, false, d, kMaxDrop, kFreeRest));
    Pulleys::setLine(m_pDocument->namedNode(QStringLiteral("free_end")), QPointF(right, kFixedY), end);
    Pulleys::centreOn(m_controlNodes.value(1), end);
}

void CPulleyGroup::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    PanelItems::append(*this, array, {{"idShowSegments", kPulleyGroupSegmentsAttr}});
    appendRopeLength(array);
}

bool CPulleyGroup::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idShowSegments", kPulleyGroupSegmentsAttr}}, bRecord, bUndo);
    typedRopeLength(values);
    return true;
}

