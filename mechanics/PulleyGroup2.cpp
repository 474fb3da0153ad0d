#include "PulleyGroup2.h"
#include "bases/HostColour.h"
#include "bases/PanelItems.h"
#include "bases/Pulleys.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {

constexpr int kRopeEndAttr = 5100, kPulleyGroup2SegmentsAttr = 5101;
enum RopeEnd { PullDown, PullUp };
// Four wheels of one size, so that every fall runs straight between two tangent points,
// 2R apart. Pulled down, the fixed wheels stand over the gaps to the right of the movable
// ones; pulled up, the fixed block stands 4R further left and the rope starts at the
// movable block.
constexpr double kR = 16;
constexpr double kFixed1X = 88, kFixed2X = 152, kMoving1X = 56, kMoving2X = 120;
constexpr double kPullUpShift = -4 * kR;
// Where the rope's first fall runs: from the beam down to the first movable wheel, or
// up from the crossbar's arm to the first fixed wheel.
constexpr double kDownStart = kMoving1X - kR, kUpStart = kFixed1X + kPullUpShift - kR;
constexpr double kBarBelowAxle = 24, kPulleyGroup2HookBelowAxle = 46, kHookX = (kMoving1X + kMoving2X) / 2;

using SvgNumbers::format;

} // namespace

CPulleyGroup2::CPulleyGroup2(CSVGObj *owner) : CPulleyBlock(owner, kPulleyGroup2HookBelowAxle, kPulleyGroup2SegmentsAttr) {}

CPulleyGroup2::~CPulleyGroup2() = default;

QString CPulleyGroup2::getSVG()
{
    constexpr double my = kFixedY + CPulleyGroup2::kMaxDrop, bar = my + kBarBelowAxle;
    const QString axle = QStringLiteral("<circle cx=\"%1\" cy=\"%2\" r=\"3\" fill=\"#3A434C\" stroke=\"#C9D0D6\""
                                        " stroke-width=\"0.6\" vector-effect=\"none\"/>\n");
    static const QString svg =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                       "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"178px\" height=\"354px\""
                       " viewBox=\"16 -8 178 354\">\n<defs>\n") +
        Pulleys::defsSvg() + QStringLiteral("</defs>\n<g id=\"fixed\" transform=\"translate(0,0)\">\n") +
        Pulleys::ceilingSvg(QStringLiteral("ceiling"), 24, 184) +
        Pulleys::wheelSvg(QStringLiteral("fixed_wheel_1"), kFixed1X, kFixedY, kR) +
        Pulleys::wheelSvg(QStringLiteral("fixed_wheel_2"), kFixed2X, kFixedY, kR) +
        Pulleys::lapSvg(QStringLiteral("lap_fixed_1"), kFixed1X, kFixedY, kR, true) +
        Pulleys::lapSvg(QStringLiteral("lap_fixed_2"), kFixed2X, kFixedY, kR, true) +
        Pulleys::bracketSvg(QStringLiteral("bracket_1"), kFixed1X, kBeamY, kFixedY) +
        Pulleys::bracketSvg(QStringLiteral("bracket_2"), kFixed2X, kBeamY, kFixedY) +
        axle.arg(format(kFixed1X), format(kFixedY)) + axle.arg(format(kFixed2X), format(kFixedY)) +
        QStringLiteral("<circle id=\"anchor_fixed\" cx=\"%1\" cy=\"12.5\" r=\"2.5\" fill=\"none\" stroke=\"#4A5560\""
                       " stroke-width=\"1.4\" vector-effect=\"none\"/>\n</g>\n")
            .arg(format(kMoving1X - kR)) +
        Pulleys::ropeSvg(QStringLiteral("rope_1"), QPointF(40, 15), QPointF(40, my)) +
        Pulleys::ropeSvg(QStringLiteral("rope_2"), QPointF(72, my), QPointF(72, kFixedY)) +
        Pulleys::ropeSvg(QStringLiteral("rope_3"), QPointF(104, kFixedY), QPointF(104, my)) +
        Pulleys::ropeSvg(QStringLiteral("rope_4"), QPointF(136, my), QPointF(136, kFixedY)) +
        Pulleys::ropeSvg(QStringLiteral("free_end"), QPointF(168, kFixedY), QPointF(168, kFixedY + kFreeRest)) +
        QStringLiteral("<g id=\"moving\" transform=\"translate(0,0)\">\n") +
        Pulleys::wheelSvg(QStringLiteral("moving_wheel_1"), kMoving1X, my, kR) +
        Pulleys::wheelSvg(QStringLiteral("moving_wheel_2"), kMoving2X, my, kR) +
        Pulleys::lapSvg(QStringLiteral("lap_moving_1"), kMoving1X, my, kR, false) +
        Pulleys::lapSvg(QStringLiteral("lap_moving_2"), kMoving2X, my, kR, false) +
        Pulleys::strapSvg(kMoving1X, my, bar) + Pulleys::strapSvg(kMoving2X, my, bar) +
        // The crossbar, and the arm that carries the rope's start when it is pulled up.
        QStringLiteral("<path id=\"anchor_moving\" d=\"M%1,%2 H%3 V%4 H%1 Z M%5,%2 V%6\" fill=\"url(#pl_strap)\""
                       " stroke=\"#4A5560\" stroke-width=\"0.8\" vector-effect=\"none\"/>\n"
                       "<rect x=\"%7\" y=\"%2\" width=\"%8\" height=\"6\" rx=\"1.5\" ry=\"1.5\" fill=\"url(#pl_strap)\""
                       " stroke=\"#4A5560\" stroke-width=\"0.8\" vector-effect=\"none\"/>\n")
            .arg(format(kUpStart - 4), format(bar), format(kMoving1X - 6), format(bar + 6), format(kUpStart), format(bar - 3), format(kMoving1X - 6), format(kMoving2X - kMoving1X + 12)) +
        QStringLiteral("<path id=\"load_hook\" d=\"%1\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"2.2\""
                       " stroke-linecap=\"round\" vector-effect=\"none\"/>\n"
                       "<text id=\"n_label\" x=\"%2\" y=\"%3\" font-family=\"Liberation Sans, Arial, sans-serif\""
                       " font-size=\"13\" font-style=\"italic\" text-anchor=\"end\" fill=\"#1A1A1A\">n = 4</text>\n"
                       "</g>\n")
            .arg(Pulleys::hookPath(kHookX, bar + 6), format(kDownStart - 8), format(my + 4.5)) +
        QStringLiteral("<rect id=\"control_1\" x=\"%1\" y=\"%2\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
                       " y_from=\"%3\" y_to=\"%2\"/>\n"
                       "<rect id=\"control_2\" x=\"%4\" y=\"%5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\"/>\n"
                       "</svg>\n")
            .arg(format(kHookX - 4.5), format(my + kPulleyGroup2HookBelowAxle - 4.5),
                 format(kFixedY + CPulleyGroup2::kMinDrop + kPulleyGroup2HookBelowAxle - 4.5), format(168 - 4.5), format(kFixedY + kFreeRest - 4.5));
    return svg;
}

