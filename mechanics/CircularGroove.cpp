#include "CircularGroove.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kShapeAttr = 5100, kCircularGrooveColourAttr = 5101;
constexpr double kCircularGrooveCx = 360, kCircularGrooveCy = 10, kCircularGrooveMinR = 20, kCircularGrooveMaxR = 300;

using SvgNumbers::format;

} // namespace

CircularGroove::CircularGroove(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CircularGroove::~CircularGroove() = default;

QString CircularGroove::getSVG()
{
    // The shading over the block keeps any colour chosen looking lit from above; the
    // track is a polished rail along the cut.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"191px\" height=\"106px\""
        " viewBox=\"264.5 5.5 191 106\">\n"
        "<defs>\n"
        "<linearGradient id=\"cg_shade\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.3\"/><stop offset=\"0.5\" stop-color=\"#FFFFFF\""
        " stop-opacity=\"0\"/><stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.22\"/></linearGradient>\n"
        "</defs>\n"
        "<path id=\"groove\" fill=\"#C8A165\" stroke=\"#7A5A2E\" stroke-width=\"1\" stroke-linejoin=\"round\""
        " vector-effect=\"non-scaling-stroke\" d=\"M265,10H280A80,80 0 0 0 440,10H455V105H265Z\"/>\n"
        "<path id=\"groove_shade\" fill=\"url(#cg_shade)\" d=\"M265,10H280A80,80 0 0 0 440,10H455V105H265Z\"/>\n"
        "<path id=\"track\" fill=\"none\" stroke=\"#5C4320\" stroke-width=\"3.5\" stroke-linecap=\"round\""
        " d=\"M280,10A80,80 0 0 0 440,10\"/>\n"
        "<path id=\"track_shine\" fill=\"none\" stroke=\"#FFFFFF\" stroke-opacity=\"0.45\" stroke-width=\"1\""
        " d=\"M280,10A80,80 0 0 0 440,10\"/>\n"
        "<rect id=\"control_1\" x=\"435.5\" y=\"5.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"375.5\" x_to=\"655.5\"/>\n"
        "</svg>\n");
}

int CircularGroove::getSVGType() { return 112; }

void CircularGroove::ResetAtrribute()
{
    addAttribute(kShapeAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_GROOVE_SHAPE"), 0);
    addColour(kCircularGrooveColourAttr, 1102, QStringLiteral("IDS_SVG_PHYSICAL_BLOCK_COLOR"), QColor(0xC8A165));
}

QByteArray CircularGroove::GetComboboxData()
{
    return comboData({QStringLiteral("IDS_SVG_PHYSICAL_HALF_CIRCLE"), QStringLiteral("IDS_SVG_PHYSICAL_QUARTER_LEFT"),
                      QStringLiteral("IDS_SVG_PHYSICAL_QUARTER_RIGHT")});
}

CircularGroove::Shape CircularGroove::shape() const
{
    const int s = m_attributes.value(kShapeAttr).intValue;
    return s == 1 ? QuarterLeft : s == 2 ? QuarterRight : Half;
}

double CircularGroove::margin() const { return std::max(12.0, m_dRadius * 0.18); }

QRectF CircularGroove::block() const
{
    const double r = m_dRadius, m = margin();
    const double left = shape() == QuarterRight ? kCircularGrooveCx : kCircularGrooveCx - r - m, right = shape() == QuarterLeft ? kCircularGrooveCx : kCircularGrooveCx + r + m;
    return QRectF(left, kCircularGrooveCy, right - left, r + m);
}

void CircularGroove::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"track", "track_shine"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setStrokeEnabled(false);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("groove_shade")))
        n->setFillEnabled(false);
    setTravel();
    layout();
    UpdateColor(false);
    Resize(false);
}

void CircularGroove::setTravel()
{
    QSvgNode *h = m_controlNodes.value(0);
    if (!h)
        return;
    const double half = h->rect().width() / 2;
    const bool left = shape() == QuarterLeft;
    h->setNumAttribute(QStringLiteral("x_from"), (left ? kCircularGrooveCx - kCircularGrooveMaxR : kCircularGrooveCx + kCircularGrooveMinR) - half);
    h->setNumAttribute(QStringLiteral("x_to"), (left ? kCircularGrooveCx - kCircularGrooveMinR : kCircularGrooveCx + kCircularGrooveMaxR) - half);
}

