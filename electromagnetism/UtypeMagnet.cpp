#include "UtypeMagnet.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include "bases/Poles.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {

// The upper arm's top edge and the bend's centre line stay put.
constexpr double kUtypeMagnetTop = 4, kBendX = 60, kArm = 26, kUtypeMagnetHandleHalf = 4.5;
using SvgNumbers::format;

void setRect(QSvgNode *n, double x, double y, double w, double h)
{
    if (!n)
        return;
    n->setNumAttribute(QStringLiteral("x"), x);
    n->setNumAttribute(QStringLiteral("y"), y);
    n->setNumAttribute(QStringLiteral("width"), w);
    n->setNumAttribute(QStringLiteral("height"), h);
}

} // namespace

CUtypeMagnet::CUtypeMagnet(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return PanelItems::texts(*this, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}, {"idGap", "IDS_PHYSICSOBJ_GAP", 1, HandlePos::Y}});
    });
}

CUtypeMagnet::~CUtypeMagnet() = default;

QString CUtypeMagnet::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"186px\" height=\"121px\""
        " viewBox=\"3 3 186 121\">\n"
        "<defs>\n"
        "<linearGradient id=\"sheen\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.45\"/>"
        "<stop offset=\"0.35\" stop-color=\"#FFFFFF\" stop-opacity=\"0.05\"/>"
        "<stop offset=\"0.7\" stop-color=\"#000000\" stop-opacity=\"0\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.3\"/></linearGradient>\n"
        "<radialGradient id=\"bend\" gradientUnits=\"userSpaceOnUse\" cx=\"60\" cy=\"60\" r=\"56\">"
        "<stop id=\"bend_0\" offset=\"0.5\" stop-color=\"#000000\" stop-opacity=\"0.3\"/>"
        "<stop id=\"bend_1\" offset=\"0.7\" stop-color=\"#FFFFFF\" stop-opacity=\"0.3\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.3\"/></radialGradient>\n"
        "</defs>\n"
        "<path id=\"body\" fill=\"#9EA7B0\" stroke=\"#4A5560\" stroke-width=\"1\" vector-effect=\"none\" d=\"\"/>\n"
        "<path id=\"bend_shade\" fill=\"url(#bend)\" d=\"\"/>\n"
        "<rect id=\"north\" x=\"120\" y=\"4\" width=\"60\" height=\"26\" fill=\"#E53935\"/>\n"
        "<rect id=\"south\" x=\"120\" y=\"90\" width=\"60\" height=\"26\" fill=\"#1E63D6\"/>\n"
        "<rect id=\"arm_shade_1\" x=\"60\" y=\"4\" width=\"120\" height=\"26\" fill=\"url(#sheen)\"/>\n"
        "<rect id=\"arm_shade_2\" x=\"60\" y=\"90\" width=\"120\" height=\"26\" fill=\"url(#sheen)\"/>\n"
        "<path id=\"outline\" fill=\"none\" stroke=\"#2A2A2A\" stroke-width=\"1\" vector-effect=\"none\" d=\"\"/>\n"
        "<text id=\"north_text\" x=\"150\" y=\"24.5\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"18\""
        " font-weight=\"bold\" text-anchor=\"middle\" fill=\"#FFFFFF\">N</text>\n"
        "<text id=\"south_text\" x=\"150\" y=\"110.5\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"18\""
        " font-weight=\"bold\" text-anchor=\"middle\" fill=\"#FFFFFF\">S</text>\n"
        "<rect id=\"control_1\" x=\"175.5\" y=\"98.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"85.5\" x_to=\"455.5\"/>\n"
        "<rect id=\"control_2\" x=\"115.5\" y=\"85.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"45.5\" y_to=\"325.5\"/>\n"
        "</svg>\n");
}

int CUtypeMagnet::getSVGType() { return 505; }

void CUtypeMagnet::ResetAtrribute()
{
    addCombo(Poles::kDirection, 1101, QStringLiteral("IDS_SVG_PHYSICAL_POLE_DIRECTION"), 0,
             {QStringLiteral("IDS_SVG_PHYSICAL_NORTH_TOP"), QStringLiteral("IDS_SVG_PHYSICAL_NORTH_BOTTOM")});
    Poles::addColours(m_attributes);
}

void CUtypeMagnet::SVGInit(bool, bool)
{
    // The host's colour paints the steel of the body; the poles have colours of their own.
    HostPaint::only(m_pDocument, {"body"});
    layout(false);
}

double CUtypeMagnet::armLength() const
{
    QSvgNode *h = m_controlNodes.value(0);
    return h ? h->rect().center().x() - kBendX : 0;
}

double CUtypeMagnet::gap() const
{
    QSvgNode *h = m_controlNodes.value(1);
    return h ? h->rect().center().y() - (kUtypeMagnetTop + kArm) : 0;
}

