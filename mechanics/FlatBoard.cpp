#include "FlatBoard.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kSurfaceAttr = 5100;
constexpr double kFlatBoardLeft = 0, kFlatBoardBottom = 70;
constexpr double kFlatBoardMinLength = 60, kFlatBoardMaxLength = 1000, kMinThickness = 6, kMaxThickness = 60;
// The cloth's hatch leans this much either way (tan 40°).
constexpr double kHatchLean = 0.83909963117728;

const HandlePos::Slot kFlatBoardSlots[] = {
    {0, HandlePos::X, "idLength", "IDS_PHYSICSOBJ_LENGTH", false},
    {1, HandlePos::Y, "idThickness", "IDS_PHYSICSOBJ_THICKNESS", true},
};

double clamp(double v, double lo, double hi) { return std::isfinite(v) ? std::max(lo, std::min(hi, v)) : lo; }

} // namespace

CFlatBoard::CFlatBoard(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CFlatBoard::~CFlatBoard() = default;

QString CFlatBoard::getSVG()
{
    // Grain runs along the plank: bands across its thickness, and two streaks of
    // uneven dashes along it, so that nothing has to be regenerated as it grows.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"305px\" height=\"25px\""
        " viewBox=\"-0.5 45.5 305 25\">\n"
        "<defs>\n"
        "<linearGradient id=\"fb_wood\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#D9B67F\"/><stop offset=\"0.12\" stop-color=\"#C8A165\"/>"
        "<stop offset=\"0.27\" stop-color=\"#BE9559\"/><stop offset=\"0.36\" stop-color=\"#CCA76C\"/>"
        "<stop offset=\"0.52\" stop-color=\"#C29A5E\"/><stop offset=\"0.6\" stop-color=\"#CFAA70\"/>"
        "<stop offset=\"0.78\" stop-color=\"#BB9155\"/><stop offset=\"0.88\" stop-color=\"#C49B60\"/>"
        "<stop offset=\"1\" stop-color=\"#A47B45\"/></linearGradient>\n"
        "<linearGradient id=\"fb_planed\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#EDD2A0\"/><stop offset=\"1\" stop-color=\"#D2AD72\"/></linearGradient>\n"
        "<linearGradient id=\"fb_glass\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\"/><stop offset=\"0.4\" stop-color=\"#DDEEFF\"/>"
        "<stop offset=\"1\" stop-color=\"#9FC0E2\"/></linearGradient>\n"
        "</defs>\n"
        "<rect id=\"board\" x=\"0\" y=\"50\" width=\"300\" height=\"20\" rx=\"1\" ry=\"1\" fill=\"url(#fb_wood)\""
        " stroke=\"#7A5A2E\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>\n"
        "<line id=\"grain_1\" x1=\"3\" y1=\"58.225\" x2=\"297\" y2=\"58.225\" stroke=\"#8A6534\" stroke-opacity=\"0.4\""
        " stroke-width=\"0.45\" stroke-dasharray=\"118 3 41 2 76 5 19 2 93 4 57 2\"/>\n"
        "<line id=\"grain_2\" x1=\"3\" y1=\"64.45\" x2=\"297\" y2=\"64.45\" stroke=\"#8A6534\" stroke-opacity=\"0.32\""
        " stroke-width=\"0.4\" stroke-dasharray=\"67 2 131 4 28 3 88 2 45 5\"/>\n"
        "<rect id=\"surface\" x=\"0.5\" y=\"50.5\" width=\"299\" height=\"3.5\" fill=\"url(#fb_planed)\"/>\n"
        "<line id=\"gloss\" x1=\"1.5\" y1=\"51.3\" x2=\"298.5\" y2=\"51.3\" stroke=\"#FFFFFF\" stroke-opacity=\"0.9\""
        " stroke-width=\"0.8\" stroke-linecap=\"round\" display=\"none\"/>\n"
        "<g id=\"hatch_a\" transform=\"translate(0.5,50.5) skewX(40)\" display=\"none\">"
        "<line id=\"hatch_a_line\" x1=\"0\" y1=\"1.75\" x2=\"296.063151\" y2=\"1.75\" stroke=\"#5E6A46\""
        " stroke-width=\"3.5\" stroke-dasharray=\"0.5 1.1\"/></g>\n"
        "<g id=\"hatch_b\" transform=\"translate(0.5,50.5) skewX(-40)\" display=\"none\">"
        "<line id=\"hatch_b_line\" x1=\"2.936849\" y1=\"1.75\" x2=\"299\" y2=\"1.75\" stroke=\"#5E6A46\""
        " stroke-opacity=\"0.7\" stroke-width=\"3.5\" stroke-dasharray=\"0.5 1.1\"/></g>\n"
        "<rect id=\"control_1\" x=\"295.5\" y=\"55.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"55.5\" x_to=\"995.5\"/>\n"
        "<rect id=\"control_2\" x=\"145.5\" y=\"45.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"5.5\" y_to=\"59.5\"/>\n"
        "</svg>\n");
}

int CFlatBoard::getSVGType() { return 100; }

