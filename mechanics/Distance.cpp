#include "Distance.h"
#include "bases/PanelItems.h"
#include "bases/UprightText.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kDistanceColourAttr = 5100, kDistanceDashedAttr = 5101, kEndStyleAttr = 5102;
enum EndStyle { ArrowsAndBars, ArrowsOnly, BarsOnly };
constexpr double kBarHalf = 8, kDistanceHeadLength = 10, kDistanceHeadHalfWidth = 3.5, kLabelOffset = 10;

void setLine(QSvgNode *n, QPointF a, QPointF b)
{
    if (!n)
        return;
    n->setNumAttribute(QStringLiteral("x1"), a.x());
    n->setNumAttribute(QStringLiteral("y1"), a.y());
    n->setNumAttribute(QStringLiteral("x2"), b.x());
    n->setNumAttribute(QStringLiteral("y2"), b.y());
}

// An arrowhead with its tip at `tip`, pointing along `dir`.
void setHead(QSvgNode *n, QPointF tip, QPointF dir)
{
    if (!n || n->type() != QSvgNode::Polygon)
        return;
    const QPointF back = tip - dir * kDistanceHeadLength, side(-dir.y() * kDistanceHeadHalfWidth, dir.x() * kDistanceHeadHalfWidth);
    static_cast<QSvgPolygon *>(n)->setPoints({tip, back + side, back - side});
}

} // namespace

CDistance::CDistance(CSVGObj *owner) : CBasic(owner) {}

CDistance::~CDistance() = default;

QString CDistance::getSVG()
{
    // Each end may go 1000 units from where it starts, either way.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"224px\" height=\"52px\" viewBox=\"8 10 224 52\">\n"
        "<line id=\"line\" x1=\"20\" y1=\"48\" x2=\"220\" y2=\"48\" fill=\"none\" stroke=\"#000000\" stroke-width=\"1.5\""
        " vector-effect=\"none\"/>\n"
        "<line id=\"end_1\" x1=\"20\" y1=\"40\" x2=\"20\" y2=\"56\" fill=\"none\" stroke=\"#000000\" stroke-width=\"1.5\""
        " vector-effect=\"none\"/>\n"
        "<line id=\"end_2\" x1=\"220\" y1=\"40\" x2=\"220\" y2=\"56\" fill=\"none\" stroke=\"#000000\" stroke-width=\"1.5\""
        " vector-effect=\"none\"/>\n"
        "<polygon id=\"arrow_1\" points=\"20,48 30,44.5 30,51.5\" fill=\"#000000\"/>\n"
        "<polygon id=\"arrow_2\" points=\"220,48 210,51.5 210,44.5\" fill=\"#000000\"/>\n"
        "<text id=\"label\" x=\"120\" y=\"32\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"16\""
        " text-anchor=\"middle\" fill=\"#000000\">s</text>\n"
        "<rect id=\"control_1\" x=\"15.5\" y=\"43.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"-984.5\" x_to=\"1015.5\" y_from=\"-956.5\" y_to=\"1043.5\"/>\n"
        "<rect id=\"control_2\" x=\"215.5\" y=\"43.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"-784.5\" x_to=\"1215.5\" y_from=\"-956.5\" y_to=\"1043.5\"/>\n"
        "</svg>\n");
}

int CDistance::getSVGType() { return 201; }

QString CDistance::getPropName(int id)
{
    // The line's colour is its own setting; a second, host-wide colour would fight it.
    return id == PROP_COLOR ? QString() : CBasic::getPropName(id);
}

void CDistance::ResetAtrribute()
{
    addAttribute(kDistanceColourAttr, 1101, 3, QStringLiteral("IDS_SVG_PHYSICAL_LINE_COLOR"));
    m_attributes[kDistanceColourAttr].color = QColor(0, 0, 0);
    addAttribute(kDistanceDashedAttr, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_DASHED"));
    addAttribute(kEndStyleAttr, 1103, 1, QStringLiteral("IDS_SVG_PHYSICAL_END_STYLE"), ArrowsAndBars);
}

QByteArray CDistance::GetComboboxData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(3) << int(0) << QStringLiteral("IDS_SVG_PHYSICAL_END_STYLE_0") << QStringLiteral("IDS_SVG_PHYSICAL_END_STYLE_1")
        << QStringLiteral("IDS_SVG_PHYSICAL_END_STYLE_2");
    return data;
}

