#include "Lever.h"
#include "bases/HandlePos.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kLeverColourAttr = 5100;
constexpr double kPivotX = 340, kPivotY = 60;
constexpr double kLeverPitch = 30, kLeverOverhang = 15, kBar = 14;
constexpr double kMinTilt = -45, kMaxTilt = 45;
constexpr int kMinMarks = 2, kMaxMarks = 10;


} // namespace

CLever::CLever(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CLever::~CLever() = default;

QString CLever::getSVG()
{
    // The bar is drawn level in its group and turned about the pivot pin; the shine over
    // it keeps the bar's colour looking like metal whatever the colour chosen.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"341px\" height=\"126px\""
        " viewBox=\"169.5 47.5 341 126\">\n"
        "<defs>\n"
        "<linearGradient id=\"lv_shine\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.75\"/><stop offset=\"0.35\" stop-color=\"#FFFFFF\""
        " stop-opacity=\"0.1\"/><stop offset=\"0.7\" stop-color=\"#000000\" stop-opacity=\"0.05\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.3\"/></linearGradient>\n"
        "<linearGradient id=\"lv_metal\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#7D8791\"/><stop offset=\"0.4\" stop-color=\"#D6DCE1\"/>"
        "<stop offset=\"1\" stop-color=\"#8A949E\"/></linearGradient>\n"
        "<linearGradient id=\"lv_base\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#BAC2CA\"/><stop offset=\"1\" stop-color=\"#6E7882\"/></linearGradient>\n"
        "<radialGradient id=\"lv_pin\" cx=\"0.35\" cy=\"0.35\" r=\"0.7\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\"/><stop offset=\"1\" stop-color=\"#6E7882\"/></radialGradient>\n"
        "</defs>\n"
        "<rect id=\"stand\" x=\"270\" y=\"160\" width=\"140\" height=\"12\" rx=\"2\" ry=\"2\" fill=\"url(#lv_base)\""
        " stroke=\"#4A5560\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>\n"
        "<path id=\"fulcrum\" fill=\"url(#lv_metal)\" stroke=\"#4A5560\" stroke-width=\"1\" stroke-linejoin=\"round\""
        " vector-effect=\"non-scaling-stroke\" d=\"M340,52L384,160H296Z\"/>\n"
        "<g id=\"bar\" rotate_x=\"340\" rotate_y=\"60\" rotate_angle=\"0\">"
        "<rect id=\"bar_body\" x=\"175\" y=\"53\" width=\"330\" height=\"14\" rx=\"2\" ry=\"2\" fill=\"#B0B7BF\""
        " stroke=\"#4A5560\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>"
        "<rect id=\"bar_shine\" x=\"175.5\" y=\"53.5\" width=\"329\" height=\"13\" rx=\"1.5\" ry=\"1.5\" fill=\"url(#lv_shine)\"/>"
        "<circle id=\"mark_1\" cx=\"190\" cy=\"60\" r=\"3\" fill=\"#2B3238\" stroke=\"#E8ECEF\" stroke-width=\"0.8\""
        " vector-effect=\"non-scaling-stroke\"/>"
        "</g>\n"
        "<circle id=\"pin\" cx=\"340\" cy=\"60\" r=\"4.5\" fill=\"url(#lv_pin)\" stroke=\"#4A5560\" stroke-width=\"0.8\""
        " vector-effect=\"non-scaling-stroke\"/>\n"
        "<rect id=\"control_1\" x=\"500.5\" y=\"55.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"5.5\" x_to=\"665.5\" y_from=\"-274.5\" y_to=\"385.5\"/>\n"
        "</svg>\n");
}

int CLever::getSVGType() { return 108; }

void CLever::ResetAtrribute() { addColour(kLeverColourAttr, 1101, QStringLiteral("IDS_SVG_PHYSICAL_BAR_COLOR"), QColor(0xB0B7BF)); }

int CLever::shownTilt() const { return int(std::lround(m_dTilt)); }

double CLever::halfLength() const { return m_nMarks * kLeverPitch + kLeverOverhang; }

void CLever::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"bar_shine", "pin"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setFillEnabled(false);
    layout();
    UpdateColor(false);
    Resize(false);
}

