#include "Negativeelectron.h"
#include "bases/HandlePos.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {
enum { kShowVelocity = 5100 };
const QPointF kNegativeelectronCentre(20, 34);
constexpr double kNegativeelectronRadius = 10, kNegativeelectronHead = 10, kHeadHalf = 5, kNegativeelectronMinLength = 20, kNegativeelectronMaxLength = 400, kLabelOff = 13;
using SvgNumbers::format;
} // namespace

CNegativeelectron::CNegativeelectron(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return QVector<QPair<QString, QString>>{
            {QStringLiteral("idAngle"), QString::number(HandlePos::shownDegrees(angle()))}};
    });
}

CNegativeelectron::~CNegativeelectron() = default;

QString CNegativeelectron::getSVG()
{
    // The arrow is drawn pointing right and turned about the electron's centre.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"131px\" height=\"48px\""
        " viewBox=\"9 10 131 48\">\n"
        "<defs>\n"
        "<radialGradient id=\"ball\" cx=\"0.36\" cy=\"0.32\" r=\"0.72\">"
        "<stop offset=\"0\" stop-color=\"#D2E2FF\"/><stop offset=\"0.35\" stop-color=\"#4A86E8\"/>"
        "<stop offset=\"0.8\" stop-color=\"#1E63D6\"/><stop offset=\"1\" stop-color=\"#0D3580\"/></radialGradient>\n"
        "</defs>\n"
        "<g id=\"velocity\" rotate_x=\"20\" rotate_y=\"34\" rotate_from=\"-180\" rotate_to=\"180\" rotate_angle=\"0\">\n"
        "<line id=\"shaft\" x1=\"31\" y1=\"34\" x2=\"111\" y2=\"34\" stroke=\"#2E7D32\" stroke-width=\"2.4\" fill=\"none\""
        " vector-effect=\"none\"/>\n"
        "<path id=\"head\" fill=\"#2E7D32\" d=\"M120,34L110,29L110,39Z\"/>\n"
        "</g>\n"
        "<circle id=\"electron\" cx=\"20\" cy=\"34\" r=\"10\" fill=\"url(#ball)\" stroke=\"#0B255C\" stroke-width=\"0.8\""
        " vector-effect=\"none\"/>\n"
        "<path id=\"sign\" fill=\"none\" stroke=\"#FFFFFF\" stroke-width=\"2.4\" stroke-linecap=\"round\" d=\"M15,34H25\"/>\n"
        "<text id=\"v_label\" x=\"110\" y=\"25\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"16\""
        " font-weight=\"bold\" text-anchor=\"middle\" fill=\"#2E7D32\">v</text>\n"
        "<rect id=\"control_1\" x=\"115.5\" y=\"29.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"-384.5\" x_to=\"415.5\" y_from=\"-370.5\" y_to=\"429.5\"/>\n"
        "</svg>\n");
}

int CNegativeelectron::getSVGType() { return 509; }

