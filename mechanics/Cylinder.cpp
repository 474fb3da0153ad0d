#include "Cylinder.h"
#include "bases/HostColour.h"
#include "bases/PanelItems.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kCylinderRangeAttr = 5100, kCylinderColourAttr = 5101;
// Inside the glass: walls at x 24 and 68, the empty mark at y 260, full 200 above it.
constexpr double kCylinderLeft = 24, kRight = 68, kEmptyY = 260;
constexpr double kCentreX = (kCylinderLeft + kRight) / 2;
// The meniscus climbs the walls this far above its bottom.
constexpr double kMeniscusRise = 4;
constexpr double kCylinderTickX = 28;
constexpr LinearScale::PointerHandle kMeniscus{kEmptyY, -1};

struct CylinderRange {
    int capacity;
    int division;  // millilitres per tick
};
constexpr CylinderRange kCylinderRanges[] = {{50, 1}, {100, 1}, {250, 5}};

using SvgNumbers::format;

} // namespace

Cylinder::Cylinder(CSVGObj *owner) : CBasic(owner) {}

Cylinder::~Cylinder() = default;

QString Cylinder::getSVG()
{
    // The meniscus's handle travels the 200 units from empty to full.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"94px\" height=\"254px\" viewBox=\"-1 30 94 254\">\n"
        "<defs>\n"
        "<linearGradient id=\"cy_glass\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0\"/><stop offset=\"0.12\" stop-color=\"#FFFFFF\" stop-opacity=\"0.75\"/>"
        "<stop offset=\"0.22\" stop-color=\"#FFFFFF\" stop-opacity=\"0.1\"/><stop offset=\"0.8\" stop-color=\"#FFFFFF\" stop-opacity=\"0\"/>"
        "<stop offset=\"0.9\" stop-color=\"#FFFFFF\" stop-opacity=\"0.45\"/><stop offset=\"1\" stop-color=\"#FFFFFF\" stop-opacity=\"0\"/>"
        "</linearGradient>\n"
        "<linearGradient id=\"cy_shade\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#000000\" stop-opacity=\"0.18\"/><stop offset=\"0.3\" stop-color=\"#FFFFFF\" stop-opacity=\"0.4\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.22\"/>"
        "</linearGradient>\n"
        "</defs>\n"
        "<g id=\"body\">\n"
        "<path id=\"foot\" d=\"M4,281 L88,281 L83,270 L9,270 Z\" fill=\"#BCD3E8\" stroke=\"#5A7A9A\" stroke-width=\"1\""
        " stroke-linejoin=\"round\" vector-effect=\"none\"/>\n"
        "<path d=\"M4,281 L88,281 L83,270 L9,270 Z\" fill=\"url(#cy_shade)\"/>\n"
        "<rect x=\"28\" y=\"262\" width=\"36\" height=\"9\" fill=\"#DDEEFF\" fill-opacity=\"0.8\" stroke=\"#5A7A9A\""
        " stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<path d=\"M22,38 L22,264 L70,264 L70,38\" fill=\"#DDEEFF\" fill-opacity=\"0.6\" stroke=\"none\"/>\n"
        "</g>\n"
        "<path id=\"liquid\" d=\"M24,260 V176 C24,179 36,180 46,180 C56,180 68,179 68,176 V260 Z\" fill=\"#3A7BD5\""
        " fill-opacity=\"0.55\"/>\n"
        "<path id=\"surface\" d=\"M24,176 C24,179 36,180 46,180 C56,180 68,179 68,176\" fill=\"none\" stroke=\"#3A7BD5\""
        " stroke-width=\"1.4\" vector-effect=\"none\"/>\n"
        "<g id=\"glass\">\n"
        "<path d=\"M22,38 L22,264 L70,264 L70,38\" fill=\"url(#cy_glass)\"/>\n"
        "<path d=\"M22,36 L22,264 L70,264 L70,36\" fill=\"none\" stroke=\"#5A7A9A\" stroke-width=\"1.5\""
        " stroke-linejoin=\"round\" vector-effect=\"none\"/>\n"
        "<path d=\"M24,36 L24,260 L68,260 L68,36\" fill=\"none\" stroke=\"#5A7A9A\" stroke-width=\"0.6\" stroke-opacity=\"0.6\""
        " vector-effect=\"none\"/>\n"
        "<path d=\"M14,33 L22,36 L70,36 L72,33 L70,31 L22,31 Z\" fill=\"#DDEEFF\" fill-opacity=\"0.8\" stroke=\"#5A7A9A\""
        " stroke-width=\"1\" stroke-linejoin=\"round\" vector-effect=\"none\"/>\n"
        "<text x=\"46\" y=\"50\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"9\" text-anchor=\"middle\""
        " fill=\"#22313F\">mL</text>\n"
        "</g>\n"
        "<line id=\"line_1\" x1=\"28\" y1=\"260\" x2=\"48\" y2=\"260\" fill=\"none\" stroke=\"#22313F\" stroke-width=\"0.7\""
        " vector-effect=\"none\"/>\n"
        "<text id=\"text_10\" x=\"51\" y=\"243.2\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"9\""
        " fill=\"#22313F\">10</text>\n"
        "<rect id=\"control_1\" x=\"41.5\" y=\"175.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"55.5\" y_to=\"255.5\"/>\n"
        "</svg>\n");
}

