#include "ResistanceImage.h"
#include <QTextCodec>

CResistanceImage::CResistanceImage(CSVGObj *owner) : CImageTextBasic(owner)
{
    m_nFontSize = 10;
}

CResistanceImage::~CResistanceImage() = default;

QString CResistanceImage::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"71px\" height=\"20px\" viewBox=\"0 0 71 20\">\n"
        "<rect x=\"17.313\" y=\"2\" width=\"37.125\" height=\"16.5\" fill=\"none\" stroke=\"#040000\" stroke-width=\"2\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"1.5\" y1=\"10.25\" x2=\"17.313\" y2=\"10.25\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"54.438\" y1=\"10.25\" x2=\"70.25\" y2=\"10.25\"/>\n"
        "<text id=\"textInput\" x=\"1\" y=\"-10\" fill=\"#2E3192\" font-family=\"'Arial-BoldMT'\" font-size=\"10\">10</text>\n"
        "</svg>\n");
}

int CResistanceImage::getSVGType() { return 710; }

bool CResistanceImage::loadSVG(bool bLoad)
{
    const bool loaded = CImageTextBasic::loadSVG(bLoad);
    QSvgNode *label = m_pDocument ? m_pDocument->namedNode(QStringLiteral("textInput")) : nullptr;
    if (!label)
        return loaded;
    // The template is plain ASCII; the ohm sign comes from its two-byte form.
    QTextCodec *codec = QTextCodec::codecForName("GB18030");
    const QString text = codec ? codec->toUnicode(QByteArray("\x31\x30\xA6\xB8")) : QString::fromUtf8("10\xCE\xA9");
    label->setAttribute(QStringLiteral("value"), text);
    return loaded;
}
