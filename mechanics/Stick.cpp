#include "Stick.h"
#include <cmath>

CStick::CStick(CSVGObj *owner) : CBasic(owner) {}

CStick::~CStick() = default;

QString CStick::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<!-- Generator: physics apparatus templates -->\n"
        "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n"
        "<svg version=\"1.1\" id=\"stick\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\""
        " width=\"337px\" height=\"13px\" viewBox=\"0 0 337 13\">\n"
        "<g id=\"bevel1\" rotate_x=\"168.521\" rotate_y=\"5.301\" rotate_from=\"-180\" rotate_to=\"180\">\n"
        " <rect id=\"rect\" x=\"168.521\" y=\"3.301\" width=\"162.939\" height=\"4\" fill=\"#996828\" stroke=\"#653614\" stroke-width=\"1\"/>\n"
        "</g>\n"
        "<rect id=\"control_1\" x=\"326.96\" y=\"0.801\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"-1000\" x_to=\"1000\" y_from=\"-1000\" y_to=\"1000\"/>\n"
        "</svg>\n");
}

int CStick::getSVGType() { return 107; }

void CStick::SVGInit(bool, bool)
{
    // The first layout is a drag of the handle where it stands.
    if (!m_controlNodes.isEmpty())
        updateSVG(m_controlNodes.first(), QPointF(0, 0), false);
}

bool CStick::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node)
        return false;
    if (!m_controlNodes.isEmpty() && node == m_controlNodes.first()) {
        // The host has moved the handle already; read it back.
        QRectF r = node->rect();
        ChangeLine(QPointF(r.x() + 0.5 * r.width(), r.y() + 0.5 * r.height()));
        r = node->rect();
        const double angle = CaculateRotateAngle(QPointF(r.x() + 0.5 * r.width(), r.y() + 0.5 * r.height()));
        if (QSvgNode *group = m_pDocument->namedNode(QStringLiteral("bevel1")))
            group->setNumAttribute(QStringLiteral("rotate_angle"), angle);
    }
    Resize(bFinal);
    repaint();
    return true;
}

void CStick::ChangeLine(QPointF target)
{
    QSvgNode *bar = m_pDocument ? m_pDocument->namedNode(QStringLiteral("rect")) : nullptr;
    if (!bar)
        return;
    const double x = bar->numAttribute(QStringLiteral("x"));
    const double y = bar->numAttribute(QStringLiteral("y"));
    const double h = bar->numAttribute(QStringLiteral("height"));
    bar->setNumAttribute(QStringLiteral("width"), GetLineDistance(x, y + 0.5 * h, target.x(), target.y()));
}

double CStick::CaculateRotateAngle(QPointF target)
{
    QSvgNode *group = m_pDocument ? m_pDocument->namedNode(QStringLiteral("bevel1")) : nullptr;
    if (!group)
        return 0;
    const double cx = group->numAttribute(QStringLiteral("rotate_x"));
    const double cy = group->numAttribute(QStringLiteral("rotate_y"));
    const double dx = target.x() - cx, dy = target.y() - cy;
    // Straight up and down come out reversed from the general formula; kept that way.
    if (dx == 0) {
        if (dy > 0)
            return -90;
        if (dy < 0)
            return 90;
    }
    double angle = std::atan(dy / dx) * 180 / 3.141592653589793;
    if (cx > target.x())
        angle += 180;
    return angle;
}

void CStick::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    QSvgNode *group = m_pDocument ? m_pDocument->namedNode(QStringLiteral("bevel1")) : nullptr;
    if (!group || m_controlNodes.isEmpty())
        return;
    enclose(m_controlNodes.first()->rect(), topLeft, bottomRight);
    enclose(QPointF(group->numAttribute(QStringLiteral("rotate_x")), group->numAttribute(QStringLiteral("rotate_y"))),
            topLeft, bottomRight);
}
