#include "Skateboard.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kSkateboardColourAttr = 5100;
constexpr double kSkateboardLeft = 0, kSkateboardTip = 10, kSkateboardTop = 18, kSkateboardBottom = 24, kKick = 24, kSkateboardWheelY = 33, kSkateboardWheelR = 7;
constexpr double kSkateboardMinL = 100, kSkateboardMaxL = 600;

const HandlePos::Slot kSkateboardSlots[] = {{0, HandlePos::X, "idLength", "IDS_PHYSICSOBJ_LENGTH", false}};

using SvgNumbers::format;

// The deck's top edge, left tip to right tip: level in the middle, curling up at both
// ends; and the whole deck, that edge then its underside back.
QString topEdge(double l)
{
    return QStringLiteral("M%1,%2C%3,%2 %4,%5 %6,%5H%7C%8,%5 %9,%2 %10,%2")
        .arg(format(kSkateboardLeft), format(kSkateboardTip), format(kSkateboardLeft + 5), format(kSkateboardLeft + 11), format(kSkateboardTop), format(kSkateboardLeft + kKick), format(kSkateboardLeft + l - kKick),
             format(kSkateboardLeft + l - 11), format(kSkateboardLeft + l - 5), format(kSkateboardLeft + l));
}
QString deck(double l)
{
    const double d = kSkateboardBottom - kSkateboardTop;
    return topEdge(l) + QStringLiteral("C%1,%2 %3,%2 %4,%5C%6,%7 %8,%7 %9,%7H%10C%11,%7 %12,%7 %13,%5C%14,%2 %15,%2 %16,%17Z")
                            .arg(format(kSkateboardLeft + l + 1.5), format(kSkateboardTip + 2), format(kSkateboardLeft + l + 0.5), format(kSkateboardLeft + l - 0.8),
                                 format(kSkateboardTip + d), format(kSkateboardLeft + l - 6), format(kSkateboardBottom), format(kSkateboardLeft + l - 13), format(kSkateboardLeft + l - kKick))
                            .arg(format(kSkateboardLeft + kKick), format(kSkateboardLeft + 13), format(kSkateboardLeft + 6), format(kSkateboardLeft + 0.8), format(kSkateboardLeft - 0.5),
                                 format(kSkateboardLeft - 1.5), format(kSkateboardLeft), format(kSkateboardTip));
}

} // namespace

CSkateboard::CSkateboard(CSVGObj *owner) : CBasic(owner)
{
    m_bItemsOutline = true;
    setPostsChangedSettings(true);
}

CSkateboard::~CSkateboard() = default;

QString CSkateboard::getSVG()
{
    // Trucks and wheels under the deck; black grip tape along its top.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"206px\" height=\"33px\""
        " viewBox=\"-2 8 206 33\">\n"
        "<defs>\n"
        "<linearGradient id=\"sk_shade\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.35\"/><stop offset=\"1\" stop-color=\"#000000\""
        " stop-opacity=\"0.25\"/></linearGradient>\n"
        "<radialGradient id=\"sk_wheel\" cx=\"0.4\" cy=\"0.35\" r=\"0.7\">"
        "<stop offset=\"0\" stop-color=\"#FFFDF5\"/><stop offset=\"1\" stop-color=\"#D9CFA8\"/></radialGradient>\n"
        "<linearGradient id=\"sk_metal\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#E3E8EC\"/><stop offset=\"1\" stop-color=\"#7D8791\"/></linearGradient>\n"
        "</defs>\n"
        "<g id=\"wheel_1\" transform=\"translate(44,33)\">"
        "<path d=\"M-7,-9H7L4,-3H-4Z\" fill=\"url(#sk_metal)\" stroke=\"#4A5560\" stroke-width=\"0.6\"/>"
        "<circle r=\"7\" fill=\"url(#sk_wheel)\" stroke=\"#8C8160\" stroke-width=\"0.8\"/>"
        "<circle r=\"2\" fill=\"#6B747D\"/></g>\n"
        "<g id=\"wheel_2\" transform=\"translate(156,33)\">"
        "<path d=\"M-7,-9H7L4,-3H-4Z\" fill=\"url(#sk_metal)\" stroke=\"#4A5560\" stroke-width=\"0.6\"/>"
        "<circle r=\"7\" fill=\"url(#sk_wheel)\" stroke=\"#8C8160\" stroke-width=\"0.8\"/>"
        "<circle r=\"2\" fill=\"#6B747D\"/></g>\n"
        "<path id=\"deck\" fill=\"#1565C0\" stroke=\"#0B3566\" stroke-width=\"0.8\" stroke-linejoin=\"round\""
        " vector-effect=\"non-scaling-stroke\" d=\"M0,10Z\"/>\n"
        "<path id=\"deck_shade\" fill=\"url(#sk_shade)\" d=\"M0,10Z\"/>\n"
        "<path id=\"grip\" fill=\"none\" stroke=\"#222222\" stroke-width=\"1.6\" stroke-linecap=\"round\" d=\"M0,10Z\"/>\n"
        "<rect id=\"control_1\" x=\"195.5\" y=\"5.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"95.5\" x_to=\"595.5\"/>\n"
        "</svg>\n");
}

int CSkateboard::getSVGType() { return 114; }

void CSkateboard::ResetAtrribute() { addColour(kSkateboardColourAttr, 1101, QStringLiteral("IDS_SVG_PHYSICAL_DECK_COLOR"), QColor(0x1565C0)); }

void CSkateboard::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"deck_shade", "grip", "wheel_1", "wheel_2"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id))) {
            n->setFillEnabled(false);
            n->setStrokeEnabled(false);
        }
    layout();
    UpdateColor(false);
    Resize(false);
}

void CSkateboard::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const double x = HandlePos::centre(*this, 0).x() - kSkateboardLeft;
    m_dLength = std::isfinite(x) ? std::max(kSkateboardMinL, std::min(kSkateboardMaxL, x)) : kSkateboardMinL;
    const double l = m_dLength;
    const QString body = deck(l);
    for (const char *id : {"deck", "deck_shade"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setAttribute(QStringLiteral("d"), body);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("grip")))
        n->setAttribute(QStringLiteral("d"), topEdge(l));
    // The trucks sit just inside where the deck starts to curl up.
    const double in = std::min(kKick + 20, l * 0.22);
    const struct {
        const char *id;
        double x;
    } wheels[] = {{"wheel_1", kSkateboardLeft + in}, {"wheel_2", kSkateboardLeft + l - in}};
    for (const auto &w : wheels)
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(w.id)))
            n->setAttribute(QStringLiteral("transform"), QStringLiteral("translate(%1,%2)").arg(format(w.x), format(kSkateboardWheelY)));
    HandlePos::placeCentre(*this, 0, QPointF(kSkateboardLeft + l, kSkateboardTip));
}

void CSkateboard::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kSkateboardColourAttr).color;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("deck"))) {
        n->setFillColor(c);
        n->setStrokeColor(c.darker(200));
    }
    repaint();
}

bool CSkateboard::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CSkateboard::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(QRectF(kSkateboardLeft - 2, kSkateboardTip - 1, m_dLength + 4, kSkateboardWheelY + kSkateboardWheelR + 1 - (kSkateboardTip - 1)), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CSkateboard::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idDeckColor", kSkateboardColourAttr}});
    m_panel.append(*this, array, 1, kSkateboardSlots);
}

bool CSkateboard::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idDeckColor", kSkateboardColourAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kSkateboardSlots, m_bPosByCode);
    return true;
}

bool CSkateboard::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
