#include "SlideRhostatImage.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <QTextCodec>
#include <cmath>
#include <svgobj.h>

namespace {
// The lead the arrow's tail runs along, and the resistor's top edge it points at.
constexpr double kLeadY = 5, kTopEdge = 18, kRightEnd = 70.25, kSlideRhostatImageHeadLength = 6.5, kSlideRhostatImageHeadHalfWidth = 3.2;
}

CSlideRhostImage::CSlideRhostImage(CSVGObj *owner) : CImageTextBasic(owner)
{
    m_nFontSize = 10;
    setPostsChangedSettings(true);
    m_own.write = [this](QDataStream &out) { out << position(); };
    m_own.read = [this](QDataStream &in) {
        in >> m_dLoadedPos;
        return in.status() == QDataStream::Ok && std::isfinite(m_dLoadedPos);
    };
    // The place saved is the one the saved handle stands for, to the last bit.
    m_own.fits = [this](const HostPart &part) {
        return !part.handles.isEmpty() &&
               m_dLoadedPos == HandlePos::exactPercent(*this, 0, HandlePos::X, part.handles.first().x());
    };
}

CSlideRhostImage::~CSlideRhostImage() = default;

QString CSlideRhostImage::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"71px\" height=\"36px\" viewBox=\"0 0 71 36\">\n"
        "<rect x=\"17.313\" y=\"18\" width=\"37.125\" height=\"16.5\" fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" vector-effect=\"none\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" vector-effect=\"none\" x1=\"1.5\" y1=\"26.25\" x2=\"17.313\" y2=\"26.25\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" vector-effect=\"none\" x1=\"54.438\" y1=\"26.25\" x2=\"70.25\" y2=\"26.25\"/>\n"
        "<g id=\"slider\">\n"
        "<path id=\"slider_lead\" fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" stroke-linejoin=\"miter\" vector-effect=\"none\""
        " d=\"M70.25,5H35.8755V12\"/>\n"
        "<path id=\"slider_head\" fill=\"#040000\" d=\"M32.6755,11.5L39.0755,11.5L35.8755,18Z\"/>\n"
        "</g>\n"
        "<text id=\"textInput\" x=\"1\" y=\"-10\" fill=\"#2E3192\" font-family=\"'Arial-BoldMT'\" font-size=\"10\">20</text>\n"
        "<rect id=\"control_1\" x=\"31.8755\" y=\"4.5\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"13.313\" x_to=\"50.438\"/>\n"
        "</svg>\n");
}

int CSlideRhostImage::getSVGType() { return 711; }

bool CSlideRhostImage::loadSVG(bool bLoad)
{
    const bool loaded = CImageTextBasic::loadSVG(bLoad);
    if (QSvgNode *h = m_controlNodes.value(0))
        updateSVG(h, QPointF(), false);
    QSvgNode *label = m_pDocument ? m_pDocument->namedNode(QStringLiteral("textInput")) : nullptr;
    if (!label)
        return loaded;
    // As the resistor's: the template is plain ASCII, the ohm sign comes from its two-byte form.
    QTextCodec *codec = QTextCodec::codecForName("GB18030");
    const QString text = codec ? codec->toUnicode(QByteArray("\x32\x30\xA6\xB8")) : QString::fromUtf8("20\xCE\xA9");
    label->setAttribute(QStringLiteral("value"), text);
    return loaded;
}

double CSlideRhostImage::position() { return HandlePos::exactPercent(*this, 0, HandlePos::X, HandlePos::get(*this, 0, HandlePos::X)); }

bool CSlideRhostImage::updateSVG(QSvgNode *node, QPointF, bool)
{
    if (!node || node != m_controlNodes.value(0) || !m_pDocument)
        return false;
    const double x = node->rect().center().x();
    const QString cx = SvgNumbers::format(x);
    if (QSvgNode *lead = m_pDocument->namedNode(QStringLiteral("slider_lead")))
        lead->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2H%3V%4")
                                                    .arg(SvgNumbers::format(kRightEnd), SvgNumbers::format(kLeadY), cx,
                                                         SvgNumbers::format(kTopEdge - kSlideRhostatImageHeadLength)));
    if (QSvgNode *head = m_pDocument->namedNode(QStringLiteral("slider_head")))
        head->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%3L%2,%3L%4,%5Z")
                                                    .arg(SvgNumbers::format(x - kSlideRhostatImageHeadHalfWidth),
                                                         SvgNumbers::format(x + kSlideRhostatImageHeadHalfWidth),
                                                         SvgNumbers::format(kTopEdge - kSlideRhostatImageHeadLength), cx,
                                                         SvgNumbers::format(kTopEdge)));
    if (m_pOwner)
        m_pOwner->update(QRectF());
    return true;
}

bool CSlideRhostImage::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool restore = isRestore(id);
    const bool r = CImageTextBasic::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id))
        m_dSavedX = HandlePos::get(*this, 0, HandlePos::X);
    else if (restore)
        HandlePos::set(*this, 0, HandlePos::X, m_dSavedX, m_bPosByCode);
    return r;
}

void CSlideRhostImage::GetSettingArray(QJsonArray &array)
{
    CImageTextBasic::GetSettingArray(array);
    HandlePos::appendInput(*this, array, QStringLiteral("IDS_PHYSICSOBJ_SLIDER_POS"),
                           HandlePos::percentOf(position(), 0, 100));
}

bool CSlideRhostImage::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    CImageTextBasic::SetSettingArray(values, bRecord, bUndo);
    double x = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::X, false, x, HandlePos::Decimal))
        HandlePos::set(*this, 0, HandlePos::X, x, m_bPosByCode);
    return true;
}