void CNegativeelectron::ResetAtrribute()
{
    addAttribute(kShowVelocity, 1101, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_VELOCITY"), 0, true);
}

void CNegativeelectron::SVGInit(bool, bool)
{
    // The host's colour paints the arrow; the electron keeps its blue.
    HostPaint::only(m_pDocument, {"shaft", "head"});
    if (QSvgNode *label = m_pDocument->namedNode(QStringLiteral("v_label")))
        m_labelSize = label->rect().size();
    layout(false);
}

double CNegativeelectron::angle() const { return HandlePos::polar(*this, 0, kNegativeelectronCentre).angle; }
double CNegativeelectron::length() const { return HandlePos::polar(*this, 0, kNegativeelectronCentre).distance; }

void CNegativeelectron::layout(bool bFinal)
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    HandlePos::Polar p = HandlePos::polar(*this, 0, kNegativeelectronCentre);
    p.distance = qBound(kNegativeelectronMinLength, p.distance, kNegativeelectronMaxLength);
    // Back on the tip; what is drawn follows from where the handle then stands.
    p = HandlePos::putBack(*this, 0, kNegativeelectronCentre, p);
    const double tip = kNegativeelectronCentre.x() + p.distance;
    if (QSvgNode *v = m_pDocument->namedNode(QStringLiteral("velocity")))
        v->setNumAttribute(QStringLiteral("rotate_angle"), p.angle == 0 ? 0.0 : -p.angle);
    if (QSvgNode *shaft = m_pDocument->namedNode(QStringLiteral("shaft"))) {
        shaft->setNumAttribute(QStringLiteral("x1"), std::min(kNegativeelectronCentre.x() + kNegativeelectronRadius + 1, tip - kNegativeelectronHead));
        shaft->setNumAttribute(QStringLiteral("x2"), tip - kNegativeelectronHead + 1);
    }
    if (QSvgNode *head = m_pDocument->namedNode(QStringLiteral("head")))
        head->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2L%3,%4L%3,%5Z")
                                                    .arg(format(tip), format(kNegativeelectronCentre.y()), format(tip - kNegativeelectronHead), format(kNegativeelectronCentre.y() - kHeadHalf),
                                                         format(kNegativeelectronCentre.y() + kHeadHalf)));
    // The label stays upright, beside the tip on the arrow's left.
    if (QSvgNode *label = m_pDocument->namedNode(QStringLiteral("v_label"))) {
        const double a = p.angle * M_PI / 180, ux = std::cos(a), uy = -std::sin(a);
        const double x = kNegativeelectronCentre.x() + ux * (p.distance - 8) + uy * kLabelOff;
        const double y = kNegativeelectronCentre.y() + uy * (p.distance - 8) - ux * kLabelOff;
        label->setNumAttribute(QStringLiteral("x"), x);
        label->setNumAttribute(QStringLiteral("y"), y + m_labelSize.height() * 0.3);
    }
    Resize(bFinal);
    repaint();
}

void CNegativeelectron::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(QRectF(kNegativeelectronCentre.x() - kNegativeelectronRadius - 1, kNegativeelectronCentre.y() - kNegativeelectronRadius - 1, 2 * kNegativeelectronRadius + 2, 2 * kNegativeelectronRadius + 2), topLeft,
            bottomRight);
    if (QSvgNode *h = m_controlNodes.value(0))
        enclose(h->rect().adjusted(-2, -2, 2, 2), topLeft, bottomRight);
    if (QSvgNode *label = m_pDocument->namedNode(QStringLiteral("v_label"))) {
        const QPointF at(label->numAttribute(QStringLiteral("x")), label->numAttribute(QStringLiteral("y")));
        enclose(QRectF(at.x() - m_labelSize.width() / 2, at.y() - m_labelSize.height(), m_labelSize.width(),
                       m_labelSize.height() * 1.3),
                topLeft, bottomRight);
    }
}

bool CNegativeelectron::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout(bFinal);
    return true;
}

void CNegativeelectron::UpdateCheckBox(bool)
{
    const bool on = m_attributes.value(kShowVelocity).boolValue;
    for (const char *id : {"velocity", "v_label", "control_1"})
        if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QLatin1String(id)) : nullptr)
            n->setVisible(on);
    repaint();
}

void CNegativeelectron::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array, {{"idShowVelocity", kShowVelocity}});
    PanelItems::appendAngle(*this, array, HandlePos::shownDegrees(angle()));
}

bool CNegativeelectron::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idShowVelocity", kShowVelocity}}, bRecord, bUndo);
    double degrees = 0;
    if (HandlePos::typedNumber(values, QStringLiteral("idAngle"), -180, 180, true, degrees))
        HandlePos::turnTo(*this, 0, kNegativeelectronCentre, degrees, m_bPosByCode);
    return true;
}

bool CNegativeelectron::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