void CircularGroove::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const double side = shape() == QuarterLeft ? -1 : 1;
    const double r = (HandlePos::centre(*this, 0).x() - kCircularGrooveCx) * side;
    m_dRadius = std::isfinite(r) ? std::max(kCircularGrooveMinR, std::min(kCircularGrooveMaxR, r)) : kCircularGrooveMinR;
    const double R = m_dRadius;
    const QRectF b = block();
    // The cut as an arc through the bottom (counter-clockwise on screen), and the block
    // round it: level top beside the rims, flat base.
    QString arc, outline;
    const QString a = QStringLiteral("A%1,%1 0 0 0 ").arg(format(R));
    switch (shape()) {
    case Half:
        arc = QStringLiteral("M%1,%2").arg(format(kCircularGrooveCx - R), format(kCircularGrooveCy)) + a + QStringLiteral("%1,%2").arg(format(kCircularGrooveCx + R), format(kCircularGrooveCy));
        outline = QStringLiteral("M%1,%2H%3").arg(format(b.left()), format(kCircularGrooveCy), format(kCircularGrooveCx - R)) + arc.mid(arc.indexOf(QLatin1Char('A'))) +
                  QStringLiteral("H%1V%2H%3Z").arg(format(b.right()), format(b.bottom()), format(b.left()));
        break;
    case QuarterLeft:
        arc = QStringLiteral("M%1,%2").arg(format(kCircularGrooveCx - R), format(kCircularGrooveCy)) + a + QStringLiteral("%1,%2").arg(format(kCircularGrooveCx), format(kCircularGrooveCy + R));
        outline = QStringLiteral("M%1,%2H%3").arg(format(b.left()), format(kCircularGrooveCy), format(kCircularGrooveCx - R)) + arc.mid(arc.indexOf(QLatin1Char('A'))) +
                  QStringLiteral("V%1H%2Z").arg(format(b.bottom()), format(b.left()));
        break;
    case QuarterRight:
        arc = QStringLiteral("M%1,%2").arg(format(kCircularGrooveCx), format(kCircularGrooveCy + R)) + a + QStringLiteral("%1,%2").arg(format(kCircularGrooveCx + R), format(kCircularGrooveCy));
        outline = arc + QStringLiteral("H%1V%2H%3Z").arg(format(b.right()), format(b.bottom()), format(kCircularGrooveCx));
        break;
    }
    for (const char *id : {"groove", "groove_shade"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setAttribute(QStringLiteral("d"), outline);
    for (const char *id : {"track", "track_shine"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setAttribute(QStringLiteral("d"), arc);
    HandlePos::placeCentre(*this, 0, QPointF(kCircularGrooveCx + side * R, kCircularGrooveCy));
}

void CircularGroove::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kCircularGrooveColourAttr).color;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("groove"))) {
        n->setFillColor(c);
        n->setStrokeColor(c.darker(190));
    }
    repaint();
}

void CircularGroove::UpdateCombobox(bool)
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    // The radius is kept: the handle goes to the rim on the shape's side.
    setTravel();
    const double side = shape() == QuarterLeft ? -1 : 1;
    HandlePos::placeCentre(*this, 0, QPointF(kCircularGrooveCx + side * m_dRadius, kCircularGrooveCy));
    layout();
    Resize(false);
    repaint();
}

bool CircularGroove::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CircularGroove::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(block().adjusted(-0.5, -0.5, 0.5, 0.5), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CircularGroove::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idGrooveShape", kShapeAttr}, {"idBlockColor", kCircularGrooveColourAttr}});
    const QString p = QString::number(HandlePos::percentOf(m_dRadius, kCircularGrooveMinR, kCircularGrooveMaxR));
    m_panel.append(array, 2, p, [this, p] {
        return m_pOwner->GetSettingJsonInput(QStringLiteral("idRadius"), QStringLiteral("IDS_PHYSICSOBJ_RADIUS"), p,
                                             QStringLiteral("int"), QStringLiteral("0"), QStringLiteral("100"), QString());
    });
}

bool CircularGroove::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idGrooveShape", kShapeAttr}, {"idBlockColor", kCircularGrooveColourAttr}}, bRecord, bUndo);
    double p = 0;
    if (HandlePos::typedNumber(values, QStringLiteral("idRadius"), 0, 100, true, p) && !m_controlNodes.isEmpty()) {
        const double r = kCircularGrooveMinR + (kCircularGrooveMaxR - kCircularGrooveMinR) * p / 100, side = shape() == QuarterLeft ? -1 : 1;
        const QRectF h = m_controlNodes.first()->rect();
        HandlePos::moveTo(*this, 0, QPointF(kCircularGrooveCx + side * r - h.width() / 2, h.y()), m_bPosByCode);
    }
    return true;
}

bool CircularGroove::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
