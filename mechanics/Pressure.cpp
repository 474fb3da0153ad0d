#include "Pressure.h"
#include "bases/HostColour.h"
#include "bases/PanelItems.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kPressureColourAttr = 5100, kProbeAttr = 5101;
// The arms' bores: left 95..105, right 155..165; both straight down to the bend at y 285.
constexpr double kPressureLeftX = 100, kPressureRightX = 160, kBore = 10, kBendTop = 285;
constexpr double kTravel = 100;  // 10 cm either way
constexpr LinearScale::PointerHandle kSurface{CPressure::kRestY, 1};

QString scaleTemplate()
{
    return QStringLiteral(
        "<line id=\"line_1\" x1=\"114\" y1=\"70\" x2=\"125\" y2=\"70\" fill=\"none\" stroke=\"#2A2015\" stroke-width=\"0.7\""
        " vector-effect=\"none\"/>\n"
        "<text id=\"text_0\" x=\"146\" y=\"73.2\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"9\""
        " text-anchor=\"end\" fill=\"#2A2015\">10</text>\n");
}

} // namespace

CPressure::CPressure(CSVGObj *owner) : CAttribute(owner) {}

CPressure::~CPressure() = default;

QString CPressure::getSVG()
{
    // Nothing resizes this drawing: the arms hold both levels over the whole travel.
    static const QString svg = QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"206px\" height=\"352px\" viewBox=\"0 0 206 352\">\n"
        "<defs>\n"
        "<linearGradient id=\"pr_wood\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0.15\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.18\"/><stop offset=\"0.5\" stop-color=\"#FFFFFF\" stop-opacity=\"0\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.15\"/></linearGradient>\n"
        "<linearGradient id=\"pr_glass\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.1\"/><stop offset=\"0.3\" stop-color=\"#FFFFFF\" stop-opacity=\"0.85\"/>"
        "<stop offset=\"0.55\" stop-color=\"#FFFFFF\" stop-opacity=\"0\"/><stop offset=\"1\" stop-color=\"#FFFFFF\" stop-opacity=\"0.25\"/>"
        "</linearGradient>\n"
        "<linearGradient id=\"pr_metal\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#6E7882\"/><stop offset=\"0.4\" stop-color=\"#D5DBE0\"/><stop offset=\"1\" stop-color=\"#59636D\"/>"
        "</linearGradient>\n"
        "</defs>\n"
        "<rect id=\"board\" x=\"72\" y=\"28\" width=\"116\" height=\"316\" rx=\"3\" ry=\"3\" fill=\"#C8A165\" stroke=\"#7A5A2E\""
        " stroke-width=\"1.2\" vector-effect=\"none\"/>\n"
        "<rect x=\"72\" y=\"28\" width=\"116\" height=\"316\" rx=\"3\" ry=\"3\" fill=\"url(#pr_wood)\"/>\n"
        "<path d=\"M80,40 C84,120 78,220 83,336 M178,36 C174,130 181,240 176,338 M150,300 C156,318 168,326 182,330\""
        " fill=\"none\" stroke=\"#7A5A2E\" stroke-opacity=\"0.35\" stroke-width=\"0.8\" vector-effect=\"none\"/>\n"
        "<rect x=\"111\" y=\"60\" width=\"38\" height=\"220\" fill=\"#FBF8F0\" stroke=\"#7A5A2E\" stroke-width=\"0.6\""
        " vector-effect=\"none\"/>\n"
        "<text x=\"130\" y=\"295\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"10\" text-anchor=\"middle\""
        " fill=\"#2A2015\">cm</text>\n") +
        scaleTemplate() +
        QStringLiteral(
        // The U: straight arms from the open tops down to the bend, drawn as glass around the liquid.
        "<path d=\"M93,50 V285 A37,37 0 0 0 167,285 V50 H153 V285 A23,23 0 0 1 107,285 V50 Z\" fill=\"#DDEEFF\""
        " fill-opacity=\"0.6\"/>\n"
        "<path id=\"liquid_bend\" d=\"M95,285 A35,35 0 0 0 165,285 H155 A25,25 0 0 1 105,285 Z\" fill=\"#3A7BD5\"/>\n"
        "<rect id=\"liquid_left\" x=\"95\" y=\"170\" width=\"10\" height=\"115\" fill=\"#3A7BD5\"/>\n"
        "<rect id=\"liquid_right\" x=\"155\" y=\"170\" width=\"10\" height=\"115\" fill=\"#3A7BD5\"/>\n"
        "<ellipse id=\"surface_left\" cx=\"100\" cy=\"170\" rx=\"5\" ry=\"1.6\" fill=\"#2C5FA8\"/>\n"
        "<ellipse id=\"surface_right\" cx=\"160\" cy=\"170\" rx=\"5\" ry=\"1.6\" fill=\"#2C5FA8\"/>\n"
        "<path d=\"M93,50 V285 A37,37 0 0 0 167,285 V50 H153 V285 A23,23 0 0 1 107,285 V50 Z\" fill=\"url(#pr_glass)\""
        " fill-opacity=\"0.5\"/>\n"
        "<path d=\"M93,50 V285 A37,37 0 0 0 167,285 V50 M153,50 V285 A23,23 0 0 1 107,285 V50\" fill=\"none\" stroke=\"#5A7A9A\""
        " stroke-width=\"1.4\" vector-effect=\"none\"/>\n"
        "<path d=\"M95,50 V285 A35,35 0 0 0 165,285 V50 M155,50 V285 A25,25 0 0 1 105,285 V50\" fill=\"none\" stroke=\"#5A7A9A\""
        " stroke-width=\"0.5\" stroke-opacity=\"0.6\" vector-effect=\"none\"/>\n"
        "<rect x=\"84\" y=\"56\" width=\"30\" height=\"5\" rx=\"1\" ry=\"1\" fill=\"url(#pr_metal)\"/>\n"
        "<rect x=\"146\" y=\"56\" width=\"30\" height=\"5\" rx=\"1\" ry=\"1\" fill=\"url(#pr_metal)\"/>\n"
        "<rect x=\"84\" y=\"274\" width=\"30\" height=\"5\" rx=\"1\" ry=\"1\" fill=\"url(#pr_metal)\"/>\n"
        "<rect x=\"146\" y=\"274\" width=\"30\" height=\"5\" rx=\"1\" ry=\"1\" fill=\"url(#pr_metal)\"/>\n"
        // The hose runs from the left arm's mouth over and down to the probe, a metal box
        // whose rubber membrane faces down.
        "<path id=\"hose\" d=\"M100,46 C100,12 30,8 26,50 L26,246\" fill=\"none\" stroke=\"#3B3B3B\" stroke-width=\"6\""
        " stroke-linecap=\"round\" vector-effect=\"none\"/>\n"
        "<g id=\"probe\">\n"
        "<rect x=\"14\" y=\"246\" width=\"24\" height=\"20\" rx=\"3\" ry=\"3\" fill=\"url(#pr_metal)\" stroke=\"#4A5560\""
        " stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<rect x=\"22\" y=\"240\" width=\"8\" height=\"7\" fill=\"#9EA7B0\" stroke=\"#4A5560\" stroke-width=\"0.8\""
        " vector-effect=\"none\"/>\n"
        "<path d=\"M13,266 C18,272 34,272 39,266 Z\" fill=\"#B23A2E\" stroke=\"#6E1F18\" stroke-width=\"0.8\""
        " vector-effect=\"none\"/>\n"
        "</g>\n"
        "<path d=\"M96,50 H104 M156,50 H164\" fill=\"none\" stroke=\"#5A7A9A\" stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<rect id=\"control_1\" x=\"95.5\" y=\"165.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"65.5\" y_to=\"265.5\"/>\n"
        "</svg>\n");
    return svg;
}

