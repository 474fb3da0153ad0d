#include "Wire.h"
#include <svgobj.h>

CWire::CWire(CSVGObj *owner) : CSVGBase(owner) { m_bHostOption2 = true; }

CWire::~CWire() = default;

QString CWire::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 100 100\" style=\"width:100px; height:100px; \">\n"
        "<path id=\"path\" fill=\"none\" vector-effect=\"none\" stroke=\"#DD7926\" stroke-width=\"4\"/>\n"
        "<rect id=\"control_1\" x=\"0\" y=\"0\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"-200\" x_to=\"300\" y_from=\"-200\" y_to=\"300\"/>\n"
        "<rect id=\"control_2\" x=\"0\" y=\"92\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"-200\" x_to=\"300\" y_from=\"-200\" y_to=\"300\"/>\n"
        "<rect id=\"control_3\" x=\"92\" y=\"0\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"-200\" x_to=\"300\" y_from=\"-200\" y_to=\"300\"/>\n"
        "<rect id=\"control_4\" x=\"92\" y=\"92\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"-200\" x_to=\"300\" y_from=\"-200\" y_to=\"300\"/>\n"
        "</svg>\n");
}

int CWire::getSVGType() { return 500; }

QString CWire::getPropName(int id)
{
    return id == PROP_COLOR ? QStringLiteral("IDS_SVG_PHYSICAL_COLOR") : CSVGBase::getPropName(id);
}

bool CWire::loadSVG(bool bLoad)
{
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::fromTemplate(getSVG());
    const bool r = CSVGBase::loadSVG(bLoad);
    if (m_pDocument)
        updateSVG(m_controlNodes.value(0), QPointF(0, 0), false);
    return r;
}

void CWire::genPath()
{
    if (!m_pDocument)
        return;
    QPointF p[4];
    for (int i = 0; i < 4 && i < m_controlNodes.size(); ++i) {
        const QRectF r = m_controlNodes.at(i)->rect();
        p[i] = QPointF(r.x() + 0.5 * r.width(), r.y() + 0.5 * r.height());
    }
    const QString d = QStringLiteral("M%1,%2C%3,%4,%5,%6,%7,%8")
                          .arg(p[0].x()).arg(p[0].y())
                          .arg(p[1].x()).arg(p[1].y())
                          .arg(p[2].x()).arg(p[2].y())
                          .arg(p[3].x()).arg(p[3].y());
    if (QSvgNode *path = m_pDocument->namedNode(QStringLiteral("path")))
        path->setAttribute(QStringLiteral("d"), d);
}

bool CWire::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!m_pDocument || !node || m_controlNodes.indexOf(node) < 0 || m_controlNodes.indexOf(node) > 3)
        return false;
    QRectF vb = m_pDocument->viewBox();
    if (vb.width() == 0 && vb.height() == 0) {
        vb = m_pDocument->transformedBounds();
        m_pDocument->setViewBox(vb);
    }
    // Only the handles bound the item: the curve keeps to their hull.
    double left = 10000.0, top = 1000.0, right = 0.0, bottom = 0.0;
    for (QSvgNode *h : m_controlNodes) {
        const QRectF r = h->rect();
        left = qMin(left, r.left());
        top = qMin(top, r.top());
        right = qMax(right, r.left() + r.width());
        bottom = qMax(bottom, r.top() + r.height());
    }
    genPath();
    const QPointF offset(left - vb.x(), top - vb.y());
    adjustSvgPosition(offset, (right - (vb.x() + vb.width())) - offset.x(), (bottom - (vb.y() + vb.height())) - offset.y(), bFinal);
    if (m_pOwner)
        m_pOwner->update(QRectF());
    return true;
}
