#include "BarMagnet.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include "bases/Poles.h"
#include <svgobj.h>

namespace {
enum { kLetters = 5103 };
constexpr double kLeftHalf = 40, kRightHalf = 120; // the halves' centres
}

CBarMagnet::CBarMagnet(CSVGObj *owner) : CAttribute(owner) {}

CBarMagnet::~CBarMagnet() = default;

QString CBarMagnet::getSVG()
{
    // Each half is a flat pole colour under a shared sheen, so that any colour a user
    // picks still reads as a rounded steel bar.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"160px\" height=\"40px\""
        " viewBox=\"0 0 160 40\">\n"
        "<defs>\n"
        "<linearGradient id=\"sheen\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.45\"/>"
        "<stop offset=\"0.3\" stop-color=\"#FFFFFF\" stop-opacity=\"0.08\"/>"
        "<stop offset=\"0.7\" stop-color=\"#000000\" stop-opacity=\"0\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.3\"/></linearGradient>\n"
        "</defs>\n"
        "<rect id=\"south\" x=\"0.5\" y=\"0.5\" width=\"79.5\" height=\"39\" fill=\"#1E63D6\"/>\n"
        "<rect id=\"north\" x=\"80\" y=\"0.5\" width=\"79.5\" height=\"39\" fill=\"#E53935\"/>\n"
        "<rect x=\"0.5\" y=\"0.5\" width=\"159\" height=\"39\" rx=\"1.5\" fill=\"url(#sheen)\" stroke=\"#2A2A2A\""
        " stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<line x1=\"80\" y1=\"0.5\" x2=\"80\" y2=\"39.5\" stroke=\"#2A2A2A\" stroke-width=\"0.8\" stroke-opacity=\"0.6\""
        " vector-effect=\"none\"/>\n"
        "<text id=\"south_text\" x=\"40\" y=\"28\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"22\""
        " font-weight=\"bold\" text-anchor=\"middle\" fill=\"#FFFFFF\">S</text>\n"
        "<text id=\"north_text\" x=\"120\" y=\"28\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"22\""
        " font-weight=\"bold\" text-anchor=\"middle\" fill=\"#FFFFFF\">N</text>\n"
        "</svg>\n");
}

int CBarMagnet::getSVGType() { return 504; }

void CBarMagnet::ResetAtrribute()
{
    addCombo(Poles::kDirection, 1101, QStringLiteral("IDS_SVG_PHYSICAL_POLE_DIRECTION"), 0,
             {QStringLiteral("IDS_SVG_PHYSICAL_POLE_DIRECTION_0"), QStringLiteral("IDS_SVG_PHYSICAL_POLE_DIRECTION_1")});
    Poles::addColours(m_attributes);
    addAttribute(kLetters, 1104, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_LETTERS"), 0, true);
}

// The poles have colours of their own; the outline and letters keep theirs.
QString CBarMagnet::getPropName(int id) { return id == PROP_COLOR ? QString() : CAttribute::getPropName(id); }

void CBarMagnet::SVGInit(bool, bool) { HostPaint::only(m_pDocument, {}); }

bool CBarMagnet::northOnRight() const { return m_attributes.value(Poles::kDirection).intValue == 0; }

void CBarMagnet::UpdateColor(bool)
{
    Poles::paint(m_pDocument, m_attributes, "north", "south");
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CBarMagnet::UpdateCheckBox(bool)
{
    const bool on = m_attributes.value(kLetters).boolValue;
    for (const char *id : {"north_text", "south_text"})
        if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QLatin1String(id)) : nullptr)
            n->setVisible(on);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CBarMagnet::UpdateCombobox(bool)
{
    if (!m_pDocument)
        return;
    const bool right = northOnRight();
    const struct {
        const char *half, *letter;
        bool onRight;
    } parts[] = {{"north", "north_text", right}, {"south", "south_text", !right}};
    for (const auto &p : parts) {
        if (QSvgNode *half = m_pDocument->namedNode(QLatin1String(p.half)))
            half->setNumAttribute(QStringLiteral("x"), p.onRight ? 80 : 0.5);
        if (QSvgNode *letter = m_pDocument->namedNode(QLatin1String(p.letter)))
            letter->setNumAttribute(QStringLiteral("x"), p.onRight ? kRightHalf : kLeftHalf);
    }
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CBarMagnet::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array,
                       {{"idPoleDirection", Poles::kDirection}, {"idNorthColor", Poles::kNorth},
                        {"idSouthColor", Poles::kSouth}, {"idShowLetters", kLetters}});
}

bool CBarMagnet::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values,
                      {{"idPoleDirection", Poles::kDirection}, {"idNorthColor", Poles::kNorth},
                       {"idSouthColor", Poles::kSouth}, {"idShowLetters", kLetters}},
                      bRecord, bUndo);
    return true;
}

bool CBarMagnet::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