int Cylinder::getSVGType() { return 302; }

void Cylinder::ResetAtrribute()
{
    addAttribute(kCylinderRangeAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_RANGE"), 1);
    addAttribute(kCylinderColourAttr, 1102, 3, QStringLiteral("IDS_SVG_PHYSICAL_LIQUID_COLOR"));
    m_attributes[kCylinderColourAttr].color = QColor(0x3A, 0x7B, 0xD5);
}

QByteArray Cylinder::GetComboboxData() { return LinearScale::rangeChoices(); }

LinearScale::Reading Cylinder::readingOf(int range) const
{
    // Read to half a division: 0.5 mL, or 2.5 mL on the 250 mL cylinder.
    const CylinderRange &r = kCylinderRanges[qBound(0, range, 2)];
    LinearScale::Reading reading;
    reading.length = kScaleHeight;
    reading.full = r.capacity;
    reading.steps = 2 * r.capacity / r.division;
    reading.decimals = -1;
    return reading;
}

LinearScale::Reading Cylinder::reading() const { return readingOf(m_attributes.value(kCylinderRangeAttr).intValue); }

double Cylinder::capacity() const { return reading().full; }

double Cylinder::level() const { return kMeniscus.travel(*this); }

QString Cylinder::volumeText() const
{
    const LinearScale::Reading r = reading();
    return r.text(r.stepAt(level()));
}

void Cylinder::SVGInit(bool, bool)
{
    HostColour::paintsOnly(*this, {QStringLiteral("foot")});
    if (QSvgNode *body = m_pDocument ? m_pDocument->namedNode(QStringLiteral("body")) : nullptr)
        m_rcBody = body->transformedBounds().united(m_pDocument->namedNode(QStringLiteral("glass"))->transformedBounds());
    layScale();
    layout();
    Resize(false);
}

void Cylinder::layScale()
{
    const int range = qBound(0, m_attributes.value(kCylinderRangeAttr).intValue, 2);
    const CylinderRange &r = kCylinderRanges[range];
    LinearScale::Ticks ticks;
    ticks.count = r.capacity / r.division + 1;
    ticks.zero = QPointF(kCylinderTickX, kEmptyY);
    ticks.pitch = QPointF(0, -kScaleHeight / (ticks.count - 1));
    ticks.shortLength = 9;
    ticks.mediumLength = 14;
    ticks.longLength = 20;
    LinearScale::layTicks(*this, ticks);
    const int division = r.division;
    LinearScale::layNumbers(*this, ticks, 10, 10, QPointF(23, 3.2), [division](int i) { return QString::number(i * division); });
    m_nScaleRange = range;
}

void Cylinder::UpdateCombobox(bool)
{
    const int range = qBound(0, m_attributes.value(kCylinderRangeAttr).intValue, 2);
    QSvgNode *h = m_controlNodes.value(0);
    // Another cylinder holds the same liquid where it fits: the volume stays, read to the
    // new half division; what does not fit fills it.
    if (h && !isLoading() && m_nScaleRange >= 0 && m_nScaleRange != range) {
        const LinearScale::Reading before = readingOf(m_nScaleRange), after = readingOf(range);
        const int step = after.stepOf(before.valueOf(before.stepAt(level())));
        kMeniscus.place(h, after.travelOf(step));
    }
    layScale();
    layout();
    repaint();
}

void Cylinder::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kCylinderColourAttr).color;
    if (QSvgNode *liquid = m_pDocument->namedNode(QStringLiteral("liquid")))
        liquid->setFillColor(c);
    if (QSvgNode *surface = m_pDocument->namedNode(QStringLiteral("surface")))
        surface->setStrokeColor(c.darker(135));
    repaint();
}

