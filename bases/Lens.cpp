#include "Lens.h"

CLens::CLens(CSVGObj *owner) : CGenCircle(owner)
{
    m_bHostOption = true;
}

CLens::~CLens() = default;

int CLens::getSVGType() { return 0; }

void CLens::genLensPath() {}

bool CLens::loadSVG(bool bLoad)
{
    const bool r = CGenCircle::loadSVG(bLoad);
    if (m_pDocument) {
        if (bLoad)
            updateSVG(m_controlNodes.value(0), QPointF(0, 0), false);
        else
            genLensPath();
        updateOutlineRegion();
    }
    return r;
}

bool CLens::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!node || !docNode(QStringLiteral("lens")))
        return false;
    genLensPath();
    const QRectF vb = viewBoxOrBounds();
    const bool thickness = node == m_controlNodes.value(0);
    const bool height = node == m_controlNodes.value(1);
    if ((thickness && vb.x() < 0) || (height && vb.y() < 0))
        adjustSvgPosition(QPointF(-offset.x(), -offset.y()), 2 * offset.x(), 2 * offset.y(), bFinal);
    else
        adjustSvgPosition(QPointF(0, 0), offset.x(), offset.y(), bFinal);
    if (bFinal)
        updateOutlineRegion();
    repaint();
    return true;
}

double CLens::getXMax(QSvgNode *node)
{
    QSvgNode *thickness = m_controlNodes.value(0), *height = m_controlNodes.value(1);
    if (!node || node != thickness || !height)
        return CGenCircle::getXMax(node);
    if (isLoading())
        return kLoadReach;
    // The half-thickness never exceeds half the height the height handle reaches.
    return height->rect().center().y() * 0.5 - thickness->rect().width();
}

double CLens::getYMin(QSvgNode *node)
{
    QSvgNode *thickness = m_controlNodes.value(0), *height = m_controlNodes.value(1);
    if (!node || node != height || !thickness)
        return CGenCircle::getYMin(node);
    if (isLoading())
        return -kLoadReach;
    return 2 * thickness->rect().center().x() - height->rect().height();
}

void CLens::updateOutlineRegion() { lensOutlineRegion(); }

QString CLens::getPropName(int id) { return colourPropName(id); }
