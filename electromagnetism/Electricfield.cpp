#include "Electricfield.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {

enum { kPositive = 5100, kShowPlates = 5101, kLineColour = 5102 };
// The plates' left ends and the upper plate stay put.
constexpr double kElectricfieldLeft = 24, kPlateTop = 22, kElectricfieldPlate = 8, kInnerTop = kPlateTop + kElectricfieldPlate, kElectricfieldPitch = 30;
constexpr double kSignGap = 10, kElectricfieldSign = 3.6, kElectricfieldHandleHalf = 4.5;
const QColor kPlus(0xE5, 0x39, 0x35), kMinus(0x1E, 0x63, 0xD6);
const QString kElectricfieldLine = QStringLiteral("line"), kElectricfieldHead = QStringLiteral("arrow");
using SvgNumbers::format;

QString signs(int count, bool plus)
{
    QString d;
    for (int i = 0; i < count; ++i) {
        const double x = (i + 0.5) * kElectricfieldPitch;
        d += QStringLiteral("M%1,0H%2").arg(format(x - kElectricfieldSign), format(x + kElectricfieldSign));
        if (plus)
            d += QStringLiteral("M%1,%2V%3").arg(format(x), format(-kElectricfieldSign), format(kElectricfieldSign));
    }
    return d;
}

} // namespace

CElectricfield::CElectricfield(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return PanelItems::texts(*this, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}, {"idSeparation", "IDS_PHYSICSOBJ_SEPARATION", 1, HandlePos::Y}});
    });
}

CElectricfield::~CElectricfield() = default;

QString CElectricfield::getSVG()
{
    // Lines, heads and signs stand in a group at the first line's cell: a change of
    // length that keeps their number moves the group alone, and the heads and lower
    // signs ride in groups of their own that follow the separation.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"250px\" height=\"160px\""
        " viewBox=\"0 0 250 160\">\n"
        "<defs>\n"
        "<linearGradient id=\"plate\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#E8ECEF\"/><stop offset=\"0.45\" stop-color=\"#9EA7B0\"/>"
        "<stop offset=\"1\" stop-color=\"#5A646E\"/></linearGradient>\n"
        "</defs>\n"
        "<g id=\"field\" transform=\"translate(34,0)\">\n"
        "<g id=\"lines\" fill=\"none\" stroke=\"#E02020\" stroke-width=\"1.5\">\n"
        "<line id=\"line_1\" x1=\"15\" y1=\"30\" x2=\"15\" y2=\"130\"/>\n"
        "</g>\n"
        "<g id=\"heads\" transform=\"translate(0,80)\" fill=\"#E02020\" stroke=\"#E02020\" stroke-width=\"1\""
        " stroke-linejoin=\"round\">\n"
        "<path id=\"arrow_1\" d=\"M15,5L10.5,-4L19.5,-4Z\"/>\n"
        "</g>\n"
        "<g id=\"plates_signs\" fill=\"none\" stroke-width=\"1.8\" stroke-linecap=\"round\">\n"
        "<g transform=\"translate(0,12)\"><path id=\"sign_top\" stroke=\"#E53935\" d=\"\"/></g>\n"
        "<g id=\"lower_signs\" transform=\"translate(0,148)\"><path id=\"sign_bottom\" stroke=\"#1E63D6\" d=\"\"/></g>\n"
        "</g>\n"
        "</g>\n"
        "<rect id=\"plate_top\" x=\"24\" y=\"22\" width=\"200\" height=\"8\" rx=\"1.5\" fill=\"url(#plate)\" stroke=\"#4A5560\""
        " stroke-width=\"0.8\" vector-effect=\"none\"/>\n"
        "<rect id=\"plate_bottom\" x=\"24\" y=\"130\" width=\"200\" height=\"8\" rx=\"1.5\" fill=\"url(#plate)\""
        " stroke=\"#4A5560\" stroke-width=\"0.8\" vector-effect=\"none\"/>\n"
        "<text id=\"name\" x=\"232\" y=\"86\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"17\""
        " font-weight=\"bold\" fill=\"#E02020\">E</text>\n"
        "<rect id=\"control_1\" x=\"219.5\" y=\"21.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"79.5\" x_to=\"819.5\"/>\n"
        "<rect id=\"control_2\" x=\"119.5\" y=\"129.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"59.5\" y_to=\"629.5\"/>\n"
        "</svg>\n");
}