int CPressure::getSVGType() { return 301; }

void CPressure::ResetAtrribute()
{
    addAttribute(kPressureColourAttr, 1101, 3, QStringLiteral("IDS_SVG_PHYSICAL_LIQUID_COLOR"));
    m_attributes[kPressureColourAttr].color = QColor(0x3A, 0x7B, 0xD5);
    addAttribute(kProbeAttr, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_PROBE"), 0, true);
}

LinearScale::Reading CPressure::reading()
{
    // h = 2d: a drop of 100 units (10 cm) reads 20 cm, to a tenth of a centimetre.
    LinearScale::Reading r;
    r.length = kTravel;
    r.full = 20;
    r.steps = 200;
    r.decimals = 1;
    r.bothWays = true;
    return r;
}

double CPressure::drop() const { return kSurface.travel(*this); }

QString CPressure::differenceText() const
{
    const LinearScale::Reading r = reading();
    return r.text(r.stepAt(drop()));
}

void CPressure::SVGInit(bool, bool)
{
    HostColour::paintsOnly(*this, {QStringLiteral("board")});
    // A centimetre scale about the rest level, +10 at the top: a tick every half
    // centimetre, longer at each centimetre, numbered every second one.
    LinearScale::Ticks ticks;
    ticks.zero = QPointF(114, kRestY - kTravel);
    ticks.pitch = QPointF(0, kUnitsPerCm / 2);
    ticks.count = 41;
    ticks.shortLength = 5;
    ticks.mediumLength = 8;
    ticks.longLength = 11;
    ticks.mediumEvery = 2;
    ticks.longEvery = 4;
    LinearScale::layTicks(*this, ticks);
    LinearScale::layNumbers(*this, ticks, 0, 4, QPointF(32, 3.2), [](int i) {
        const int cm = 10 - i / 2;
        return cm < 0 ? QStringLiteral("\u2212%1").arg(-cm) : QString::number(cm);
    });
    layout();
}

void CPressure::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kPressureColourAttr).color;
    for (const char *id : {"liquid_left", "liquid_right", "liquid_bend"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setFillColor(c);
    for (const char *id : {"surface_left", "surface_right"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setFillColor(c.darker(130));
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CPressure::UpdateCheckBox(bool)
{
    const bool shown = m_attributes.value(kProbeAttr).boolValue;
    for (const char *id : {"hose", "probe"})
        if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QLatin1String(id)) : nullptr)
            n->setVisible(shown);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CPressure::layout()
{
    if (!m_pDocument)
        return;
    m_shown = {{QStringLiteral("idHeightDiff"), differenceText()}};
    // What leaves one arm rises in the other.
    const double d = drop();
    const double levels[2] = {kRestY + d, kRestY - d};
    const char *columns[2] = {"liquid_left", "liquid_right"}, *surfaces[2] = {"surface_left", "surface_right"};
    for (int i = 0; i < 2; ++i) {
        if (QSvgNode *c = m_pDocument->namedNode(QLatin1String(columns[i]))) {
            c->setNumAttribute(QStringLiteral("y"), levels[i]);
            c->setNumAttribute(QStringLiteral("height"), kBendTop - levels[i]);
        }
        if (QSvgNode *s = m_pDocument->namedNode(QLatin1String(surfaces[i])))
            s->setNumAttribute(QStringLiteral("cy"), levels[i]);
    }
}

bool CPressure::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    const ShownValues::Texts before = m_shown;
    // A drag comes to rest on the difference it shows: the levels differ by the reading.
    if (bFinal && !m_bByCode && !isLoading())
        kSurface.settle(node, reading(), offset);
    layout();
    if (!m_bByCode && !isLoading())
        ShownValues::postChanged(before, m_shown);
    if (m_pOwner)
        m_pOwner->update(QRectF());
    return true;
}

void CPressure::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    PanelItems::append(*this, array, {{"idLiquidColor", kPressureColourAttr}, {"idShowProbe", kProbeAttr}});
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idHeightDiff"), QStringLiteral("IDS_PHYSICSOBJ_HEIGHT_DIFF"),
                                               differenceText(), QStringLiteral("float"), QStringLiteral("-20"),
                                               QStringLiteral("20"), QStringLiteral("cm")));
}

bool CPressure::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idLiquidColor", kPressureColourAttr}, {"idShowProbe", kProbeAttr}}, bRecord, bUndo);
    // A typed difference, to a tenth of a centimetre, splits evenly between the arms.
    kSurface.typed(*this, values, QStringLiteral("idHeightDiff"), reading(), m_bByCode);
    return true;
}

bool CPressure::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bByCode);
    return r;
}
