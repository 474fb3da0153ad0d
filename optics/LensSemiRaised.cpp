#include "LensSemiRaised.h"
#include "bases/HandlePos.h"
#include <cmath>
#include <svgobj.h>

CLensSemiRaised::CLensSemiRaised(CSVGObj *owner) : CLens(owner)
{
    m_bHostOption = true;
    m_bHostOption2 = false;
}

CLensSemiRaised::~CLensSemiRaised() = default;

QString CLensSemiRaised::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 -50 38 100\""
        " style=\"width:38px; height:100px; \">\n"
        "<path id=\"lens\" fill=\"#666AAA\" stroke=\"#000000\" stroke-width=\"2\" stroke-linejoin=\"round\" d=\"\"/>\n"
        "<rect id=\"lens_rect\" x=\"0\" y=\"-46.5\" width=\"25\" height=\"93\" fill=\"#BCBEC0\" stroke=\"#000000\""
        " stroke-width=\"2\"/>\n"
        "<circle id=\"circle_1\" cx=\"0\" cy=\"0\" r=\"0\" fill=\"#FFFFFF\" stroke=\"#000000\" stroke-width=\"2\"/>\n"
        "<rect id=\"control_1\" x=\"20\" y=\"-4\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"4\" x_to=\"42\"/>\n"
        "<rect id=\"control_2\" x=\"-4\" y=\"42.5\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " y_from=\"42.5\" y_to=\"300\"/>\n"
        "</svg>\n");
}

int CLensSemiRaised::getSVGType() { return 601; }

void CLensSemiRaised::ResetAtrribute() { resetDirection(); }

QByteArray CLensSemiRaised::GetComboboxData() { return directionComboData(); }

void CLensSemiRaised::genLensPath()
{
    QSvgNode *rect = docNode(QStringLiteral("lens_rect"));
    QSvgNode *circle = docNode(QStringLiteral("circle_1"));
    if (!rect || !circle || m_controlNodes.size() < 2)
        return;
    const QPointF c1 = handleCentre(0), c2 = handleCentre(1);
    rect->setNumAttribute(QStringLiteral("x"), m_bFacesRight ? c2.x() : c1.x());
    rect->setNumAttribute(QStringLiteral("y"), -c2.y());
    rect->setNumAttribute(QStringLiteral("width"), std::fabs(c1.x() - c2.x()) + 1);
    rect->setNumAttribute(QStringLiteral("height"), 2 * c2.y());
    placeCircle(circle, QPointF(c2.x(), -c2.y()), c1, c2);
    rect->setVisible(false);
    circle->setVisible(false);
    const QPainterPath body = rectPath(rect);
    setLensPath(body.intersected(discPath(circle, body.boundingRect().adjusted(-1, -1, 1, 1))), {circle});
}

bool CLensSemiRaised::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1);
    if (!node || !docNode(QStringLiteral("lens")) || !h1 || !h2)
        return false;
    genLensPath();
    // Horizontally the drawing spans both handles; vertically it grows about its centre.
    spanHandles(2, -offset.y(), 2 * offset.y(), bFinal);
    if (bFinal)
        updateOutlineRegion();
    repaint();
    if (node == h1 && !m_bPosByCode)
        posChangedByControl();
    return true;
}

double CLensSemiRaised::getXMin(QSvgNode *node)
{
    QSvgNode *h2 = m_controlNodes.value(1);
    if (!node || node != m_controlNodes.value(0) || !h2)
        return CLens::getXMin(node);
    if (isLoading())
        return -kLoadReach;
    return m_bFacesRight ? CSVGBase::getXMin(node) : -CSVGBase::getXMax(node) - h2->rect().width();
}

double CLensSemiRaised::getXMax(QSvgNode *node)
{
    QSvgNode *h2 = m_controlNodes.value(1);
    if (!node || node != m_controlNodes.value(0) || !h2)
        return CLens::getXMax(node);
    if (isLoading())
        return kLoadReach;
    return m_bFacesRight ? CSVGBase::getXMax(node) : -CSVGBase::getXMin(node) - h2->rect().width();
}

double CLensSemiRaised::getYMin(QSvgNode *node)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1);
    if (!node || node != h2 || !h1)
        return CLens::getYMin(node);
    if (isLoading())
        return -kLoadReach;
    return 2 * std::fabs(h1->rect().center().x() - h2->rect().center().x()) - h2->rect().height();
}

double CLensSemiRaised::getControlPos() { return HandlePos::get(*this, 0, HandlePos::X); }

void CLensSemiRaised::setControlPos(double x) { HandlePos::set(*this, 0, HandlePos::X, x, m_bPosByCode); }

int CLensSemiRaised::percent()
{
    const int p = HandlePos::percent(*this, 0, HandlePos::X, getControlPos());
    return m_bFacesRight ? p : 100 - p;
}

void CLensSemiRaised::posChangedByControl()
{
    postSetting(QStringLiteral("idPosValue"), QString::number(percent()));
}

int CLensSemiRaised::ConvertValue() { return m_bFacesRight ? 0 : 1; }

void CLensSemiRaised::SetConvertValue(int value) { applyFacing(value, m_bFacesRight); }

void CLensSemiRaised::UpdateRightLeft(bool right)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1);
    if (!h1 || !h2)
        return;
    const double x2 = h2->numAttribute(QStringLiteral("x"));
    const double d = std::fabs(h1->numAttribute(QStringLiteral("x")) - x2);
    h1->setNumAttribute(QStringLiteral("x"), right ? x2 + d : x2 - d);
    updateSVG(h1, QPointF(0, 0), false);
}

void CLensSemiRaised::UpdateCombobox(bool)
{
    SetConvertValue(directionValue());
    UpdateRightLeft(m_bFacesRight);
    updateOutlineRegion();
    repaint();
}

void CLensSemiRaised::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    appendDirectionSetting(array);
    appendThicknessInput(array, percent());
}

bool CLensSemiRaised::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    applyDirectionSetting(values, bRecord, bUndo);
    double x = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::X, !m_bFacesRight, x))
        setControlPos(x);
    return true;
}

bool CLensSemiRaised::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CLens::SetAttribute(id, in, bRecord, bUndo);
    // The direction goes back before the position, whose bounds depend on it.
    keepAttribute(id, kDirectionAttr, m_nSavedDirection);
    if (isCapture(id))
        m_dSavedControlPos = getControlPos();
    else if (isRestore(id))
        setControlPos(m_dSavedControlPos);
    return r;
}
