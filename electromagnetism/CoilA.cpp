#include "CoilA.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

enum { kShowCore = 5100, kCurrent = 5101 };
enum Current { None, UpTheFront, DownTheFront };
// The winding starts here and the turns keep their places from it, so that a drag
// only adds or removes turns at the right end.
constexpr double kStart = 26, kCoilAPitch = 6, kAxis = 36, kHalfHeight = 18, kSlant = 2.2, kCoilAOverhang = 12;
constexpr double kCoilAHandleHalf = 4.5;
// One current arrow per five turns, on the third of each five.
constexpr int kTurnsPerArrow = 5;
const QString kTurn = QStringLiteral("turn"), kBack = QStringLiteral("back"), kArrow = QStringLiteral("current");
using SvgNumbers::format;

double turnX(int i) { return kStart + kCoilAPitch / 2 + i * kCoilAPitch; }

} // namespace

CCoilA::CCoilA(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return PanelItems::texts(*this, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}});
    });
}

CCoilA::~CCoilA() = default;

QString CCoilA::getSVG()
{
    // Back halves of the turns, then the core, then the front halves: the core hides
    // the back of the winding, and without it the coil shows hollow.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"176px\" height=\"66px\""
        " viewBox=\"0 0 176 66\">\n"
        "<defs>\n"
        "<linearGradient id=\"iron\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#E4E8EC\"/><stop offset=\"0.35\" stop-color=\"#9EA7B0\"/>"
        "<stop offset=\"1\" stop-color=\"#4E5862\"/></linearGradient>\n"
        "</defs>\n"
        "<g id=\"backs\" fill=\"none\" stroke=\"#7A3E12\" stroke-width=\"1.6\" stroke-linecap=\"round\">\n"
        "<line id=\"back_1\" x1=\"26.8\" y1=\"18\" x2=\"31.2\" y2=\"54\"/>\n"
        "</g>\n"
        "<rect id=\"core\" x=\"14\" y=\"24\" width=\"144\" height=\"24\" rx=\"1.5\" fill=\"url(#iron)\" stroke=\"#4A5560\""
        " stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<path id=\"lead_left\" fill=\"none\" stroke=\"#B5652B\" stroke-width=\"2.2\" stroke-linecap=\"round\""
        " stroke-linejoin=\"round\" d=\"\"/>\n"
        "<path id=\"lead_right\" fill=\"none\" stroke=\"#B5652B\" stroke-width=\"2.2\" stroke-linecap=\"round\""
        " stroke-linejoin=\"round\" d=\"\"/>\n"
        "<g id=\"turns\" fill=\"none\" stroke=\"#B5652B\" stroke-width=\"2.6\" stroke-linecap=\"round\">\n"
        "<line id=\"turn_1\" x1=\"26.8\" y1=\"54\" x2=\"31.2\" y2=\"18\"/>\n"
        "</g>\n"
        "<g id=\"currents\" fill=\"#E02020\" stroke=\"#7A1010\" stroke-width=\"0.5\" display=\"none\">\n"
        "<path id=\"current_1\" d=\"\"/>\n"
        "</g>\n"
        "<rect id=\"control_1\" x=\"141.5\" y=\"31.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"51.5\" x_to=\"621.5\"/>\n"
        "</svg>\n");
}

int CCoilA::getSVGType() { return 502; }

void CCoilA::ResetAtrribute()
{
    addAttribute(kShowCore, 1101, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_CORE"), 0, true);
    addCombo(kCurrent, 1102, QStringLiteral("IDS_SVG_PHYSICAL_CURRENT_DIRECTION"), None,
             {QStringLiteral("IDS_SVG_PHYSICAL_CURRENT_DIRECTION_0"), QStringLiteral("IDS_SVG_PHYSICAL_CURRENT_DIRECTION_1"),
              QStringLiteral("IDS_SVG_PHYSICAL_CURRENT_DIRECTION_2")});
}

void CCoilA::SVGInit(bool, bool)
{
    // The host's colour paints the wire: turns, backs and leads.
    HostPaint::only(m_pDocument, {"turn_1", "back_1", "lead_left", "lead_right"});
    m_nLaidTurns = m_nLaidDirection = -1;
    layout(false);
}

double CCoilA::woundLength() const
{
    QSvgNode *h = m_controlNodes.value(0);
    return h ? h->rect().center().x() - kStart : 0;
}

int CCoilA::turnCount() const
{
    const double n = std::floor(woundLength() / kCoilAPitch);
    return std::isfinite(n) ? int(qBound(1.0, n, double(Series::kMaxCount))) : 1;
}

void CCoilA::layout(bool bFinal)
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const double len = woundLength();
    const int n = turnCount();
    if (QSvgNode *core = m_pDocument->namedNode(QStringLiteral("core"))) {
        core->setNumAttribute(QStringLiteral("x"), kStart - kCoilAOverhang);
        core->setNumAttribute(QStringLiteral("width"), len + 2 * kCoilAOverhang);
    }
    const int direction = m_attributes.value(kCurrent).intValue;
    if (n != m_nLaidTurns || direction != m_nLaidDirection)
        wind(n, direction);
    if (QSvgNode *g = m_pDocument->namedNode(QStringLiteral("currents")))
        g->setVisible(direction != None);
    if (QSvgNode *h = m_controlNodes.value(0))
        h->setNumAttribute(QStringLiteral("y"), kAxis - kCoilAHandleHalf);
    Resize(bFinal);
    repaint();
}

