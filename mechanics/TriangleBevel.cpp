#include "TriangleBevel.h"

namespace {

QPointF centre(const QSvgNode *n)
{
    const QRectF r = n->rect();
    return QPointF(r.x() + 0.5 * r.width(), r.y() + 0.5 * r.height());
}

} // namespace

CTriangleBevel::CTriangleBevel(CSVGObj *owner) : CBasic(owner)
{
    m_bItemsOutline = true;
}

CTriangleBevel::~CTriangleBevel() = default;

QString CTriangleBevel::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<!-- Generator: physics apparatus templates -->\n"
        "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n"
        "<svg version=\"1.1\" id=\"triangle_bevel\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\""
        " width=\"188.332px\" height=\"115.666px\" viewBox=\"0 0 188.332 115.666\">\n"
        "<polygon id=\"triangle\" fill=\"#8C8C8C\" stroke=\"#171617\" stroke-width=\"2\" vector-effect=\"none\""
        " stroke-miterlimit=\"10\" points=\"4.5,4.5 4.5,111.166 183.832,111.166 \"/>\n"
        "<rect id=\"control_1\" x=\"179.332\" y=\"106.666\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"0\" x_to=\"1000\"/>\n"
        "<rect id=\"control_2\" x=\"0\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"-1000\" y_to=\"106.566\"/>\n"
        "</svg>\n");
}

int CTriangleBevel::getSVGType() { return 102; }

QString CTriangleBevel::getPropName(int id)
{
    return id == PROP_COLOR ? QStringLiteral("IDS_SVG_PHYSICAL_COLOR") : CBasic::getPropName(id);
}

void CTriangleBevel::SVGInit(bool, bool)
{
    // The first layout is a drag of each handle where it stands, apex first.
    if (QSvgNode *apex = m_controlNodes.value(1))
        updateSVG(apex, QPointF(0, 0), false);
    if (QSvgNode *end = m_controlNodes.value(0))
        updateSVG(end, QPointF(0, 0), false);
}

bool CTriangleBevel::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node)
        return false;
    QSvgNode *found = m_pDocument ? m_pDocument->namedNode(QStringLiteral("triangle")) : nullptr;
    if (found && found->type() == QSvgNode::Polygon) {
        auto *triangle = static_cast<QSvgPolygon *>(found);
        const QVector<QPointF> old = triangle->points();
        triangle->setPoints({});
        QSvgNode *end = m_controlNodes.value(0);
        QSvgNode *apex = m_controlNodes.value(1);
        // A wedge emptied by a foreign node has no old points: the handles stand on
        // the apex and the base end, and the right angle lies between them.
        auto oldPoint = [&](int i) {
            if (i < old.size())
                return old.at(i);
            const QPointF a = apex ? centre(apex) : QPointF(), b = end ? centre(end) : QPointF();
            return i == 0 ? a : i == 1 ? QPointF(a.x(), b.y()) : b;
        };
        if (node == end)
            triangle->setPoints({oldPoint(0), oldPoint(1), centre(node)});
        else if (node == apex)
            triangle->setPoints({centre(node), oldPoint(1), oldPoint(2)});
        // Any other node leaves the wedge without points until the next handle update.
    }
    Resize(bFinal);
    repaint();
    return true;
}

void CTriangleBevel::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    for (int i = 0; i < 2 && i < m_controlNodes.size(); ++i)
        enclose(m_controlNodes.at(i)->rect(), topLeft, bottomRight);
    QSvgNode *found = m_pDocument ? m_pDocument->namedNode(QStringLiteral("triangle")) : nullptr;
    if (found && found->type() == QSvgNode::Polygon) {
        const QVector<QPointF> pts = static_cast<QSvgPolygon *>(found)->points();
        if (pts.size() > 1)
            enclose(pts.at(1), topLeft, bottomRight);
    }
}
