#include "SpeakerImage.h"

CSpeakerImage::CSpeakerImage(CSVGObj *owner) : CSVGBase(owner) {}

CSpeakerImage::~CSpeakerImage() = default;

QString CSpeakerImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' id='Layer_1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='23px' height='40px' viewBox='0 0 23 40' enable-background='new 0 0 23 40' xml:space='preserve'>\n"
        "<polyline fill='none' stroke='#040000' stroke-width='2' vector-effect='none' points='2,14 9,14 21,1.5 21,38.5 9,26 2,26'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='9' y1='14' x2='9' y2='26'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='2' y1='14' x2='2' y2='26'/>\n"
        "</svg>\n");
}

int CSpeakerImage::getSVGType() { return 714; }

QString CSpeakerImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}