void Cylinder::layout()
{
    if (!m_pDocument)
        return;
    m_shown = {{QStringLiteral("idVolume"), volumeText()}};
    QSvgNode *liquid = m_pDocument->namedNode(QStringLiteral("liquid"));
    QSvgNode *surface = m_pDocument->namedNode(QStringLiteral("surface"));
    if (!liquid || !surface)
        return;
    const double h = level();
    const double m = kEmptyY - h;
    // The surface dips to its bottom in the middle and climbs both walls.
    const double wall = m - std::min(kMeniscusRise, std::max(0.0, h));
    const QString curve = QStringLiteral("C%1,%2 %3,%4 %5,%4 C%6,%4 %7,%2 %7,%8")
                              .arg(format(kCylinderLeft), format(wall + 0.75 * (m - wall)), format(kCentreX - 10), format(m), format(kCentreX),
                                   format(kCentreX + 10), format(kRight), format(wall));
    surface->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2 ").arg(format(kCylinderLeft), format(wall)) + curve);
    liquid->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2 V%3 ").arg(format(kCylinderLeft), format(kEmptyY), format(wall)) + curve +
                                                  QStringLiteral(" V%1 Z").arg(format(kEmptyY)));
    const bool some = h > 0;
    liquid->setVisible(some);
    surface->setVisible(some);
}

bool Cylinder::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    const ShownValues::Texts before = m_shown;
    if (m_nScaleRange != qBound(0, m_attributes.value(kCylinderRangeAttr).intValue, 2))
        layScale();
    // A drag comes to rest on the volume it shows: the meniscus stands at its reading.
    if (bFinal && !m_bByCode && !isLoading())
        kMeniscus.settle(node, reading(), offset);
    layout();
    if (!m_bByCode && !isLoading())
        ShownValues::postChanged(before, m_shown);
    Resize(bFinal);
    repaint();
    return true;
}

void Cylinder::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(m_rcBody.adjusted(-1, -1, 1, 1), topLeft, bottomRight);
    if (QSvgNode *h = m_controlNodes.value(0))
        enclose(h->rect(), topLeft, bottomRight);
}

void Cylinder::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    LinearScale::appendRange(*this, array, kCylinderRangeAttr);
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idVolume"), QStringLiteral("IDS_PHYSICSOBJ_VOLUME"), volumeText(),
                                               QStringLiteral("float"), QStringLiteral("0"), QString::number(capacity()),
                                               QStringLiteral("mL")));
    PanelItems::append(*this, array, {{"idLiquidColor", kCylinderColourAttr}});
}

bool Cylinder::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idRange", kCylinderRangeAttr}, {"idLiquidColor", kCylinderColourAttr}}, bRecord, bUndo);
    // A typed volume is read to the half division, and the level moves to it.
    kMeniscus.typed(*this, values, QStringLiteral("idVolume"), reading(), m_bByCode);
    return true;
}

bool Cylinder::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bByCode);
    return r;
}
