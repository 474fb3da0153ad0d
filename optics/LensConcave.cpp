#include "LensConcave.h"
#include "bases/HandlePos.h"
#include <cmath>
#include <svgobj.h>

CLensConcave::CLensConcave(CSVGObj *owner) : CGenCircle(owner)
{
    m_bHostOption = true;
    m_bHostOption2 = false;
}

CLensConcave::~CLensConcave() = default;

QString CLensConcave::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"-24 0 48 100\""
        " style=\"width:48px; height:100px; \">\n"
        "<path id=\"lens\" fill=\"#666AAA\" stroke=\"#000000\" stroke-width=\"2\" stroke-linejoin=\"round\" d=\"\"/>\n"
        "<rect id=\"lens_rect\" x=\"-20\" y=\"4\" width=\"40\" height=\"92\" fill=\"#BCBEC0\" stroke=\"#000000\""
        " stroke-width=\"2\"/>\n"
        "<circle id=\"circle_1\" cx=\"0\" cy=\"0\" r=\"0\" fill=\"#FFFFFF\" stroke=\"#000000\" stroke-width=\"2\"/>\n"
        "<circle id=\"circle_2\" cx=\"0\" cy=\"0\" r=\"0\" fill=\"#FFFFFF\" stroke=\"#000000\" stroke-width=\"2\"/>\n"
        "<rect id=\"control_1\" x=\"16\" y=\"0\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"3\" x_to=\"50\"/>\n"
        "<rect id=\"control_2\" x=\"7\" y=\"46\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"-4\" x_to=\"23\"/>\n"
        "<rect id=\"control_3\" x=\"-4\" y=\"92\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " y_from=\"0\" y_to=\"300\"/>\n"
        "</svg>\n");
}

int CLensConcave::getSVGType() { return 603; }

void CLensConcave::SVGInit(bool, bool)
{
    // The first outline is a drag of the corner handle where it stands.
    updateSVG(m_controlNodes.value(0), QPointF(0, 0), false);
    updateOutlineRegion();
}

void CLensConcave::centreWaist()
{
    QSvgNode *h2 = m_controlNodes.value(1);
    if (!h2)
        return;
    const QPointF c1 = handleCentre(0), c2 = handleCentre(1), c3 = handleCentre(2);
    const double dy = (c1.y() + c3.y()) / 2 - c2.y();
    if (dy != 0)
        h2->translate(0, dy);
}

bool CLensConcave::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1), *h3 = m_controlNodes.value(2);
    QSvgNode *rect = docNode(QStringLiteral("lens_rect"));
    QSvgNode *circle1 = docNode(QStringLiteral("circle_1")), *circle2 = docNode(QStringLiteral("circle_2"));
    if (!node || !h1 || !h2 || !h3 || !rect || !circle1 || !circle2 || !docNode(QStringLiteral("lens")))
        return false;
    if (node == h3)
        centreWaist();
    const QPointF c1 = handleCentre(0), c2 = handleCentre(1), c3 = handleCentre(2);
    rect->setNumAttribute(QStringLiteral("x"), -c1.x());
    rect->setNumAttribute(QStringLiteral("y"), c1.y());
    rect->setNumAttribute(QStringLiteral("width"), 2 * c1.x());
    rect->setNumAttribute(QStringLiteral("height"), c3.y() - c1.y());
    placeCircle(circle1, c1, c2, QPointF(c1.x(), c3.y()));
    placeCircle(circle2, QPointF(-c1.x(), c1.y()), QPointF(-c2.x(), c2.y()), QPointF(-c1.x(), c3.y()));
    genLensPath();
    if (node == h1)
        adjustSvgPosition(QPointF(-offset.x(), -offset.y()), 2 * offset.x(), 2 * offset.y(), bFinal);
    else if (node == h3)
        adjustSvgPosition(QPointF(0, 0), offset.x(), offset.y(), bFinal);
    if (bFinal)
        updateOutlineRegion();
    repaint();
    if ((node == h1 || node == h2) && !m_bPosByCode)
        posChangedByControl();
    return true;
}

void CLensConcave::genLensPath()
{
    QSvgNode *rect = docNode(QStringLiteral("lens_rect"));
    QSvgNode *circle1 = docNode(QStringLiteral("circle_1")), *circle2 = docNode(QStringLiteral("circle_2"));
    if (!rect || !circle1 || !circle2)
        return;
    rect->setVisible(false);
    circle1->setVisible(false);
    circle2->setVisible(false);
    const QPainterPath body = rectPath(rect);
    const QRectF area = body.boundingRect().adjusted(-1, -1, 1, 1);
    setLensPath(body.subtracted(discPath(circle1, area)).subtracted(discPath(circle2, area)), {circle1, circle2});
}

double CLensConcave::getXMin(QSvgNode *node)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1), *h3 = m_controlNodes.value(2);
    if (!node || !h1 || !h2 || !h3 || (node != h1 && node != h2))
        return CGenCircle::getXMin(node);
    if (isLoading())
        return -kLoadReach;
    if (node == h1)
        return h2->rect().x();
    const double depth = handleCentre(1).y() - handleCentre(0).y();
    return std::max(h1->rect().x() - depth, h3->rect().x());
}

double CLensConcave::getXMax(QSvgNode *node)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h2 = m_controlNodes.value(1);
    if (!node || !h1 || !h2 || (node != h1 && node != h2))
        return CGenCircle::getXMax(node);
    if (isLoading())
        return kLoadReach;
    if (node == h2)
        return h1->rect().x();
    return h2->rect().x() + (handleCentre(1).y() - handleCentre(0).y());
}

double CLensConcave::getYMin(QSvgNode *node)
{
    QSvgNode *h1 = m_controlNodes.value(0), *h3 = m_controlNodes.value(2);
    if (!node || !h1 || node != h3)
        return CGenCircle::getYMin(node);
    if (isLoading())
        return -kLoadReach;
    return h1->rect().y() + 2 * (handleCentre(0).x() - handleCentre(1).x());
}

void CLensConcave::updateOutlineRegion() { lensOutlineRegion(); }

QString CLensConcave::getPropName(int id) { return colourPropName(id); }

double CLensConcave::getControlPos() { return HandlePos::get(*this, 1, HandlePos::X); }

void CLensConcave::setControlPos(double x) { HandlePos::set(*this, 1, HandlePos::X, x, m_bPosByCode); }

int CLensConcave::percent() { return HandlePos::percent(*this, 1, HandlePos::X, getControlPos()); }

void CLensConcave::posChangedByControl()
{
    postSetting(QStringLiteral("idPosValue"), QString::number(percent()));
}

void CLensConcave::GetSettingArray(QJsonArray &array)
{
    if (m_pOwner)
        appendThicknessInput(array, percent());
}

bool CLensConcave::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    double x = 0;
    if (HandlePos::target(*this, values, 1, HandlePos::X, false, x))
        setControlPos(x);
    return true;
}

bool CLensConcave::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CGenCircle::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id))
        m_dSavedControlPos = getControlPos();
    else if (isRestore(id))
        setControlPos(m_dSavedControlPos);
    return r;
}
