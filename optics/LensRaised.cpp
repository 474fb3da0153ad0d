#include "LensRaised.h"
#include "bases/HandlePos.h"
#include <cmath>
#include <svgobj.h>

CLensRaised::CLensRaised(CSVGObj *owner) : CLens(owner)
{
    m_bHostOption = true;
    m_bHostOption2 = false;
}

CLensRaised::~CLensRaised() = default;

QString CLensRaised::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"-19 -50 38 100\""
        " style=\"width:38px; height:100px; \">\n"
        "<path id=\"lens\" fill=\"#666AAA\" stroke=\"#000000\" stroke-width=\"2\" stroke-linejoin=\"round\" d=\"\"/>\n"
        "<circle id=\"circle_1\" cx=\"0\" cy=\"0\" r=\"0\" fill=\"#FFFFFF\" stroke=\"#000000\" stroke-width=\"2\"/>\n"
        "<circle id=\"circle_2\" cx=\"0\" cy=\"0\" r=\"0\" fill=\"#FFFFFF\" stroke=\"#000000\" stroke-width=\"2\"/>\n"
        "<rect id=\"control_1\" x=\"11\" y=\"-4\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"3\" x_to=\"23\"/>\n"
        "<rect id=\"control_2\" x=\"-4\" y=\"42\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " y_from=\"10\" y_to=\"150\"/>\n"
        "</svg>\n");
}

int CLensRaised::getSVGType() { return 600; }

void CLensRaised::genLensPath()
{
    QSvgNode *circle1 = docNode(QStringLiteral("circle_1"));
    QSvgNode *circle2 = docNode(QStringLiteral("circle_2"));
    if (!circle1 || !circle2 || m_controlNodes.size() < 2)
        return;
    const QPointF c1 = handleCentre(0), c2 = handleCentre(1);
    const QPointF top(c2.x(), -c2.y());
    placeCircle(circle1, top, c1, c2);
    placeCircle(circle2, top, QPointF(-c1.x(), c1.y()), c2);
    circle1->setVisible(false);
    circle2->setVisible(false);
    // Each disc only matters where the lens can be: around the tips and both vertices.
    const double w = std::max(std::fabs(c1.x()), std::fabs(c2.x()));
    const double h = std::max(std::fabs(c1.y()), std::fabs(c2.y()));
    const double margin = 0.1 * std::max(w, h) + 2;
    const QRectF area(-w - margin, -h - margin, 2 * (w + margin), 2 * (h + margin));
    setLensPath(discPath(circle1, area).intersected(discPath(circle2, area)), {circle1, circle2});
}

bool CLensRaised::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (node && node == m_controlNodes.value(0) && !m_bPosByCode)
        posChangedByControl();
    return CLens::updateSVG(node, offset, bFinal);
}

double CLensRaised::getControlPos() { return HandlePos::get(*this, 0, HandlePos::X); }

void CLensRaised::setControlPos(double x) { HandlePos::set(*this, 0, HandlePos::X, x, m_bPosByCode); }

int CLensRaised::percent() { return HandlePos::percent(*this, 0, HandlePos::X, getControlPos()); }

void CLensRaised::posChangedByControl()
{
    postSetting(QStringLiteral("idPosValue"), QString::number(percent()));
}

void CLensRaised::GetSettingArray(QJsonArray &array)
{
    if (m_pOwner)
        appendThicknessInput(array, percent());
}

bool CLensRaised::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    double x = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::X, false, x))
        setControlPos(x);
    return true;
}

bool CLensRaised::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CLens::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id))
        m_dSavedControlPos = getControlPos();
    else if (isRestore(id))
        setControlPos(m_dSavedControlPos);
    return r;
}