// Turns stand at fixed places from the start: only those a drag adds need placing, and
// the leads and arrows change only with the number of turns or the current's way.
void CCoilA::wind(int n, int direction)
{
    for (const QString &prefix : {kTurn, kBack}) {
        const QVector<QSvgNode *> lines = Series::fit(*this, prefix, n);
        const bool front = prefix == kTurn;
        for (int i = 0; i < lines.size(); ++i) {
            QSvgNode *l = lines[i];
            const double x = turnX(i);
            if (l->numAttribute(QStringLiteral("x1")) == x - kSlant)
                continue;
            l->setNumAttribute(QStringLiteral("x1"), x - kSlant);
            l->setNumAttribute(QStringLiteral("x2"), x + kSlant);
            l->setNumAttribute(QStringLiteral("y1"), front ? kAxis + kHalfHeight : kAxis - kHalfHeight);
            l->setNumAttribute(QStringLiteral("y2"), front ? kAxis - kHalfHeight : kAxis + kHalfHeight);
        }
    }
    // The leads leave the first and last turns at the top and run out sideways.
    const double first = turnX(0) + kSlant, last = turnX(n - 1) + kSlant, top = kAxis - kHalfHeight;
    if (QSvgNode *l = m_pDocument->namedNode(QStringLiteral("lead_left")))
        l->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2C%1,%3 %4,%5 %6,%5")
                                                 .arg(format(first), format(top), format(top - 8), format(first - 6), format(top - 12), format(first - 22)));
    if (QSvgNode *r = m_pDocument->namedNode(QStringLiteral("lead_right")))
        r->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2C%1,%3 %4,%5 %6,%5")
                                                 .arg(format(last), format(top), format(top - 8), format(last + 6), format(top - 12), format(last + 22)));
    // Current arrows on the middle of the front of every fifth turn, along the wire.
    const QVector<QSvgNode *> arrows = Series::fit(*this, kArrow, std::max(1, n / kTurnsPerArrow));
    const double dy = direction == DownTheFront ? 1 : -1;
    const double along = std::hypot(2 * kSlant, 2 * kHalfHeight);
    const double ux = -dy * 2 * kSlant / along, uy = dy * 2 * kHalfHeight / along;
    for (int k = 0; k < arrows.size(); ++k) {
        const double x = turnX(std::min(n - 1, k * kTurnsPerArrow + 2));
        const double tipX = x + ux * 5, tipY = kAxis + uy * 5, backX = x - ux * 4, backY = kAxis - uy * 4;
        arrows[k]->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2L%3,%4L%5,%6Z")
                                                         .arg(format(tipX), format(tipY), format(backX - uy * 4), format(backY + ux * 4),
                                                              format(backX + uy * 4), format(backY - ux * 4)));
    }
    m_nLaidTurns = n;
    m_nLaidDirection = direction;
}

void CCoilA::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    const double len = woundLength(), last = turnX(turnCount() - 1) + kSlant;
    enclose(QRectF(QPointF(turnX(0) + kSlant - 23, kAxis - kHalfHeight - 13),
                   QPointF(std::max(last + 23, kStart + len + kCoilAOverhang + 1), kAxis + kHalfHeight + 2)),
            topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

bool CCoilA::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout(bFinal);
    return true;
}

void CCoilA::UpdateCheckBox(bool)
{
    if (QSvgNode *core = m_pDocument ? m_pDocument->namedNode(QStringLiteral("core")) : nullptr)
        core->setVisible(m_attributes.value(kShowCore).boolValue);
    repaint();
}

void CCoilA::UpdateCombobox(bool) { layout(true); }

void CCoilA::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array, {{"idShowCore", kShowCore}, {"idCurrentDirection", kCurrent}});
    PanelItems::append(*this, array, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}});
}

bool CCoilA::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idShowCore", kShowCore}, {"idCurrentDirection", kCurrent}}, bRecord, bUndo);
    PanelItems::apply(*this, values, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}}, m_bPosByCode);
    return true;
}

bool CCoilA::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
