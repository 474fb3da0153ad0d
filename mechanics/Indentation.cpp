#include "Indentation.h"
#include "bases/HandlePos.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kMaterialAttr = 5100;
constexpr double kIndentationLeft = 0, kIndentationTop = 40, kBlockW = 200, kBlockH = 80, kIndentationCentre = kIndentationLeft + kBlockW / 2;
constexpr double kMaxDepth = 48, kMinWidth = 40, kMaxWidth = 200;
constexpr int kPores = 96;

const HandlePos::Slot kIndentationSlots[] = {
    {0, HandlePos::Y, "idDepth", "IDS_PHYSICSOBJ_DEPTH", false},
    {1, HandlePos::X, "idWidth", "IDS_PHYSICSOBJ_WIDTH", false},
};

struct Look {
    const char *body, *outline, *pore;
    double size; // below 1: round grains
};
const Look kLooks[] = {
    {"url(#id_sponge)", "#B08A1E", "#C79A1E", 1},
    {"url(#id_sand)", "#8C6D3C", "#8E6B38", 0.38},
};

using SvgNumbers::format;

// The pores' places in the block at rest, the same for every object: a jittered grid,
// from a small fixed generator, so that the texture looks natural yet reopens alike.
struct Pore {
    double x, y, rx, ry;
};
const std::vector<Pore> &restingPores()
{
    static const std::vector<Pore> pores = [] {
        std::vector<Pore> out;
        unsigned s = 2463534242u;
        auto next = [&s] {
            s ^= s << 13;
            s ^= s >> 17;
            s ^= s << 5;
            return (s % 10000) / 10000.0;
        };
        const int cols = 16, rows = kPores / cols;
        for (int r = 0; r < rows; ++r)
            for (int c = 0; c < cols; ++c) {
                double x = kIndentationLeft + (c + 0.5 + (r % 2 ? 0.25 : -0.25) + (next() - 0.5) * 0.5) * kBlockW / cols;
                double y = kIndentationTop + (r + 0.5 + (next() - 0.5) * 0.6) * kBlockH / rows;
                // Wholly inside the block at rest, so that none pokes out of a face.
                x = std::max(kIndentationLeft + 6, std::min(kIndentationLeft + kBlockW - 6, x));
                y = std::max(kIndentationTop + 5, std::min(kIndentationTop + kBlockH - 5, y));
                out.push_back({std::round(x * 100) / 100, std::round(y * 100) / 100, 2.2 + next() * 2.6, 1.4 + next() * 1.6});
            }
        return out;
    }();
    return pores;
}

// A sand grain's radius, from its pore's width.
double grain(const Pore &p) { return 0.9 + (p.rx - 2.2) / 2.6 * 0.9; }

} // namespace

CIndentation::CIndentation(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CIndentation::~CIndentation() = default;

QString CIndentation::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"201px\" height=\"86px\""
        " viewBox=\"-0.5 35 201 86\">\n"
        "<defs>\n"
        "<linearGradient id=\"id_sponge\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFE27A\"/><stop offset=\"0.5\" stop-color=\"#F5CC45\"/>"
        "<stop offset=\"1\" stop-color=\"#DDAE2A\"/></linearGradient>\n"
        "<linearGradient id=\"id_sand\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#EED9A8\"/><stop offset=\"0.6\" stop-color=\"#E0C58C\"/>"
        "<stop offset=\"1\" stop-color=\"#C9AA6E\"/></linearGradient>\n"
        "</defs>\n"
        "<path id=\"material\" fill=\"url(#id_sponge)\" stroke=\"#B08A1E\" stroke-width=\"1\" stroke-linejoin=\"round\""
        " vector-effect=\"non-scaling-stroke\" d=\"M0,40H50C75,40 70,60 100,60C130,60 125,40 150,40H200V120H0Z\"/>\n"
        "<ellipse id=\"pore_1\" cx=\"10\" cy=\"50\" rx=\"3\" ry=\"2\" fill=\"#C79A1E\" fill-opacity=\"0.75\"/>\n"
        "<path id=\"dent\" fill=\"none\" stroke=\"#000000\" stroke-opacity=\"0.3\" stroke-width=\"2\" stroke-linecap=\"round\""
        " d=\"M50,40C75,40 70,60 100,60C130,60 125,40 150,40\"/>\n"
        "<rect id=\"control_1\" x=\"95.5\" y=\"55.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"35.5\" y_to=\"83.5\"/>\n"
        "<rect id=\"control_2\" x=\"145.5\" y=\"35.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"115.5\" x_to=\"195.5\"/>\n"
        "</svg>\n");
}

int CIndentation::getSVGType() { return 113; }

void CIndentation::ResetAtrribute() { addAttribute(kMaterialAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_MATERIAL"), 0); }

QByteArray CIndentation::GetComboboxData()
{
    return comboData({QStringLiteral("IDS_SVG_PHYSICAL_SPONGE"), QStringLiteral("IDS_SVG_PHYSICAL_SAND")});
}

void CIndentation::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("dent")))
        n->setStrokeEnabled(false);
    const QVector<QSvgNode *> pores = Series::fit(*this, QStringLiteral("pore"), kPores);
    for (QSvgNode *p : pores)
        p->setFillEnabled(false);
    paintTexture();
    layout();
    Resize(false);
}