int CElectricfield::getSVGType() { return 507; }

void CElectricfield::ResetAtrribute()
{
    addCombo(kPositive, 1101, QStringLiteral("IDS_SVG_PHYSICAL_POSITIVE_PLATE"), 0,
             {QStringLiteral("IDS_SVG_PHYSICAL_POSITIVE_PLATE_0"), QStringLiteral("IDS_SVG_PHYSICAL_POSITIVE_PLATE_1")});
    addAttribute(kShowPlates, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_PLATES"), 0, true);
    addAttribute(kLineColour, 1103, 3, QStringLiteral("IDS_SVG_PHYSICAL_LINE_COLOR"));
    m_attributes[kLineColour].color = QColor(0xE0, 0x20, 0x20);
}

// Lines, plates and signs all have colours of their own.
QString CElectricfield::getPropName(int id) { return id == PROP_COLOR ? QString() : CBasic::getPropName(id); }

void CElectricfield::SVGInit(bool, bool)
{
    HostPaint::only(m_pDocument, {});
    if (QSvgNode *name = m_pDocument->namedNode(QStringLiteral("name")))
        m_nameSize = name->rect().size();
    m_nLaidCount = m_nLaidPolarity = -1;
    layout(false);
}

double CElectricfield::plateLength() const
{
    QSvgNode *h = m_controlNodes.value(0);
    return h ? h->rect().center().x() - kElectricfieldLeft : 0;
}

double CElectricfield::separation() const
{
    QSvgNode *h = m_controlNodes.value(1);
    return h ? h->rect().center().y() - kElectricfieldPlate / 2 - kInnerTop : 0;
}

bool CElectricfield::topPositive() const { return m_attributes.value(kPositive).intValue == 0; }

void CElectricfield::regenerate(int count, bool topPlus)
{
    const QVector<QSvgNode *> lines = Series::fit(*this, kElectricfieldLine, count);
    for (int i = 0; i < lines.size(); ++i) {
        lines[i]->setNumAttribute(QStringLiteral("x1"), (i + 0.5) * kElectricfieldPitch);
        lines[i]->setNumAttribute(QStringLiteral("x2"), (i + 0.5) * kElectricfieldPitch);
    }
    // Heads point from + to −: down when the top plate is +.
    const double d = topPlus ? 1 : -1;
    const QVector<QSvgNode *> heads = Series::fit(*this, kElectricfieldHead, count);
    for (int i = 0; i < heads.size(); ++i) {
        const double x = (i + 0.5) * kElectricfieldPitch;
        heads[i]->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2L%3,%4L%5,%4Z")
                                                        .arg(format(x), format(5 * d), format(x - 4.5), format(-4 * d), format(x + 4.5)));
    }
    QSvgNode *top = m_pDocument->namedNode(QStringLiteral("sign_top"));
    QSvgNode *bottom = m_pDocument->namedNode(QStringLiteral("sign_bottom"));
    if (top && bottom) {
        top->setAttribute(QStringLiteral("d"), signs(count, topPlus));
        top->setStrokeColor(topPlus ? kPlus : kMinus);
        bottom->setAttribute(QStringLiteral("d"), signs(count, !topPlus));
        bottom->setStrokeColor(topPlus ? kMinus : kPlus);
    }
    m_nLaidCount = count;
    m_nLaidPolarity = topPlus;
}

