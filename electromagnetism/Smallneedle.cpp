#include "Smallneedle.h"
#include "bases/HandlePos.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {
const QPointF kPin(56, 56);
constexpr double kSmallneedleTip = 48; // the north tip's distance from the pin
} // namespace

CSmallneedle::CSmallneedle(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return QVector<QPair<QString, QString>>{
            {QStringLiteral("idAngle"), QString::number(HandlePos::shownDegrees(angle()))}};
    });
}

CSmallneedle::~CSmallneedle() = default;

QString CSmallneedle::getSVG()
{
    // Each half of the rhombus is two facets, lit and shaded, so the needle reads as a
    // ridged blade from any side.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"112px\" height=\"112px\""
        " viewBox=\"0 0 112 112\">\n"
        "<defs>\n"
        "<radialGradient id=\"base\" cx=\"0.4\" cy=\"0.35\" r=\"0.7\">"
        "<stop offset=\"0\" stop-color=\"#F2F4F6\"/><stop offset=\"0.6\" stop-color=\"#9EA7B0\"/>"
        "<stop offset=\"1\" stop-color=\"#4A5560\"/></radialGradient>\n"
        "<radialGradient id=\"cap\" cx=\"0.35\" cy=\"0.3\" r=\"0.75\">"
        "<stop offset=\"0\" stop-color=\"#FFF4C2\"/><stop offset=\"0.5\" stop-color=\"#D9B44A\"/>"
        "<stop offset=\"1\" stop-color=\"#7D5E18\"/></radialGradient>\n"
        "</defs>\n"
        "<g id=\"stand\">\n"
        "<circle cx=\"57.5\" cy=\"58\" r=\"22\" fill=\"#000000\" fill-opacity=\"0.18\"/>\n"
        "<circle cx=\"56\" cy=\"56\" r=\"22\" fill=\"url(#base)\" stroke=\"#4A5560\" stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<circle cx=\"56\" cy=\"56\" r=\"15\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"0.8\" stroke-opacity=\"0.6\"/>\n"
        "</g>\n"
        "<g id=\"needle\" rotate_x=\"56\" rotate_y=\"56\" rotate_from=\"-180\" rotate_to=\"180\" rotate_angle=\"0\">\n"
        "<path fill=\"#FFFFFF\" d=\"M56,46L8,56H56Z\"/>\n"
        "<path fill=\"#D5DEE8\" d=\"M56,66L8,56H56Z\"/>\n"
        "<path fill=\"none\" stroke=\"#1E63D6\" stroke-width=\"1.4\" stroke-linejoin=\"round\" vector-effect=\"none\""
        " d=\"M56,46L8,56L56,66\"/>\n"
        "<path fill=\"#EF5350\" d=\"M56,46L104,56H56Z\"/>\n"
        "<path fill=\"#B71C1C\" d=\"M56,66L104,56H56Z\"/>\n"
        "<path fill=\"none\" stroke=\"#7F1514\" stroke-width=\"1\" stroke-linejoin=\"round\" vector-effect=\"none\""
        " d=\"M56,46L104,56L56,66\"/>\n"
        "<text x=\"75\" y=\"60\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"11\" font-weight=\"bold\""
        " text-anchor=\"middle\" fill=\"#FFFFFF\">N</text>\n"
        "<text x=\"37\" y=\"60\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"11\" font-weight=\"bold\""
        " text-anchor=\"middle\" fill=\"#1E63D6\">S</text>\n"
        "</g>\n"
        "<circle cx=\"56\" cy=\"56\" r=\"4.2\" fill=\"url(#cap)\" stroke=\"#5E4712\" stroke-width=\"0.7\"/>\n"
        "<rect id=\"control_1\" x=\"99.5\" y=\"51.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"3.5\" x_to=\"99.5\" y_from=\"3.5\" y_to=\"99.5\"/>\n"
        "</svg>\n");
}

int CSmallneedle::getSVGType() { return 510; }

// The needle's colours are what tells north from south: the host's colour leaves them.
QString CSmallneedle::getPropName(int id) { return id == PROP_COLOR ? QString() : CBasic::getPropName(id); }

void CSmallneedle::SVGInit(bool, bool) { HostPaint::only(m_pDocument, {}); }

double CSmallneedle::angle() const { return HandlePos::polar(*this, 0, kPin).angle; }

bool CSmallneedle::updateSVG(QSvgNode *node, QPointF, bool)
{
    if (!node || node != m_controlNodes.value(0) || !m_pDocument)
        return false;
    // Back on its circle; the needle then points where the handle stands.
    const HandlePos::Polar p = HandlePos::putBack(*this, 0, kPin, {HandlePos::polar(*this, 0, kPin).angle, kSmallneedleTip});
    if (QSvgNode *needle = m_pDocument->namedNode(QStringLiteral("needle")))
        needle->setNumAttribute(QStringLiteral("rotate_angle"), p.angle == 0 ? 0.0 : -p.angle);
    repaint();
    return true;
}

void CSmallneedle::GetSettingArray(QJsonArray &array) { PanelItems::appendAngle(*this, array, HandlePos::shownDegrees(angle())); }

bool CSmallneedle::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    double degrees = 0;
    if (HandlePos::typedNumber(values, QStringLiteral("idAngle"), -180, 180, true, degrees))
        HandlePos::turnTo(*this, 0, kPin, degrees, m_bPosByCode);
    return true;
}

bool CSmallneedle::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