int CPulleyGroup2::getSVGType() { return 206; }

void CPulleyGroup2::ResetAtrribute()
{
    addAttribute(kRopeEndAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_ROPE_END"), PullDown);
    addAttribute(kPulleyGroup2SegmentsAttr, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_SEGMENTS"));
}

QByteArray CPulleyGroup2::GetComboboxData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(2) << int(0) << QStringLiteral("IDS_SVG_PHYSICAL_PULL_DOWN") << QStringLiteral("IDS_SVG_PHYSICAL_PULL_UP");
    return data;
}

bool CPulleyGroup2::pulledUp() const { return m_attributes.value(kRopeEndAttr).intValue == PullUp; }

int CPulleyGroup2::falls() const { return pulledUp() ? 5 : 4; }

void CPulleyGroup2::SVGInit(bool, bool)
{
    HostColour::paintsOnly(*this, {QStringLiteral("ceiling")});
    UpdateCheckBox(false);
    UpdateCombobox(false);
}

void CPulleyGroup2::UpdateCombobox(bool)
{
    if (!m_pDocument)
        return;
    const bool up = pulledUp();
    if (QSvgNode *fixed = m_pDocument->namedNode(QStringLiteral("fixed")))
        fixed->setAttribute(QStringLiteral("transform"), QStringLiteral("translate(%1,0)").arg(format(up ? kPullUpShift : 0)));
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("anchor_fixed")))
        n->setVisible(!up);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("anchor_moving")))
        n->setVisible(up);
    if (QSvgNode *label = m_pDocument->namedNode(QStringLiteral("n_label"))) {
        label->setText(QStringLiteral("n = %1").arg(falls()));
        label->setNumAttribute(QStringLiteral("x"), (up ? kUpStart : kDownStart) - 8);
    }
    refresh();
    Resize(true);
    repaint();
}

void CPulleyGroup2::layout()
{
    if (!m_pDocument)
        return;
    const double d = drop(), my = kFixedY + d;
    hangMovingBlock(d);
    // The falls run between the fixed axles' level and the movable ones', 2R apart from
    // the rope's start on; where the rope starts decides which end is which.
    const bool up = pulledUp();
    const double start = up ? kUpStart : kDownStart;
    static const QString ids[4] = {QStringLiteral("rope_1"), QStringLiteral("rope_2"), QStringLiteral("rope_3"),
                                   QStringLiteral("rope_4")};
    for (int k = 0; k < 4; ++k) {
        const double x = start + 2 * kR * k;
        // Pulled down the first fall hangs from the beam; pulled up it rises from the crossbar.
        QPointF top(x, kFixedY), bottom(x, my);
        if (k == 0)
            (up ? bottom : top) = QPointF(x, up ? my + kBarBelowAxle : kBeamY + 5);
        Pulleys::setLine(m_pDocument->namedNode(ids[k]), top, bottom);
    }
    const double x = start + 8 * kR;
    const double length = Pulleys::freeEnd(falls(), up, d, kMaxDrop, kFreeRest);
    const QPointF from(x, up ? my : kFixedY), end(x, up ? my - length : kFixedY + length);
    Pulleys::setLine(m_pDocument->namedNode(QStringLiteral("free_end")), from, end);
    Pulleys::centreOn(m_controlNodes.value(1), end);
}

void CPulleyGroup2::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    PanelItems::append(*this, array, {{"idRopeEnd", kRopeEndAttr}, {"idShowSegments", kPulleyGroup2SegmentsAttr}});
    appendRopeLength(array);
}

bool CPulleyGroup2::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idRopeEnd", kRopeEndAttr}, {"idShowSegments", kPulleyGroup2SegmentsAttr}}, bRecord, bUndo);
    typedRopeLength(values);
    return true;
}

