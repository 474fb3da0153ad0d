#include "CapacitanceImage.h"

CCapacitanceImage::CCapacitanceImage(CSVGObj *owner) : CImageTextBasic(owner) {}

CCapacitanceImage::~CCapacitanceImage() = default;

QString CCapacitanceImage::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"50px\" height=\"30px\" viewBox=\"0 0 50 30\">\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"1.5\" y1=\"14.25\" x2=\"20.406\" y2=\"14.25\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"2\" x1=\"29\" y1=\"14.25\" x2=\"47.906\" y2=\"14.25\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"3\" x1=\"20.406\" y1=\"0.5\" x2=\"20.406\" y2=\"28\"/>\n"
        "<line fill=\"none\" stroke=\"#040000\" stroke-width=\"3\" x1=\"29\" y1=\"0.5\" x2=\"29\" y2=\"28\"/>\n"
        "<text id=\"textInput\" x=\"1\" y=\"-10\" fill=\"#2E3192\" font-family=\"'Arial-BoldMT'\" font-size=\"10\">10uF</text>\n"
        "</svg>\n");
}

int CCapacitanceImage::getSVGType() { return 713; }