void CLever::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const QPointF pivot(kPivotX, kPivotY);
    HandlePos::Polar p = HandlePos::heldPolar(*this, 0, pivot, kMinTilt, kMaxTilt, 0, kMaxMarks * kLeverPitch + kLeverOverhang);
    const double marks = std::round((p.distance - kLeverOverhang) / kLeverPitch);
    m_nMarks = int(std::max(double(kMinMarks), std::min(double(kMaxMarks), std::isfinite(marks) ? marks : 5)));
    p.distance = halfLength();
    p = HandlePos::putBack(*this, 0, pivot, p);
    m_dTilt = std::max(kMinTilt, std::min(kMaxTilt, p.angle));

    const double half = halfLength();
    if (QSvgNode *g = m_pDocument->namedNode(QStringLiteral("bar")))
        g->setNumAttribute(QStringLiteral("rotate_angle"), -m_dTilt);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("bar_body"))) {
        n->setNumAttribute(QStringLiteral("x"), kPivotX - half);
        n->setNumAttribute(QStringLiteral("width"), 2 * half);
    }
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("bar_shine"))) {
        n->setNumAttribute(QStringLiteral("x"), kPivotX - half + 0.5);
        n->setNumAttribute(QStringLiteral("width"), 2 * half - 1);
    }
    // Holes left to right, none at the pivot.
    const QVector<QSvgNode *> holes = Series::fit(*this, QStringLiteral("mark"), 2 * m_nMarks);
    for (int k = 0; k < holes.size(); ++k) {
        const int step = k < m_nMarks ? k - m_nMarks : k - m_nMarks + 1;
        holes[k]->setNumAttribute(QStringLiteral("cx"), kPivotX + step * kLeverPitch);
    }
}

void CLever::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("bar_body")))
        n->setFillColor(m_attributes.value(kLeverColourAttr).color);
    repaint();
}

bool CLever::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CLever::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    // The bar's four corners with their outline, the stand, and the handle.
    const double a = m_dTilt * 3.141592653589793 / 180, c = std::cos(a), s = std::sin(a), half = halfLength();
    for (double along : {-half, half})
        for (double across : {-kBar / 2 - 0.5, kBar / 2 + 0.5})
            enclose(QPointF(kPivotX + c * along + s * across, kPivotY - s * along + c * across), topLeft, bottomRight);
    enclose(QRectF(269.5, 51.5, 141, 121), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CLever::moveEnd(double tilt, int marks)
{
    const HandlePos::Polar to{tilt, marks * kLeverPitch + kLeverOverhang};
    HandlePos::moveTo(*this, 0, HandlePos::topLeftAt(*this, 0, QPointF(kPivotX, kPivotY), to), m_bPosByCode);
}

void CLever::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idBarColor", kLeverColourAttr}});
    m_panel.append(array, 1, QString::number(shownTilt()), [this] {
        return m_pOwner->GetSettingJsonInput(QStringLiteral("idAngle"), QStringLiteral("IDS_PHYSICSOBJ_ANGLE"),
                                             QString::number(shownTilt()), QStringLiteral("int"), QStringLiteral("-45"),
                                             QStringLiteral("45"), QStringLiteral("°"));
    });
    m_panel.append(array, 2, QString::number(m_nMarks), [this] {
        return m_pOwner->GetSettingJsonInput(QStringLiteral("idMarkCount"), QStringLiteral("IDS_PHYSICSOBJ_MARK_COUNT"),
                                             QString::number(m_nMarks), QStringLiteral("int"), QStringLiteral("2"),
                                             QStringLiteral("10"), QString());
    });
}

bool CLever::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idBarColor", kLeverColourAttr}}, bRecord, bUndo);
    double tilt = m_dTilt, v = 0;
    int marks = m_nMarks;
    if (HandlePos::typedNumber(values, QStringLiteral("idAngle"), kMinTilt, kMaxTilt, true, v))
        tilt = v;
    if (HandlePos::typedNumber(values, QStringLiteral("idMarkCount"), kMinMarks, kMaxMarks, true, v))
        marks = int(v);
    if (tilt != m_dTilt || marks != m_nMarks)
        moveEnd(tilt, marks);
    return true;
}

bool CLever::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