double CIndentation::sinkAt(double x) const
{
    // A raised cosine: level with the surface at the rims, flat at the bottom.
    const double half = m_dWidth / 2, u = (x - kIndentationCentre) / half;
    if (!(std::fabs(u) < 1))
        return 0;
    return m_dDepth * 0.5 * (1 + std::cos(u * 3.141592653589793));
}

void CIndentation::layout()
{
    if (!m_pDocument || m_controlNodes.size() < 2)
        return;
    auto held = [](double v, double lo, double hi) { return std::isfinite(v) ? std::max(lo, std::min(hi, v)) : lo; };
    m_dDepth = held(HandlePos::centre(*this, 0).y() - kIndentationTop, 0, kMaxDepth);
    m_dWidth = held(2 * (HandlePos::centre(*this, 1).x() - kIndentationCentre), kMinWidth, kMaxWidth);
    const double l = kIndentationCentre - m_dWidth / 2, r = kIndentationCentre + m_dWidth / 2, b = kIndentationTop + m_dDepth;
    // Two cubic halves that follow the raised cosine closely, level at rims and bottom.
    const double k = m_dWidth * 0.5 * 0.3642;
    const QString curve = QStringLiteral("M%1,%2C%3,%2 %4,%5 %6,%5C%7,%5 %8,%2 %9,%2")
                              .arg(format(l), format(kIndentationTop), format(l + k), format(kIndentationCentre - k), format(b), format(kIndentationCentre), format(kIndentationCentre + k),
                                   format(r - k), format(r));
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("dent")))
        n->setAttribute(QStringLiteral("d"), curve);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("material")))
        n->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2H%3").arg(format(kIndentationLeft), format(kIndentationTop), format(l)) + curve.mid(curve.indexOf(QLatin1Char('C'))) +
                                                 QStringLiteral("H%1V%2H%3Z").arg(format(kIndentationLeft + kBlockW), format(kIndentationTop + kBlockH), format(kIndentationLeft)));
    // Each column of the block is squeezed evenly between its pressed top and the bottom.
    const QVector<QSvgNode *> pores = Series::members(*this, QStringLiteral("pore"));
    const std::vector<Pore> &rest = restingPores();
    const double size = kLooks[m_attributes.value(kMaterialAttr).intValue == 1 ? 1 : 0].size;
    for (int i = 0; i < pores.size() && i < int(rest.size()); ++i) {
        const Pore &p = rest[size_t(i)];
        const double squeeze = 1 - sinkAt(p.x) / kBlockH;
        const double y = kIndentationTop + kBlockH - (kIndentationTop + kBlockH - p.y) * squeeze;
        pores[i]->setNumAttribute(QStringLiteral("cy"), y);
        // A sponge's pores flatten where it is squeezed; sand grains are pushed aside whole.
        pores[i]->setNumAttribute(QStringLiteral("ry"), size < 1 ? grain(p) : p.ry * squeeze);
    }
    HandlePos::placeCentre(*this, 0, QPointF(kIndentationCentre, b));
    HandlePos::placeCentre(*this, 1, QPointF(r, kIndentationTop));
}

void CIndentation::paintTexture()
{
    if (!m_pDocument)
        return;
    const int m = m_attributes.value(kMaterialAttr).intValue == 1 ? 1 : 0;
    const Look &look = kLooks[m];
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("material"))) {
        n->setAttribute(QStringLiteral("fill"), QLatin1String(look.body));
        n->setAttribute(QStringLiteral("stroke"), QLatin1String(look.outline));
    }
    const QVector<QSvgNode *> pores = Series::members(*this, QStringLiteral("pore"));
    const std::vector<Pore> &rest = restingPores();
    for (int i = 0; i < pores.size() && i < int(rest.size()); ++i) {
        // Sand grains are small and round; sponge pores wide and soft.
        pores[i]->setNumAttribute(QStringLiteral("cx"), rest[size_t(i)].x);
        pores[i]->setNumAttribute(QStringLiteral("rx"), m == 1 ? grain(rest[size_t(i)]) : rest[size_t(i)].rx);
        pores[i]->setAttribute(QStringLiteral("fill"), QLatin1String(look.pore));
        pores[i]->setAttribute(QStringLiteral("fill-opacity"), m == 1 ? QStringLiteral("0.9") : QStringLiteral("0.75"));
    }
}

void CIndentation::UpdateCombobox(bool)
{
    paintTexture();
    layout();
    repaint();
}

bool CIndentation::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CIndentation::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(QRectF(kIndentationLeft - 0.5, kIndentationTop - 0.5, kBlockW + 1, kBlockH + 1), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CIndentation::posChangedByControl(int index) { HandlePos::post(*this, kIndentationSlots, index); }

double CIndentation::getControlPos(int index) { return HandlePos::get(*this, kIndentationSlots, index); }

void CIndentation::setControlPos(int index, double pos) { HandlePos::setWithin(*this, kIndentationSlots, index, pos, m_bPosByCode); }

void CIndentation::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idMaterial", kMaterialAttr}});
    m_panel.append(*this, array, 1, kIndentationSlots);
}

bool CIndentation::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idMaterial", kMaterialAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kIndentationSlots, m_bPosByCode);
    return true;
}

bool CIndentation::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
