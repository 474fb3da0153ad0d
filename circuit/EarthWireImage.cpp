#include "EarthWireImage.h"

CEarthWireImage::CEarthWireImage(CSVGObj *owner) : CSVGBase(owner) {}

CEarthWireImage::~CEarthWireImage() = default;

QString CEarthWireImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' id='Layer_1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='20px' height='28px' viewBox='0 0 20 28' enable-background='new 0 0 20 28' xml:space='preserve'>\n"
        "<line fill='none' stroke='#000000' stroke-width='2' vector-effect='none' x1='10' y1='0' x2='10' y2='15'/>\n"
        "<line fill='none' stroke='#000000' stroke-width='2' vector-effect='none' x1='2.0205' y1='15' x2='17.9795' y2='15'/>\n"
        "<line fill='none' stroke='#000000' stroke-width='2' vector-effect='none' x1='4.5625' y1='20' x2='15.4375' y2='20'/>\n"
        "<line fill='none' stroke='#000000' stroke-width='2' vector-effect='none' x1='7.1045' y1='25' x2='12.8955' y2='25'/>\n"
        "</svg>\n");
}

int CEarthWireImage::getSVGType() { return 712; }

QString CEarthWireImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_WIRE_COLOR");
    return CSVGBase::getPropName(id);
}
