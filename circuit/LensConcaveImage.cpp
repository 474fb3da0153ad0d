#include "LensConcaveImage.h"

CLensConcaveImage::CLensConcaveImage(CSVGObj *owner) : CSVGBase(owner) {}

CLensConcaveImage::~CLensConcaveImage() = default;

QString CLensConcaveImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' xmlns='http://www.w3.org/2000/svg' style='width:15px;height:112px' viewBox='0 0 15 112'>\n"
        "<line fill='none' stroke='#000000' stroke-width='2' vector-effect='none' x1='7.5' y1='1.5' x2='7.5' y2='110.5'/>\n"
        "<polyline fill='none' stroke='#000000' stroke-width='2' vector-effect='none' points='1.5,1.5 7.5,8.5 13.5,1.5'/>\n"
        "<polyline fill='none' stroke='#000000' stroke-width='2' vector-effect='none' points='1.5,110.5 7.5,103.5 13.5,110.5'/>\n"
        "</svg>\n");
}

int CLensConcaveImage::getSVGType() { return 605; }

QString CLensConcaveImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}
