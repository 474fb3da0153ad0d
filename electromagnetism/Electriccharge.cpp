#include "Electriccharge.h"
#include "bases/FieldLines.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

enum { kElectricchargeSign = 5100, kShowLines = 5101, kCount = 5102 };
// The sphere's centre stays put; the lines start a little off its surface.
constexpr double kElectricchargeCx = 126, kElectricchargeCy = 126, kElectricchargeRadius = 16, kGap = 4, kElectricchargeHandleHalf = 4.5;
const QString kElectricchargeLine = QStringLiteral("line");

} // namespace

CElectriccharge::CElectriccharge(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return PanelItems::texts(*this, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}});
    });
}

CElectriccharge::~CElectriccharge() = default;

QString CElectriccharge::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"252px\" height=\"252px\""
        " viewBox=\"0 0 252 252\">\n"
        "<defs>\n"
        "<radialGradient id=\"positive\" cx=\"0.36\" cy=\"0.32\" r=\"0.72\">"
        "<stop offset=\"0\" stop-color=\"#FFD0CE\"/><stop offset=\"0.35\" stop-color=\"#EF5350\"/>"
        "<stop offset=\"0.8\" stop-color=\"#C62828\"/><stop offset=\"1\" stop-color=\"#7F1514\"/></radialGradient>\n"
        "<radialGradient id=\"negative\" cx=\"0.36\" cy=\"0.32\" r=\"0.72\">"
        "<stop offset=\"0\" stop-color=\"#D2E2FF\"/><stop offset=\"0.35\" stop-color=\"#4A86E8\"/>"
        "<stop offset=\"0.8\" stop-color=\"#1E63D6\"/><stop offset=\"1\" stop-color=\"#0D3580\"/></radialGradient>\n"
        "</defs>\n"
        "<g id=\"lines\" fill=\"#333333\" stroke=\"#333333\" stroke-width=\"1.4\" stroke-linejoin=\"round\">\n"
        "<path id=\"line_1\" d=\"\"/>\n"
        "</g>\n"
        "<circle id=\"sphere\" cx=\"126\" cy=\"126\" r=\"16\" fill=\"url(#positive)\" stroke=\"#5A1010\" stroke-width=\"0.8\""
        " vector-effect=\"none\"/>\n"
        "<path id=\"sign\" fill=\"none\" stroke=\"#FFFFFF\" stroke-width=\"3\" stroke-linecap=\"round\""
        " d=\"M119,126H133M126,119V133\"/>\n"
        "<rect id=\"control_1\" x=\"241.5\" y=\"121.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"161.5\" x_to=\"441.5\"/>\n"
        "</svg>\n");
}

int CElectriccharge::getSVGType() { return 508; }

void CElectriccharge::ResetAtrribute()
{
    addCombo(kElectricchargeSign, 1101, QStringLiteral("IDS_SVG_PHYSICAL_CHARGE_SIGN"), 0,
             {QStringLiteral("IDS_SVG_PHYSICAL_CHARGE_SIGN_0"), QStringLiteral("IDS_SVG_PHYSICAL_CHARGE_SIGN_1")});
    addAttribute(kShowLines, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_FIELD_LINES"), 0, true);
    addCombo(kCount, 1103, QStringLiteral("IDS_SVG_PHYSICAL_LINE_COUNT"), 0,
             {QStringLiteral("8"), QStringLiteral("12"), QStringLiteral("16")});
}

void CElectriccharge::SVGInit(bool, bool)
{
    // The host's colour paints the field lines; sphere and sign keep theirs.
    HostPaint::only(m_pDocument, {"line_1"});
    paintSign();
    layout(false);
}

bool CElectriccharge::positive() const { return m_attributes.value(kElectricchargeSign).intValue == 0; }

int CElectriccharge::lineCount() const
{
    static const int kCounts[] = {8, 12, 16};
    const int i = m_attributes.value(kCount).intValue;
    return kCounts[i >= 0 && i < 3 ? i : 0];
}

// A line starts just off the sphere and runs to the handle: that stretch is its length,
// 20 to 300 over the handle's travel.
double CElectriccharge::lineLength() const
{
    QSvgNode *h = m_controlNodes.value(0);
    return h ? h->rect().center().x() - kElectricchargeCx - kElectricchargeRadius - kGap : 0;
}

void CElectriccharge::layout(bool bFinal)
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const double from = kElectricchargeRadius + kGap, to = from + std::max(0.0, lineLength());
    const int n = lineCount();
    const QVector<QSvgNode *> lines = Series::fit(*this, kElectricchargeLine, n);
    for (int k = 0; k < lines.size(); ++k) {
        // Anticlockwise from the first, which points right; y grows downwards.
        const double a = 2 * M_PI * k / n, ux = std::cos(a), uy = -std::sin(a);
        // Heads two thirds of the way out, pointing away from + and towards −.
        lines[k]->setAttribute(QStringLiteral("d"),
                               FieldLines::arrowed(QPointF(kElectricchargeCx + ux * from, kElectricchargeCy + uy * from),
                                                   QPointF(kElectricchargeCx + ux * to, kElectricchargeCy + uy * to), 0.62, !positive(), 4.2));
    }
    Resize(bFinal);
    repaint();
}

void CElectriccharge::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    // As far out every way as the first line reaches: the item grows about the sphere.
    const double r = std::max(kElectricchargeRadius + kGap + lineLength(), kElectricchargeRadius) + kElectricchargeHandleHalf + 1;
    enclose(QRectF(kElectricchargeCx - r, kElectricchargeCy - r, 2 * r, 2 * r), topLeft, bottomRight);
}

bool CElectriccharge::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout(bFinal);
    return true;
}

void CElectriccharge::UpdateCheckBox(bool)
{
    if (QSvgNode *lines = m_pDocument ? m_pDocument->namedNode(QStringLiteral("lines")) : nullptr)
        lines->setVisible(m_attributes.value(kShowLines).boolValue);
    repaint();
}

// The sphere's colour and sign change with the sign alone, never in a drag.
void CElectriccharge::paintSign()
{
    if (QSvgNode *sphere = m_pDocument->namedNode(QStringLiteral("sphere"))) {
        sphere->setAttribute(QStringLiteral("fill"), positive() ? QStringLiteral("url(#positive)") : QStringLiteral("url(#negative)"));
        sphere->setStrokeColor(positive() ? QColor(0x5A, 0x10, 0x10) : QColor(0x0B, 0x25, 0x5C));
    }
    if (QSvgNode *s = m_pDocument->namedNode(QStringLiteral("sign")))
        s->setAttribute(QStringLiteral("d"), positive() ? QStringLiteral("M119,126H133M126,119V133") : QStringLiteral("M119,126H133"));
}

void CElectriccharge::UpdateCombobox(bool)
{
    if (!m_pDocument)
        return;
    paintSign();
    layout(true);
}

void CElectriccharge::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array, {{"idChargeSign", kElectricchargeSign}, {"idShowFieldLines", kShowLines}, {"idLineCount", kCount}});
    PanelItems::append(*this, array, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}});
}

bool CElectriccharge::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idChargeSign", kElectricchargeSign}, {"idShowFieldLines", kShowLines}, {"idLineCount", kCount}},
                      bRecord, bUndo);
    PanelItems::apply(*this, values, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}}, m_bPosByCode);
    return true;
}

bool CElectriccharge::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
