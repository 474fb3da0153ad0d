#include "Basic.h"
#include <cmath>
#include <svgobj.h>

CBasic::CBasic(CSVGObj *owner) : CAttribute(owner)
{
    m_bHostOption = true;
}

CBasic::~CBasic() = default;

bool CBasic::loadSVG(bool bLoad) { return CAttribute::loadSVG(bLoad); }
QString CBasic::getSVG() { return QString(); }
int CBasic::getSVGType() { return -1; }
bool CBasic::updateSVG(QSvgNode *, QPointF, bool) { return false; }
void CBasic::CaculateObjectRetangle(QPointF &, QPointF &) {}

double CBasic::GetLineDistance(double x1, double y1, double x2, double y2)
{
    return std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
}

void CBasic::Resize(bool bFinal)
{
    if (!m_pDocument)
        return;
    QRectF vb = m_pDocument->viewBox();
    if (vb.width() == 0 && vb.height() == 0) {
        vb = m_pDocument->transformedBounds();
        m_pDocument->setViewBox(vb);
    }
    // The start corners are deliberately lopsided: drawings below y = 1000 lower the top themselves.
    QPointF topLeft(10000.0, 1000.0), bottomRight(0.0, 0.0);
    CaculateObjectRetangle(topLeft, bottomRight);
    const QPointF offset(topLeft.x() - vb.x(), topLeft.y() - vb.y());
    const double dw = (bottomRight.x() - (vb.x() + vb.width())) - (topLeft.x() - vb.x());
    const double dh = (bottomRight.y() - (vb.y() + vb.height())) - (topLeft.y() - vb.y());
    adjustSvgPosition(offset, dw, dh, bFinal);
}

void CBasic::enclose(const QRectF &r, QPointF &topLeft, QPointF &bottomRight)
{
    if (r.left() < topLeft.x()) topLeft.setX(r.left());
    if (r.top() < topLeft.y()) topLeft.setY(r.top());
    if (r.left() + r.width() > bottomRight.x()) bottomRight.setX(r.left() + r.width());
    if (r.top() + r.height() > bottomRight.y()) bottomRight.setY(r.top() + r.height());
}

void CBasic::enclose(const QPointF &p, QPointF &topLeft, QPointF &bottomRight)
{
    enclose(QRectF(p, QSizeF(0, 0)), topLeft, bottomRight);
}

void CBasic::repaint()
{
    if (m_pOwner)
        m_pOwner->update(QRectF());
}
