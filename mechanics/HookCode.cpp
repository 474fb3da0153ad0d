#include "HookCode.h"
#include "bases/HostColour.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {

constexpr int kHookCodeCountAttr = 5100, kMassAttr = 5101;
constexpr int kMaxCount = 6;
// The stack hangs from the hook: its top at kStackTop, on the hanger's axis.
constexpr double kAxisX = 40, kStackTop = 30, kHookCodePlate = 4;

struct Disc {
    int grams;
    double width, thickness;
};
// Heavier masses are wider and thicker, as a real set is.
constexpr Disc kDiscs[] = {{10, 34, 6}, {50, 44, 10}, {100, 52, 14}};

} // namespace

CHookCode::CHookCode(CSVGObj *owner) : CBasic(owner) {}

CHookCode::~CHookCode() = default;

QString CHookCode::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"104px\" height=\"62px\" viewBox=\"14 0 104 62\">\n"
        "<defs>\n"
        "<linearGradient id=\"hc_brass\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#7E8790\"/><stop offset=\"0.3\" stop-color=\"#D8DEE3\"/>"
        "<stop offset=\"0.55\" stop-color=\"#A7B0B8\"/><stop offset=\"1\" stop-color=\"#5F6973\"/></linearGradient>\n"
        "<linearGradient id=\"hc_rod\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#5E6770\"/><stop offset=\"0.45\" stop-color=\"#E4E8EC\"/>"
        "<stop offset=\"1\" stop-color=\"#56606A\"/></linearGradient>\n"
        "</defs>\n"
        "<path id=\"hook\" d=\"M40,24 V13 A6,6 0 1 0 34,7\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"2.4\""
        " stroke-linecap=\"round\" vector-effect=\"none\"/>\n"
        "<g id=\"hanger\">"
        "<rect id=\"rod\" x=\"38.5\" y=\"22\" width=\"3\" height=\"28\" fill=\"url(#hc_rod)\" stroke=\"#4A5560\""
        " stroke-width=\"0.5\" vector-effect=\"none\"/>"
        "<rect id=\"plate\" x=\"17\" y=\"50\" width=\"46\" height=\"4\" rx=\"1\" ry=\"1\" fill=\"url(#hc_rod)\" stroke=\"#4A5560\""
        " stroke-width=\"0.8\" vector-effect=\"none\"/>"
        "</g>\n"
        "<g id=\"mass_1\">"
        "<rect x=\"18\" y=\"30\" width=\"44\" height=\"10\" rx=\"2\" ry=\"2\" fill=\"#9EA7B0\" stroke=\"#4A5560\" stroke-width=\"0.8\""
        " vector-effect=\"none\"/>"
        "<rect x=\"18\" y=\"30\" width=\"44\" height=\"10\" rx=\"2\" ry=\"2\" fill=\"url(#hc_brass)\"/>"
        "<line x1=\"40\" y1=\"30.5\" x2=\"62\" y2=\"30.5\" fill=\"none\" stroke=\"#FFFFFF\" stroke-opacity=\"0.7\""
        " stroke-width=\"0.8\" vector-effect=\"none\"/>"
        "</g>\n"
        "<text id=\"mass_label\" x=\"70\" y=\"44.3\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"12\""
        " fill=\"#1A1A1A\">100 g</text>\n"
        "</svg>\n");
}

int CHookCode::getSVGType() { return 207; }

void CHookCode::ResetAtrribute()
{
    addAttribute(kHookCodeCountAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_COUNT"), 1);
    // The second combo box has options of its own: the masses' property item shows them,
    // not the count's.
    addCombo(kMassAttr, 1102, QStringLiteral("IDS_SVG_PHYSICAL_MASS_EACH"), 1,
             {QStringLiteral("IDS_SVG_PHYSICAL_MASS_10G"), QStringLiteral("IDS_SVG_PHYSICAL_MASS_50G"),
              QStringLiteral("IDS_SVG_PHYSICAL_MASS_100G")});
}

QByteArray CHookCode::GetComboboxData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    // The count's choices, shown as written.
    out << int(kMaxCount) << int(0);
    for (int n = 1; n <= kMaxCount; ++n)
        out << QString::number(n);
    return data;
}

int CHookCode::count() const { return qBound(0, m_attributes.value(kHookCodeCountAttr).intValue, kMaxCount - 1) + 1; }

int CHookCode::gramsEach() const { return kDiscs[qBound(0, m_attributes.value(kMassAttr).intValue, 2)].grams; }

QString CHookCode::totalText() const { return QStringLiteral("%1 g").arg(count() * gramsEach()); }

void CHookCode::SVGInit(bool, bool)
{
    // The host's colour is the masses' paint; hook and hanger stay bare metal.
    HostColour::paintsOnly(*this, {QStringLiteral("mass_1")});
    layout();
    Resize(false);
}

void CHookCode::UpdateCombobox(bool)
{
    layout();
    Resize(true);
    repaint();
}

void CHookCode::layout()
{
    if (!m_pDocument)
        return;
    const Disc &disc = kDiscs[qBound(0, m_attributes.value(kMassAttr).intValue, 2)];
    const int n = count();
    const double left = kAxisX - disc.width / 2, bottom = kStackTop + n * disc.thickness;
    const QVector<QSvgNode *> masses = Series::fit(*this, QStringLiteral("mass"), n);
    static const QString x = QStringLiteral("x"), y = QStringLiteral("y"), w = QStringLiteral("width"),
                         h = QStringLiteral("height");
    for (int k = 0; k < masses.size(); ++k) {
        const auto &parts = masses[k]->children();
        if (parts.size() < 3)
            continue;
        const double top = kStackTop + k * disc.thickness;
        for (int i = 0; i < 2; ++i) {
            parts[i]->setNumAttribute(x, left);
            parts[i]->setNumAttribute(y, top);
            parts[i]->setNumAttribute(w, disc.width);
            parts[i]->setNumAttribute(h, disc.thickness);
        }
        // The light catches the upper edge, right of the slot.
        parts[2]->setNumAttribute(QStringLiteral("y1"), top + 0.5);
        parts[2]->setNumAttribute(QStringLiteral("y2"), top + 0.5);
        parts[2]->setNumAttribute(QStringLiteral("x2"), left + disc.width - 2);
    }
    // The rod runs down through the stack to the plate it stands on.
    if (QSvgNode *rod = m_pDocument->namedNode(QStringLiteral("rod")))
        rod->setNumAttribute(h, bottom - rod->numAttribute(y));
    if (QSvgNode *plate = m_pDocument->namedNode(QStringLiteral("plate"))) {
        plate->setNumAttribute(x, left - 1);
        plate->setNumAttribute(y, bottom);
        plate->setNumAttribute(w, disc.width + 2);
    }
    if (QSvgNode *label = m_pDocument->namedNode(QStringLiteral("mass_label"))) {
        label->setText(totalText());
        label->setNumAttribute(x, left + disc.width + 8);
        label->setNumAttribute(y, (kStackTop + bottom + kHookCodePlate) / 2 + 4.3);
    }
}

void CHookCode::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    if (m_pDocument)
        enclose(m_pDocument->transformedBounds().adjusted(-1, -1, 1, 1), topLeft, bottomRight);
}

void CHookCode::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array, {{"idCount", kHookCodeCountAttr}, {"idMassEach", kMassAttr}});
}

bool CHookCode::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idCount", kHookCodeCountAttr}, {"idMassEach", kMassAttr}}, bRecord, bUndo);
    return true;
}

bool CHookCode::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bByCode);
    return r;
}
