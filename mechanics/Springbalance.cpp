#include "Springbalance.h"
#include "bases/HostColour.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kSpringbalanceRangeAttr = 5100;
constexpr int kTurns = 12;
// The scale: zero tick at the top, one tick per minor division (3 units), ticks running
// left from beside the slot.
constexpr double kZeroY = 90, kSpringbalanceTickX = 40, kSpringbalancePitch = 3;
// The spring hangs from the top of the slot; the carriage below it carries the pointer.
constexpr double kSpringTop = 38, kCarriageAbovePointer = 4, kSpringLeft = 43.5, kSpringRight = 52.5;
// The hook's lowest point (where the handle sits) with nothing on it.
constexpr double kHookRestY = 284;
constexpr LinearScale::PointerHandle kHook{kHookRestY, 1};

struct SpringbalanceRange {
    double full;
    int steps;     // the reading's resolution over the full scale
    int decimals;
};
constexpr SpringbalanceRange kSpringbalanceRanges[] = {{2.5, 250, 2}, {5, 50, 1}, {10, 100, 1}};

using SvgNumbers::format;

QString bodySvg()
{
    return QStringLiteral(
        "<defs>\n"
        "<linearGradient id=\"sb_metal\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#000000\" stop-opacity=\"0.28\"/><stop offset=\"0.35\" stop-color=\"#FFFFFF\" stop-opacity=\"0.35\"/>"
        "<stop offset=\"0.6\" stop-color=\"#FFFFFF\" stop-opacity=\"0.08\"/><stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.32\"/>"
        "</linearGradient>\n"
        "<linearGradient id=\"sb_slot\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#1E2226\"/><stop offset=\"0.5\" stop-color=\"#3C434A\"/><stop offset=\"1\" stop-color=\"#1E2226\"/>"
        "</linearGradient>\n"
        "<linearGradient id=\"sb_rod\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#6B747D\"/><stop offset=\"0.45\" stop-color=\"#E4E8EC\"/><stop offset=\"1\" stop-color=\"#5E6770\"/>"
        "</linearGradient>\n"
        "</defs>\n"
        "<g id=\"body\">\n"
        "<circle cx=\"36\" cy=\"11\" r=\"7\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"3\" vector-effect=\"none\"/>\n"
        "<rect x=\"33.5\" y=\"17.5\" width=\"5\" height=\"8\" fill=\"url(#sb_rod)\" stroke=\"#4A5560\" stroke-width=\"0.6\" vector-effect=\"none\"/>\n"
        "<rect id=\"case\" x=\"0.5\" y=\"24\" width=\"71\" height=\"238\" rx=\"7\" ry=\"7\" fill=\"#9EA7B0\" stroke=\"#4A5560\""
        " stroke-width=\"1.2\" vector-effect=\"none\"/>\n"
        "<rect x=\"0.5\" y=\"24\" width=\"71\" height=\"238\" rx=\"7\" ry=\"7\" fill=\"url(#sb_metal)\"/>\n"
        "<rect x=\"6\" y=\"30\" width=\"60\" height=\"226\" rx=\"3\" ry=\"3\" fill=\"#F6F3EA\" stroke=\"#8C8778\" stroke-width=\"0.8\""
        " vector-effect=\"none\"/>\n"
        "<rect x=\"42\" y=\"33\" width=\"12\" height=\"221\" rx=\"2\" ry=\"2\" fill=\"url(#sb_slot)\"/>\n"
        "<rect x=\"41.5\" y=\"33\" width=\"13\" height=\"5\" fill=\"#9EA7B0\" stroke=\"#4A5560\" stroke-width=\"0.6\" vector-effect=\"none\"/>\n"
        "<text x=\"24\" y=\"72\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"13\" font-weight=\"bold\""
        " text-anchor=\"middle\" fill=\"#1A1A1A\">N</text>\n"
        "</g>\n");
}

} // namespace

CSpringbalance::CSpringbalance(CSVGObj *owner) : CBasic(owner) {}

CSpringbalance::~CSpringbalance() = default;

QString CSpringbalance::getSVG()
{
    // The hook's handle may go 150 units down: the full scale.
    static const QString svg =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                       "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"74px\" height=\"292px\""
                       " viewBox=\"-1 2 74 292\">\n") +
        bodySvg() +
        QStringLiteral(
            "<line id=\"line_1\" x1=\"40\" y1=\"90\" x2=\"28\" y2=\"90\" fill=\"none\" stroke=\"#1A1A1A\" stroke-width=\"0.8\""
            " vector-effect=\"none\"/>\n"
            "<text id=\"text_0\" x=\"25\" y=\"93.6\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"10\""
            " text-anchor=\"end\" fill=\"#1A1A1A\">0</text>\n"
            "<g id=\"turn_1\">"
            "<line x1=\"52.5\" y1=\"40\" x2=\"43.5\" y2=\"42\" fill=\"none\" stroke=\"#737C85\" stroke-width=\"1.2\""
            " stroke-linecap=\"round\" vector-effect=\"none\"/>"
            "<line x1=\"43.5\" y1=\"38\" x2=\"52.5\" y2=\"40\" fill=\"none\" stroke=\"#E3E7EB\" stroke-width=\"1.6\""
            " stroke-linecap=\"round\" vector-effect=\"none\"/>"
            "</g>\n"
            "<g id=\"slider\" transform=\"translate(0,0)\">\n"
            "<rect x=\"47\" y=\"93\" width=\"2\" height=\"173\" fill=\"url(#sb_rod)\"/>\n"
            "<rect x=\"43\" y=\"86\" width=\"10\" height=\"7\" rx=\"1\" ry=\"1\" fill=\"#B8C0C8\" stroke=\"#4A5560\" stroke-width=\"0.6\""
            " vector-effect=\"none\"/>\n"
            "<polygon id=\"pointer\" points=\"40,90 45,87.6 55,87.6 55,92.4 45,92.4\" fill=\"#E02020\" stroke=\"#8E1010\""
            " stroke-width=\"0.5\" vector-effect=\"none\"/>\n"
            "<path id=\"hook\" d=\"M48,264 V278 A6,6 0 1 1 36,278 V274\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"2.4\""
            " stroke-linecap=\"round\" vector-effect=\"none\"/>\n"
            "</g>\n"
            "<rect id=\"control_1\" x=\"37.5\" y=\"279.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
            " y_from=\"279.5\" y_to=\"429.5\"/>\n"
            "</svg>\n");
    return svg;
}