void CUtypeMagnet::layout(bool bFinal)
{
    if (!m_pDocument || m_controlNodes.size() < 2)
        return;
    const double len = armLength(), g = gap();
    const double inner = std::max(g / 2, 0.0), outer = inner + kArm;
    const double end = kBendX + len, lowTop = kUtypeMagnetTop + kArm + g, bottom = lowTop + kArm;
    const QString shape = QStringLiteral("M%1,%2H%3A%4,%4 0 0 0 %3,%5H%1V%6H%3A%7,%7 0 0 1 %3,%8H%1Z")
                              .arg(format(end), format(kUtypeMagnetTop), format(kBendX), format(outer), format(bottom), format(lowTop), format(inner), format(kUtypeMagnetTop + kArm));
    for (const char *id : {"body", "outline"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setAttribute(QStringLiteral("d"), shape);
    if (QSvgNode *shade = m_pDocument->namedNode(QStringLiteral("bend_shade")))
        shade->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2A%3,%3 0 0 0 %1,%4V%5A%6,%6 0 0 1 %1,%7Z")
                                                     .arg(format(kBendX), format(kUtypeMagnetTop), format(outer), format(bottom), format(lowTop), format(inner),
                                                          format(kUtypeMagnetTop + kArm)));
    if (QSvgNode *grad = m_pDocument->namedNode(QStringLiteral("bend"))) {
        grad->setNumAttribute(QStringLiteral("cy"), kUtypeMagnetTop + kArm + g / 2);
        grad->setNumAttribute(QStringLiteral("r"), outer);
    }
    // The bend is shaded across its width as the arms are: dark, light, dark.
    const double t = outer > 0 ? inner / outer : 0;
    if (QSvgNode *s0 = m_pDocument->namedNode(QStringLiteral("bend_0")))
        s0->setNumAttribute(QStringLiteral("offset"), t);
    if (QSvgNode *s1 = m_pDocument->namedNode(QStringLiteral("bend_1")))
        s1->setNumAttribute(QStringLiteral("offset"), t + (1 - t) * 0.35);
    setRect(m_pDocument->namedNode(QStringLiteral("arm_shade_1")), kBendX, kUtypeMagnetTop, len, kArm);
    setRect(m_pDocument->namedNode(QStringLiteral("arm_shade_2")), kBendX, lowTop, len, kArm);
    // Each arm's outer half is its pole.
    const bool northTop = m_attributes.value(Poles::kDirection).intValue == 0;
    const double cap = len / 2;
    setRect(m_pDocument->namedNode(QStringLiteral("north")), end - cap, northTop ? kUtypeMagnetTop : lowTop, cap, kArm);
    setRect(m_pDocument->namedNode(QStringLiteral("south")), end - cap, northTop ? lowTop : kUtypeMagnetTop, cap, kArm);
    const double baseline = 6.5; // half the letters' cap height, below the arm's middle
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("north_text"))) {
        n->setNumAttribute(QStringLiteral("x"), end - cap / 2);
        n->setNumAttribute(QStringLiteral("y"), (northTop ? kUtypeMagnetTop : lowTop) + kArm / 2 + baseline);
    }
    if (QSvgNode *s = m_pDocument->namedNode(QStringLiteral("south_text"))) {
        s->setNumAttribute(QStringLiteral("x"), end - cap / 2);
        s->setNumAttribute(QStringLiteral("y"), (northTop ? lowTop : kUtypeMagnetTop) + kArm / 2 + baseline);
    }
    // Each handle stays where the other's value puts it.
    QSvgNode *h1 = m_controlNodes.at(0), *h2 = m_controlNodes.at(1);
    h1->setNumAttribute(QStringLiteral("y"), lowTop + kArm / 2 - kUtypeMagnetHandleHalf);
    h2->setNumAttribute(QStringLiteral("x"), kBendX + len / 2 - kUtypeMagnetHandleHalf);
    Resize(bFinal);
    repaint();
}

void CUtypeMagnet::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    const double g = gap(), outer = std::max(g / 2, 0.0) + kArm;
    enclose(QRectF(QPointF(kBendX - outer, kUtypeMagnetTop), QPointF(kBendX + armLength(), kUtypeMagnetTop + 2 * kArm + g)).adjusted(-1, -1, 1, 1),
            topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

bool CUtypeMagnet::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    layout(bFinal);
    return true;
}

void CUtypeMagnet::UpdateColor(bool)
{
    Poles::paint(m_pDocument, m_attributes, "north", "south");
    repaint();
}

void CUtypeMagnet::UpdateCombobox(bool) { layout(true); }

void CUtypeMagnet::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array,
                       {{"idPoleDirection", Poles::kDirection}, {"idNorthColor", Poles::kNorth}, {"idSouthColor", Poles::kSouth}});
    PanelItems::append(*this, array,
                       {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}, {"idGap", "IDS_PHYSICSOBJ_GAP", 1, HandlePos::Y}});
}

bool CUtypeMagnet::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values,
                      {{"idPoleDirection", Poles::kDirection}, {"idNorthColor", Poles::kNorth}, {"idSouthColor", Poles::kSouth}},
                      bRecord, bUndo);
    PanelItems::apply(*this, values,
                      {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}, {"idGap", "IDS_PHYSICSOBJ_GAP", 1, HandlePos::Y}},
                      m_bPosByCode);
    return true;
}

bool CUtypeMagnet::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