void CFlatBoard::ResetAtrribute()
{
    addAttribute(kSurfaceAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_SURFACE"), 1);
}

QByteArray CFlatBoard::GetComboboxData()
{
    return comboData({QStringLiteral("IDS_SVG_PHYSICAL_SURFACE_SMOOTH"), QStringLiteral("IDS_SVG_PHYSICAL_SURFACE_WOOD"),
                      QStringLiteral("IDS_SVG_PHYSICAL_SURFACE_ROUGH")});
}

int CFlatBoard::surface() const { return m_attributes.value(kSurfaceAttr).intValue; }

void CFlatBoard::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    // The surface and its texture keep their own paint under the host's colour.
    for (const char *id : {"grain_1", "grain_2", "gloss", "hatch_a_line", "hatch_b_line"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setStrokeEnabled(false);
    if (QSvgNode *strip = m_pDocument->namedNode(QStringLiteral("surface")))
        strip->setFillEnabled(false);
    layout();
    Resize(false);
}

void CFlatBoard::layout()
{
    if (!m_pDocument || m_controlNodes.size() < 2)
        return;
    m_dLength = clamp(HandlePos::centre(*this, 0).x() - kFlatBoardLeft, kFlatBoardMinLength, kFlatBoardMaxLength);
    m_dThickness = clamp(kFlatBoardBottom - HandlePos::centre(*this, 1).y(), kMinThickness, kMaxThickness);
    const double len = m_dLength, t = m_dThickness, top = kFlatBoardBottom - t;
    const double strip = std::min(3.5, t * 0.3);
    auto set = [this](const char *id, std::initializer_list<std::pair<const char *, double>> values) {
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            for (const auto &v : values)
                n->setNumAttribute(QLatin1String(v.first), v.second);
    };
    set("board", {{"y", top}, {"width", len}, {"height", t}});
    set("surface", {{"y", top + 0.5}, {"width", len - 1}, {"height", strip}});
    const double below = t - strip - 0.5;
    set("grain_1", {{"y1", top + strip + below * 0.35}, {"y2", top + strip + below * 0.35}, {"x2", kFlatBoardLeft + len - 3}});
    set("grain_2", {{"y1", top + strip + below * 0.7}, {"y2", top + strip + below * 0.7}, {"x2", kFlatBoardLeft + len - 3}});
    const double glossY = top + 0.5 + std::min(0.8, strip * 0.3);
    set("gloss", {{"y1", glossY}, {"y2", glossY}, {"x2", kFlatBoardLeft + len - 1.5}});
    // The hatch lines are sheared about the strip's top: their ends are set back so that
    // the sheared stripes stay within the strip.
    const double lean = strip * kHatchLean;
    set("hatch_a_line", {{"y1", strip / 2}, {"y2", strip / 2}, {"x2", len - 1 - lean}, {"stroke-width", strip}});
    set("hatch_b_line", {{"x1", lean}, {"y1", strip / 2}, {"y2", strip / 2}, {"x2", len - 1}, {"stroke-width", strip}});
    const QString at = QStringLiteral("translate(%1,%2) ").arg(SvgNumbers::format(kFlatBoardLeft + 0.5), SvgNumbers::format(top + 0.5));
    if (QSvgNode *g = m_pDocument->namedNode(QStringLiteral("hatch_a")))
        g->setAttribute(QStringLiteral("transform"), at + QStringLiteral("skewX(40)"));
    if (QSvgNode *g = m_pDocument->namedNode(QStringLiteral("hatch_b")))
        g->setAttribute(QStringLiteral("transform"), at + QStringLiteral("skewX(-40)"));
    HandlePos::placeCentre(*this, 0, QPointF(kFlatBoardLeft + len, kFlatBoardBottom - t / 2));
    HandlePos::placeCentre(*this, 1, QPointF(kFlatBoardLeft + len / 2, top));
}

void CFlatBoard::UpdateCombobox(bool)
{
    if (!m_pDocument)
        return;
    const int s = surface();
    static const char *const kFills[] = {"url(#fb_glass)", "url(#fb_planed)", "#8E9A70"};
    if (QSvgNode *strip = m_pDocument->namedNode(QStringLiteral("surface")))
        if (s >= 0 && s < 3)
            strip->setAttribute(QStringLiteral("fill"), QLatin1String(kFills[s]));
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("gloss")))
        n->setVisible(s == 0);
    for (const char *id : {"hatch_a", "hatch_b"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setVisible(s == 2);
    repaint();
}

bool CFlatBoard::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CFlatBoard::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    // The plank with its outline, and the handles that may stand past it.
    enclose(QRectF(kFlatBoardLeft - 0.5, kFlatBoardBottom - m_dThickness - 0.5, m_dLength + 1, m_dThickness + 1), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CFlatBoard::posChangedByControl(int index) { HandlePos::post(*this, kFlatBoardSlots, index); }

double CFlatBoard::getControlPos(int index) { return HandlePos::get(*this, kFlatBoardSlots, index); }

void CFlatBoard::setControlPos(int index, double pos) { HandlePos::setWithin(*this, kFlatBoardSlots, index, pos, m_bPosByCode); }

void CFlatBoard::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(array, 0, surface(), [this] {
        return attributeItem(kSurfaceAttr, QStringLiteral("idSurface"), QStringLiteral("IDS_PHYSICSOBJ_SURFACE"));
    });
    m_panel.append(*this, array, 1, kFlatBoardSlots);
}

bool CFlatBoard::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    applyAttributeItems(values, {{QStringLiteral("idSurface"), kSurfaceAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kFlatBoardSlots, m_bPosByCode);
    return true;
}

bool CFlatBoard::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
