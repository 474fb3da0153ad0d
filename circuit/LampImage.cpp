#include "LampImage.h"

CLampImage::CLampImage(CSVGObj *owner) : CSVGBase(owner)
{
    m_bHostOption = true;
}

CLampImage::~CLampImage() = default;

QString CLampImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' id='Layer_1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='78px' height='32px' viewBox='0 0 78 32' enable-background='new 0 0 78 32' xml:space='preserve'>\n"
        "<circle host_color='light' fill='#FFFFFF' stroke='#040000' stroke-width='2' vector-effect='none' cx='39' cy='15.981' r='14.223'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='28.943' y1='5.924' x2='49.057' y2='26.038'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='28.943' y1='26.038' x2='49.057' y2='5.924'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='0' y1='15.981' x2='24.777' y2='15.981'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='53.223' y1='15.981' x2='78' y2='15.981'/>\n"
        "</svg>\n");
}

int CLampImage::getSVGType() { return 704; }

QString CLampImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_WIRE_COLOR");
    if (id == PROP_LAMP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_LIGHTCOLOR");
    return CSVGBase::getPropName(id);
}
