#include "LensSemiConcave.h"
#include "bases/HandlePos.h"
#include <cmath>
#include <svgobj.h>

CLensSemiConcave::CLensSemiConcave(CSVGObj *owner) : CLensConcave(owner)
{
    m_bHostOption = true;
    m_bHostOption2 = false;
}

CLensSemiConcave::~CLensSemiConcave() = default;

QString CLensSemiConcave::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 -50 48 100\""
        " style=\"width:48px; height:100px; \">\n"
        "<path id=\"lens\" fill=\"#666AAA\" stroke=\"#000000\" stroke-width=\"2\" stroke-linejoin=\"round\" d=\"\"/>\n"
        "<rect id=\"lens_rect\" x=\"4\" y=\"-46\" width=\"40\" height=\"92\" fill=\"#BCBEC0\" stroke=\"#000000\""
        " stroke-width=\"2\"/>\n"
        "<circle id=\"circle_1\" cx=\"0\" cy=\"0\" r=\"0\" fill=\"#FFFFFF\" stroke=\"#000000\" stroke-width=\"2\"/>\n"
        "<rect id=\"control_1\" x=\"40\" y=\"-50\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"4\" x_to=\"80\"/>\n"
        "<rect id=\"control_2\" x=\"20\" y=\"-4\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"4\" x_to=\"80\"/>\n"
        "<rect id=\"control_3\" x=\"0\" y=\"42\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " y_from=\"10\" y_to=\"300\"/>\n"
        "</svg>\n");
}

int CLensSemiConcave::getSVGType() { return 604; }

void CLensSemiConcave::ResetAtrribute() { resetDirection(); }

QByteArray CLensSemiConcave::GetComboboxData() { return directionComboData(); }

bool CLensSemiConcave::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1), *h3 = m_controlNodes.value(2);
    QSvgNode *rect = docNode(QStringLiteral("lens_rect")), *circle = docNode(QStringLiteral("circle_1"));
    if (!node || !h1 || !h2 || !h3 || !rect || !circle || !docNode(QStringLiteral("lens")))
        return false;
    if (node == h3)
        centreWaist();
    const QPointF c1 = handleCentre(0), c2 = handleCentre(1), c3 = handleCentre(2);
    rect->setNumAttribute(QStringLiteral("x"), std::min(c1.x(), c3.x()));
    rect->setNumAttribute(QStringLiteral("y"), c1.y());
    rect->setNumAttribute(QStringLiteral("width"), std::fabs(c1.x() - c3.x()));
    rect->setNumAttribute(QStringLiteral("height"), c3.y() - c1.y());
    placeCircle(circle, c1, c2, QPointF(c1.x(), c3.y()));
    genLensPath();
    spanHandles(3, 0, node == h3 ? offset.y() : 0, bFinal);
    if (bFinal)
        updateOutlineRegion();
    repaint();
    if ((node == h1 || node == h2) && !m_bPosByCode)
        posChangedByControl();
    return true;
}

void CLensSemiConcave::genLensPath()
{
    QSvgNode *rect = docNode(QStringLiteral("lens_rect")), *circle = docNode(QStringLiteral("circle_1"));
    if (!rect || !circle)
        return;
    rect->setVisible(false);
    circle->setVisible(false);
    const QPainterPath body = rectPath(rect);
    setLensPath(body.subtracted(discPath(circle, body.boundingRect().adjusted(-1, -1, 1, 1))), {circle});
}

double CLensSemiConcave::getXMin(QSvgNode *node)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1), *h3 = m_controlNodes.value(2);
    if (!node || !h1 || !h2 || !h3 || (node != h1 && node != h2))
        return CGenCircle::getXMin(node);
    if (isLoading())
        return -kLoadReach;
    const double depth = handleCentre(1).y() - handleCentre(0).y();
    if (m_bFacesRight)
        return node == h1 ? h2->rect().x() : std::max(h1->rect().x() - depth, h3->rect().x());
    return node == h1 ? h2->rect().x() - depth : h1->rect().x();
}

double CLensSemiConcave::getXMax(QSvgNode *node)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1), *h3 = m_controlNodes.value(2);
    if (!node || !h1 || !h2 || !h3 || (node != h1 && node != h2))
        return CGenCircle::getXMax(node);
    if (isLoading())
        return kLoadReach;
    const double depth = handleCentre(1).y() - handleCentre(0).y();
    if (m_bFacesRight)
        return node == h1 ? h2->rect().x() + depth : h1->rect().x();
    return node == h1 ? h2->rect().x() : std::min(h1->rect().x() + depth, h3->rect().x());
}

double CLensSemiConcave::getYMin(QSvgNode *node)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h3 = m_controlNodes.value(2);
    if (!node || !h1 || node != h3)
        return CGenCircle::getYMin(node);
    if (isLoading())
        return -kLoadReach;
    const double arc = h1->rect().y() + 2 * std::fabs(handleCentre(0).x() - handleCentre(1).x());
    return std::max(CGenCircle::getYMin(node), arc);
}

int CLensSemiConcave::percent()
{
    const int p = CLensConcave::percent();
    return m_bFacesRight ? p : 100 - p;
}

// The percentage it posts is already mirrored by percent().
void CLensSemiConcave::posChangedByControl() { CLensConcave::posChangedByControl(); }

int CLensSemiConcave::ConvertValue() { return m_bFacesRight ? 0 : 1; }

void CLensSemiConcave::SetConvertValue(int value) { applyFacing(value, m_bFacesRight); }

void CLensSemiConcave::UpdateRightLeft(QSvgNode *handle, bool right)
{
    QSvgNode *h3 = m_controlNodes.value(2);
    if (!handle || !h3)
        return;
    const double axis = h3->rect().center().x();
    const QRectF r = handle->rect();
    const double d = std::fabs(r.center().x() - axis);
    handle->setNumAttribute(QStringLiteral("x"), (right ? axis + d : axis - d) - r.width() / 2);
}

void CLensSemiConcave::UpdateCombobox(bool)
{
    SetConvertValue(directionValue());
    QSvgNode *h1 = m_controlNodes.value(0);
    UpdateRightLeft(h1, m_bFacesRight);
    UpdateRightLeft(m_controlNodes.value(1), m_bFacesRight);
    updateSVG(h1, QPointF(0, 0), false);
    updateOutlineRegion();
    repaint();
}

void CLensSemiConcave::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    appendDirectionSetting(array);
    CLensConcave::GetSettingArray(array);
}

bool CLensSemiConcave::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    applyDirectionSetting(values, bRecord, bUndo);
    double x = 0;
    if (HandlePos::target(*this, values, 1, HandlePos::X, !m_bFacesRight, x))
        setControlPos(x);
    return true;
}

bool CLensSemiConcave::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CGenCircle::SetAttribute(id, in, bRecord, bUndo);
    // The direction goes back before the position, whose bounds depend on it.
    keepAttribute(id, kDirectionAttr, m_nSavedDirection);
    if (isCapture(id))
        m_dSavedControlPos = getControlPos();
    else if (isRestore(id))
        setControlPos(m_dSavedControlPos);
    return r;
}
