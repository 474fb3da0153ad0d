#include "Propeller.h"
#include "bases/HandlePos.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kPropellerCountAttr = 5100, kPropellerColourAttr = 5101;
constexpr double kHubX = 60, kHubY = 60;

using SvgNumbers::format;

} // namespace

CPropeller::CPropeller(CSVGObj *owner) : CAttribute(owner)
{
    m_bItemsOutline = true;
}

CPropeller::~CPropeller() = default;

QString CPropeller::getSVG()
{
    // Nothing resizes this drawing: it holds the tip's whole circle.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"120px\" height=\"120px\" viewBox=\"0 0 120 120\">\n"
        "<defs>\n"
        "<radialGradient id=\"pp_hub\" cx=\"0.38\" cy=\"0.35\" r=\"0.7\">"
        "<stop offset=\"0\" stop-color=\"#D5DBE0\"/><stop offset=\"0.45\" stop-color=\"#8C959E\"/>"
        "<stop offset=\"1\" stop-color=\"#4A5560\"/></radialGradient>\n"
        "<linearGradient id=\"pp_sheen\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.55\"/><stop offset=\"0.6\" stop-color=\"#FFFFFF\""
        " stop-opacity=\"0.05\"/><stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.2\"/></linearGradient>\n"
        "</defs>\n"
        "<g id=\"rotor\" rotate_x=\"60\" rotate_y=\"60\" rotate_from=\"-180\" rotate_to=\"180\" rotate_angle=\"0\">\n"
        // A blade pointing up: its leading edge (left) fuller than its trailing edge.
        "<g id=\"blade_1\" transform=\"rotate(0 60 60)\">"
        "<path d=\"M55.5,52 C47.5,40 48,21 56.5,12.5 C58.5,10.4 61.8,10.4 63.6,12.8 C68,21 67.2,39 64.5,52 Z\" fill=\"#607D8B\""
        " stroke=\"#37474F\" stroke-width=\"1\" stroke-linejoin=\"round\" vector-effect=\"none\"/>"
        "<path d=\"M55.5,52 C47.5,40 48,21 56.5,12.5 C58.5,10.4 61.8,10.4 63.6,12.8 C68,21 67.2,39 64.5,52 Z\""
        " fill=\"url(#pp_sheen)\"/>"
        "<path d=\"M60,50 C59,38 59.2,22 60.4,13\" fill=\"none\" stroke=\"#FFFFFF\" stroke-opacity=\"0.35\" stroke-width=\"0.8\""
        " vector-effect=\"none\"/>"
        "</g>\n"
        "<circle cx=\"60\" cy=\"60\" r=\"12\" fill=\"url(#pp_hub)\" stroke=\"#4A5560\" stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<circle cx=\"60\" cy=\"60\" r=\"4.5\" fill=\"#59636D\" stroke=\"#2F363D\" stroke-width=\"0.8\" vector-effect=\"none\"/>\n"
        "<circle cx=\"58.6\" cy=\"58.6\" r=\"1.4\" fill=\"#FFFFFF\" fill-opacity=\"0.6\"/>\n"
        "</g>\n"
        "<rect id=\"control_1\" x=\"55.5\" y=\"5.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"5.5\" x_to=\"105.5\" y_from=\"5.5\" y_to=\"105.5\"/>\n"
        "</svg>\n");
}

int CPropeller::getSVGType() { return 300; }

void CPropeller::ResetAtrribute()
{
    addAttribute(kPropellerCountAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_BLADE_COUNT"), 1);
    addAttribute(kPropellerColourAttr, 1102, 3, QStringLiteral("IDS_SVG_PHYSICAL_BLADE_COLOR"));
    m_attributes[kPropellerColourAttr].color = QColor(0x60, 0x7D, 0x8B);
}

QByteArray CPropeller::GetComboboxData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(3) << int(0) << QStringLiteral("2") << QStringLiteral("3") << QStringLiteral("4");
    return data;
}

int CPropeller::blades() const { return qBound(0, m_attributes.value(kPropellerCountAttr).intValue, 2) + 2; }

void CPropeller::SVGInit(bool, bool)
{
    layBlades();
    layout();
}

void CPropeller::UpdateCombobox(bool)
{
    layBlades();
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CPropeller::layBlades()
{
    // Evenly spaced, blade_1 first and the others on round anticlockwise.
    const int n = blades();
    const QVector<QSvgNode *> all = Series::fit(*this, QStringLiteral("blade"), n);
    for (int k = 0; k < all.size(); ++k)
        all[k]->setAttribute(QStringLiteral("transform"),
                             QStringLiteral("rotate(%1 %2 %3)").arg(format(-360.0 * k / n), format(kHubX), format(kHubY)));
    UpdateColor(false);
}

void CPropeller::UpdateColor(bool)
{
    const QColor c = m_attributes.value(kPropellerColourAttr).color;
    for (QSvgNode *blade : Series::members(*this, QStringLiteral("blade")))
        if (!blade->children().empty())
            blade->children().front()->setFillColor(c);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CPropeller::layout()
{
    if (!m_pDocument)
        return;
    const QPointF hub(kHubX, kHubY);
    const HandlePos::Polar tip = HandlePos::tip(*this, 0, hub, kTipRadius, kTipRadius, m_dAngle);
    m_dAngle = tip.angle;
    HandlePos::placeAt(*this, 0, hub, tip);
    // The rotor's angle turns clockwise on screen; blade_1 is drawn pointing up.
    if (QSvgNode *rotor = m_pDocument->namedNode(QStringLiteral("rotor")))
        rotor->setNumAttribute(QStringLiteral("rotate_angle"), 90 - m_dAngle);
    m_shown = {{QStringLiteral("idAngle"), QString::number(HandlePos::shownDegrees(m_dAngle))}};
}

bool CPropeller::updateSVG(QSvgNode *node, QPointF, bool)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    const ShownValues::Texts before = m_shown;
    layout();
    if (!m_bByCode && !isLoading())
        ShownValues::postChanged(before, m_shown);
    updateOutlineRegion();
    if (m_pOwner)
        m_pOwner->update(QRectF());
    return true;
}

void CPropeller::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    PanelItems::append(*this, array, {{"idBladeCount", kPropellerCountAttr}, {"idBladeColor", kPropellerColourAttr}});
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idAngle"), QStringLiteral("IDS_PHYSICSOBJ_ANGLE"),
                                               QString::number(HandlePos::shownDegrees(m_dAngle)), QStringLiteral("int"),
                                               QStringLiteral("-180"), QStringLiteral("180"), QStringLiteral("°")));
}

bool CPropeller::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idBladeCount", kPropellerCountAttr}, {"idBladeColor", kPropellerColourAttr}}, bRecord, bUndo);
    const auto angle = values.constFind(QStringLiteral("idAngle"));
    int degrees = 0;
    if (angle != values.cend() && HandlePos::typedDegrees(*angle, degrees))
        HandlePos::moveTo(*this, 0, HandlePos::topLeftAt(*this, 0, QPointF(kHubX, kHubY), {double(degrees), kTipRadius}),
                          m_bByCode);
    return true;
}

bool CPropeller::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bByCode);
    return r;
}