int CSpringbalance::getSVGType() { return 203; }

void CSpringbalance::ResetAtrribute() { addAttribute(kSpringbalanceRangeAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_RANGE"), 1); }

QByteArray CSpringbalance::GetComboboxData() { return LinearScale::rangeChoices(); }

LinearScale::Reading CSpringbalance::reading() const
{
    const SpringbalanceRange &r = kSpringbalanceRanges[qBound(0, m_attributes.value(kSpringbalanceRangeAttr).intValue, 2)];
    LinearScale::Reading reading;
    reading.length = kScaleLength;
    reading.full = r.full;
    reading.steps = r.steps;
    reading.decimals = r.decimals;
    return reading;
}

double CSpringbalance::fullScale() const { return reading().full; }

double CSpringbalance::travel() const { return kHook.travel(*this); }

QString CSpringbalance::readingText() const
{
    const LinearScale::Reading r = reading();
    return r.text(r.stepAt(travel()));
}

void CSpringbalance::SVGInit(bool, bool)
{
    Series::fit(*this, QStringLiteral("turn"), kTurns);
    HostColour::paintsOnly(*this, {QStringLiteral("case")});
    if (QSvgNode *body = m_pDocument ? m_pDocument->namedNode(QStringLiteral("body")) : nullptr)
        m_rcBody = body->transformedBounds();
    layScale();
    layout();
    Resize(false);
}

void CSpringbalance::UpdateCombobox(bool)
{
    // A new range keeps the hook where it is: the same stretch reads another force.
    layScale();
    layout();
    repaint();
}

void CSpringbalance::layScale()
{
    // The scale: 50 divisions over 150 units, numbered at every tenth tick in the range's units.
    LinearScale::Ticks ticks;
    ticks.zero = QPointF(kSpringbalanceTickX, kZeroY);
    ticks.pitch = QPointF(0, kSpringbalancePitch);
    ticks.across = QPointF(-1, 0);
    ticks.count = 51;
    ticks.shortLength = 5;
    ticks.mediumLength = 8;
    ticks.longLength = 12;
    LinearScale::layTicks(*this, ticks);
    const double full = fullScale();
    LinearScale::layNumbers(*this, ticks, 0, 10, QPointF(-15, 3.6),
                            [full](int i) { return QString::number(i * full / 50); });
}

void CSpringbalance::layout()
{
    if (!m_pDocument)
        return;
    m_shown = {{QStringLiteral("idForceValue"), readingText()}};
    const double t = travel(), pointerY = kZeroY + t;
    if (QSvgNode *slider = m_pDocument->namedNode(QStringLiteral("slider")))
        slider->setAttribute(QStringLiteral("transform"), QStringLiteral("translate(0,%1)").arg(format(t)));
    // The turns share the stretch evenly, each a front strand and a back strand.
    const double pitch = (pointerY - kCarriageAbovePointer - kSpringTop) / kTurns;
    const QVector<QSvgNode *> turns = Series::members(*this, QStringLiteral("turn"));
    for (int k = 0; k < turns.size(); ++k) {
        const auto &strands = turns[k]->children();
        if (strands.size() < 2)
            continue;
        const double top = kSpringTop + k * pitch;
        QSvgNode *back = strands[0].get(), *front = strands[1].get();
        front->setNumAttribute(QStringLiteral("y1"), top);
        front->setNumAttribute(QStringLiteral("y2"), top + pitch / 2);
        back->setNumAttribute(QStringLiteral("y1"), top + pitch / 2);
        back->setNumAttribute(QStringLiteral("y2"), top + pitch);
    }
}

bool CSpringbalance::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    const ShownValues::Texts before = m_shown;
    // A drag comes to rest on the reading it shows, so that the pointer stands where the
    // reading says.
    if (bFinal && !m_bByCode && !isLoading())
        kHook.settle(node, reading(), offset);
    layout();
    if (!m_bByCode && !isLoading())
        ShownValues::postChanged(before, m_shown);
    Resize(bFinal);
    repaint();
    return true;
}

void CSpringbalance::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(m_rcBody.adjusted(-1, -1, 1, 1), topLeft, bottomRight);
    if (QSvgNode *h = m_controlNodes.value(0))
        enclose(h->rect().adjusted(-1, -1, 1, 1), topLeft, bottomRight);
}

void CSpringbalance::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    LinearScale::appendRange(*this, array, kSpringbalanceRangeAttr);
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idForceValue"), QStringLiteral("IDS_PHYSICSOBJ_READING"),
                                               readingText(), QStringLiteral("float"), QStringLiteral("0"),
                                               QString::number(fullScale()), QStringLiteral("N")));
}

bool CSpringbalance::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idRange", kSpringbalanceRangeAttr}}, bRecord, bUndo);
    // A typed reading is taken to the scale's resolution, and the hook moves to it.
    kHook.typed(*this, values, QStringLiteral("idForceValue"), reading(), m_bByCode);
    return true;
}

bool CSpringbalance::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bByCode);
    return r;
}
