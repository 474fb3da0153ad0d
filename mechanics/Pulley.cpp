#include "Pulley.h"
#include "bases/HostColour.h"
#include "bases/PanelItems.h"
#include "bases/Pulleys.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {

constexpr int kPulleyHookAttr = 5100;
enum Hooks { OneEnd, TwoEnds };
// The wheel: its axle, radius, and the tangent points where the falls leave it.
constexpr double kAxleX = 100, kAxleY = 50, kPulleyRadius = 24;
constexpr double kPulleyLeftX = kAxleX - kPulleyRadius, kPulleyRightX = kAxleX + kPulleyRadius;

} // namespace

CPulley::CPulley(CSVGObj *owner) : CPulleyRig(owner) {}

CPulley::~CPulley() = default;

QString CPulley::getSVG()
{
    // The right fall's handle runs from 20 to 600 below the tangent point.
    static const QString svg =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                       "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"132px\" height=\"178px\""
                       " viewBox=\"34 -8 132 178\">\n<defs>\n") +
        Pulleys::defsSvg() + QStringLiteral("</defs>\n") + Pulleys::ceilingSvg(QStringLiteral("ceiling"), 40, 160) +
        Pulleys::wheelSvg(QStringLiteral("wheel"), kAxleX, kAxleY, kPulleyRadius) +
        Pulleys::lapSvg(QStringLiteral("rope_lap"), kAxleX, kAxleY, kPulleyRadius, true) +
        Pulleys::bracketSvg(QStringLiteral("bracket"), kAxleX, 10, kAxleY) +
        QStringLiteral(
            "<circle id=\"axle\" cx=\"100\" cy=\"50\" r=\"3\" fill=\"#3A434C\" stroke=\"#C9D0D6\" stroke-width=\"0.6\""
            " vector-effect=\"none\"/>\n") +
        Pulleys::ropeSvg(QStringLiteral("rope_left"), QPointF(kPulleyLeftX, kAxleY), QPointF(kPulleyLeftX, kAxleY + kLeftFall)) +
        Pulleys::ropeSvg(QStringLiteral("rope_right"), QPointF(kPulleyRightX, kAxleY), QPointF(kPulleyRightX, kAxleY + kLeftFall)) +
        QStringLiteral("<path id=\"hook_left\" d=\"%1\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"2\""
                       " stroke-linecap=\"round\" vector-effect=\"none\"/>\n"
                       "<path id=\"hook_right\" d=\"%2\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"2\""
                       " stroke-linecap=\"round\" vector-effect=\"none\"/>\n")
            .arg(Pulleys::hookPath(kPulleyLeftX, kAxleY + kLeftFall), Pulleys::hookPath(kPulleyRightX, kAxleY + kLeftFall)) +
        QStringLiteral("<rect id=\"control_1\" x=\"119.5\" y=\"145.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\""
                       " fill=\"#1700FE\" y_from=\"65.5\" y_to=\"645.5\"/>\n"
                       "</svg>\n");
    return svg;
}

int CPulley::getSVGType() { return 204; }

void CPulley::ResetAtrribute() { addAttribute(kPulleyHookAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_HOOK"), TwoEnds); }

QByteArray CPulley::GetComboboxData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(2) << int(0) << QStringLiteral("IDS_SVG_PHYSICAL_HOOK_WITH_ONE_END")
        << QStringLiteral("IDS_SVG_PHYSICAL_HOOK_WITH_TWO_ENDS");
    return data;
}

void CPulley::SVGInit(bool, bool)
{
    // The host's colour is the beam's; metal and rope keep theirs.
    HostColour::paintsOnly(*this, {QStringLiteral("ceiling")});
    refresh();
    Resize(false);
}

void CPulley::UpdateCombobox(bool)
{
    if (QSvgNode *hook = m_pDocument ? m_pDocument->namedNode(QStringLiteral("hook_left")) : nullptr)
        hook->setVisible(m_attributes.value(kPulleyHookAttr).intValue == TwoEnds);
    repaint();
}

double CPulley::rightFall() const
{
    QSvgNode *h = m_controlNodes.value(0);
    return h ? h->rect().center().y() - kAxleY : 0;
}

void CPulley::layout()
{
    if (!m_pDocument)
        return;
    const double end = kAxleY + rightFall();
    Pulleys::setLine(m_pDocument->namedNode(QStringLiteral("rope_right")), QPointF(kPulleyRightX, kAxleY), QPointF(kPulleyRightX, end));
    if (QSvgNode *hook = m_pDocument->namedNode(QStringLiteral("hook_right")))
        hook->setAttribute(QStringLiteral("d"), Pulleys::hookPath(kPulleyRightX, end));
}

void CPulley::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    // The options are told apart by the number of hooks they draw.
    array.append(m_pOwner->GetSettingJsonComboBox(QStringLiteral("idHookCount"), QStringLiteral("IDS_PHYSICSOBJ_HOOKCOUNT"),
                                                  m_attributes.value(kPulleyHookAttr).intValue, QStringList(),
                                                  {QStringLiteral("1"), QStringLiteral("2")}));
    appendRopeLength(array);
}

bool CPulley::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idHookCount", kPulleyHookAttr}}, bRecord, bUndo);
    typedRopeLength(values);
    return true;
}