void CDistance::SVGInit(bool, bool)
{
    layout();
    Resize(false);
}

void CDistance::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kDistanceColourAttr).color;
    for (const char *id : {"line", "end_1", "end_2"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setStrokeColor(c);
    for (const char *id : {"arrow_1", "arrow_2", "label"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setFillColor(c);
    repaint();
}

void CDistance::UpdateCheckBox(bool)
{
    if (QSvgNode *line = m_pDocument ? m_pDocument->namedNode(QStringLiteral("line")) : nullptr) {
        if (m_attributes.value(kDistanceDashedAttr).boolValue)
            line->setAttribute(QStringLiteral("stroke-dasharray"), QStringLiteral("6 4"));
        else
            line->removeAttribute(QStringLiteral("stroke-dasharray"));
    }
    repaint();
}

void CDistance::UpdateCombobox(bool)
{
    if (!m_pDocument)
        return;
    const int style = m_attributes.value(kEndStyleAttr).intValue;
    for (const char *id : {"arrow_1", "arrow_2"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setVisible(style != BarsOnly);
    for (const char *id : {"end_1", "end_2"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setVisible(style != ArrowsOnly);
    // The last hook after a load: the label may have changed where the ends did not.
    layout();
    Resize(true);
    repaint();
}

bool CDistance::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CDistance::layout()
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1);
    if (!m_pDocument || !h1 || !h2)
        return;
    const QPointF a = h1->rect().center(), b = h2->rect().center();
    const double len = std::hypot(b.x() - a.x(), b.y() - a.y());
    // Ends on one spot have no direction of their own: the marker lies level.
    const QPointF dir = len > 0 && std::isfinite(len) ? (b - a) / len : QPointF(1, 0);
    const QPointF across(-dir.y(), dir.x());
    setLine(m_pDocument->namedNode(QStringLiteral("line")), a, b);
    setLine(m_pDocument->namedNode(QStringLiteral("end_1")), a - across * kBarHalf, a + across * kBarHalf);
    setLine(m_pDocument->namedNode(QStringLiteral("end_2")), b - across * kBarHalf, b + across * kBarHalf);
    setHead(m_pDocument->namedNode(QStringLiteral("arrow_1")), a, -dir);
    setHead(m_pDocument->namedNode(QStringLiteral("arrow_2")), b, dir);
    if (QSvgNode *label = m_pDocument->namedNode(QStringLiteral("label"))) {
        label->setText(m_strLabel);
        // Left of the way from the first end to the second (up, for a marker drawn left to right).
        UprightText::placeBeyond(label, (a + b) / 2, QPointF(dir.y(), -dir.x()), kLabelOffset);
    }
}

void CDistance::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    if (m_pDocument)
        enclose(m_pDocument->transformedBounds().adjusted(-2, -2, 2, 2), topLeft, bottomRight);
}

void CDistance::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idLabelText"), QStringLiteral("IDS_PHYSICSOBJ_LABEL_TEXT"),
                                               m_strLabel, QStringLiteral("text"), QString(), QString(), QString()));
    PanelItems::append(*this, array, {{"idLineColor", kDistanceColourAttr}, {"idDashed", kDistanceDashedAttr}, {"idEndStyle", kEndStyleAttr}});
}

bool CDistance::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto text = values.constFind(QStringLiteral("idLabelText"));
    if (text != values.cend()) {
        m_strLabel = fitText(*text, QStringLiteral("idLabelText"));
        layout();
        Resize(true);
        repaint();
    }
    PanelItems::apply(*this, values, {{"idLineColor", kDistanceColourAttr}, {"idDashed", kDistanceDashedAttr}, {"idEndStyle", kEndStyleAttr}},
                      bRecord, bUndo);
    return true;
}

bool CDistance::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool restore = isRestore(id);
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id))
        m_strCapturedLabel = m_strLabel;
    else if (restore)
        m_strLabel = m_strCapturedLabel;
    // The ends go back last, laying the label out again with them.
    keepEverything(id, m_bByCode);
    return r;
}

bool CDistance::save(QDataStream &out)
{
    out << m_strLabel;
    return CBasic::save(out);
}

bool CDistance::load(QDataStream &in) { return loadWithText(in, m_strLabel); }
