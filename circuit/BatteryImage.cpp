#include "BatteryImage.h"

CBatteryImage::CBatteryImage(CSVGObj *owner) : CImageTextBasic(owner)
{
    m_nFontSize = 10;
}

CBatteryImage::~CBatteryImage() = default;

QString CBatteryImage::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" style=\"width:28px;height:28px\" viewBox=\"0 0 28 28\">\n"
        "<line fill=\"none\" stroke=\"#000000\" stroke-width=\"3\" x1=\"2.132\" y1=\"14.182\" x2=\"10.767\" y2=\"14.182\"/>\n"
        "<line fill=\"none\" stroke=\"#000000\" stroke-width=\"3\" x1=\"17.319\" y1=\"14.182\" x2=\"26.015\" y2=\"14.182\"/>\n"
        "<line fill=\"none\" stroke=\"#000000\" stroke-width=\"6\" x1=\"11.87\" y1=\"5.547\" x2=\"11.87\" y2=\"22.879\"/>\n"
        "<line fill=\"none\" stroke=\"#000000\" stroke-width=\"3\" x1=\"17.318\" y1=\"1.2\" x2=\"17.318\" y2=\"27.227\"/>\n"
        "<text id=\"textInput\" x=\"0\" y=\"-10\" fill=\"#2E3192\" font-family=\"'Arial-BoldMT'\" font-size=\"10\">1.5V</text>\n"
        "</svg>\n");
}

int CBatteryImage::getSVGType() { return 700; }
