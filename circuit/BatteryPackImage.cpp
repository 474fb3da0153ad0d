#include "BatteryPackImage.h"

CBatteryPackImage::CBatteryPackImage(CSVGObj *owner) : CImageTextBasic(owner)
{
    m_nFontSize = 10;
}

CBatteryPackImage::~CBatteryPackImage() = default;

QString CBatteryPackImage::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"48px\" height=\"25px\" viewBox=\"0 0 48 25\">\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"1.251\" y1=\"12.228\" x2=\"10.048\" y2=\"12.228\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"38.463\" y1=\"12.228\" x2=\"46.314\" y2=\"12.228\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"3\" x1=\"10.043\" y1=\"4.376\" x2=\"10.043\" y2=\"20.025\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"14.965\" y1=\"0.45\" x2=\"14.965\" y2=\"23.95\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"3\" x1=\"33.544\" y1=\"4.376\" x2=\"33.544\" y2=\"20.025\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"38.465\" y1=\"0.45\" x2=\"38.465\" y2=\"23.95\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" stroke-dasharray=\"6,3.5\" x1=\"14.965\" y1=\"12.228\" x2=\"33.544\" y2=\"12.228\"/>\n"
        "<text id=\"textInput\" x=\"5\" y=\"-10\" fill=\"#2E3192\" font-family=\"'Arial-BoldMT'\" font-size=\"10\">3.0V</text>\n"
        "</svg>\n");
}

int CBatteryPackImage::getSVGType() { return 701; }