void CElectricfield::layout(bool bFinal)
{
    if (!m_pDocument || m_controlNodes.size() < 2)
        return;
    const double len = plateLength(), sep = separation();
    const double innerBottom = kInnerTop + sep;
    const Series::Spread spread = Series::spread(kElectricfieldLeft, len, kElectricfieldPitch);
    if (spread.count != m_nLaidCount || int(topPositive()) != m_nLaidPolarity)
        regenerate(spread.count, topPositive());
    // Lines run from plate to plate.
    for (QSvgNode *l : Series::members(*this, kElectricfieldLine))
        l->setNumAttribute(QStringLiteral("y2"), innerBottom);
    auto translate = [](double x, double y) { return QStringLiteral("translate(%1,%2)").arg(format(x), format(y)); };
    if (QSvgNode *field = m_pDocument->namedNode(QStringLiteral("field")))
        field->setAttribute(QStringLiteral("transform"), translate(spread.first - kElectricfieldPitch / 2, 0));
    if (QSvgNode *heads = m_pDocument->namedNode(QStringLiteral("heads")))
        heads->setAttribute(QStringLiteral("transform"), translate(0, kInnerTop + sep / 2));
    if (QSvgNode *lower = m_pDocument->namedNode(QStringLiteral("lower_signs")))
        lower->setAttribute(QStringLiteral("transform"), translate(0, innerBottom + kElectricfieldPlate + kSignGap));
    for (const char *id : {"plate_top", "plate_bottom"})
        if (QSvgNode *p = m_pDocument->namedNode(QLatin1String(id)))
            p->setNumAttribute(QStringLiteral("width"), len);
    if (QSvgNode *p = m_pDocument->namedNode(QStringLiteral("plate_bottom")))
        p->setNumAttribute(QStringLiteral("y"), innerBottom);
    if (QSvgNode *name = m_pDocument->namedNode(QStringLiteral("name"))) {
        name->setNumAttribute(QStringLiteral("x"), kElectricfieldLeft + len + 8);
        name->setNumAttribute(QStringLiteral("y"), kInnerTop + sep / 2 + m_nameSize.height() * 0.35);
    }
    // Each handle stays where the other's value puts it.
    m_controlNodes.at(1)->setNumAttribute(QStringLiteral("x"), kElectricfieldLeft + len / 2 - kElectricfieldHandleHalf);
    Resize(bFinal);
    repaint();
}

void CElectricfield::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    const double len = plateLength(), sep = separation();
    const double signsBelow = kInnerTop + sep + kElectricfieldPlate + kSignGap + kElectricfieldSign + 2;
    enclose(QRectF(QPointF(kElectricfieldLeft - 1, kPlateTop - kSignGap - kElectricfieldSign - 2), QPointF(kElectricfieldLeft + len + 9 + m_nameSize.width(), signsBelow)),
            topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

bool CElectricfield::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    layout(bFinal);
    return true;
}

void CElectricfield::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kLineColour).color;
    if (QSvgNode *lines = m_pDocument->namedNode(QStringLiteral("lines")))
        lines->setStrokeColor(c);
    if (QSvgNode *heads = m_pDocument->namedNode(QStringLiteral("heads"))) {
        heads->setFillColor(c);
        heads->setStrokeColor(c);
    }
    if (QSvgNode *name = m_pDocument->namedNode(QStringLiteral("name")))
        name->setFillColor(c);
    repaint();
}

void CElectricfield::UpdateCheckBox(bool)
{
    const bool on = m_attributes.value(kShowPlates).boolValue;
    for (const char *id : {"plate_top", "plate_bottom", "plates_signs"})
        if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QLatin1String(id)) : nullptr)
            n->setVisible(on);
    repaint();
}

void CElectricfield::UpdateCombobox(bool) { layout(true); }

void CElectricfield::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array,
                       {{"idPositivePlate", kPositive}, {"idShowPlates", kShowPlates}, {"idLineColor", kLineColour}});
    PanelItems::append(*this, array,
                       {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X},
                        {"idSeparation", "IDS_PHYSICSOBJ_SEPARATION", 1, HandlePos::Y}});
}

bool CElectricfield::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values,
                      {{"idPositivePlate", kPositive}, {"idShowPlates", kShowPlates}, {"idLineColor", kLineColour}},
                      bRecord, bUndo);
    PanelItems::apply(*this, values,
                      {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X},
                       {"idSeparation", "IDS_PHYSICSOBJ_SEPARATION", 1, HandlePos::Y}},
                      m_bPosByCode);
    return true;
}

bool CElectricfield::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
