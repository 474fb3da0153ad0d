#include "AmmeterImage.h"

CAmmeterImage::CAmmeterImage(CSVGObj *owner) : CSVGBase(owner) {}

CAmmeterImage::~CAmmeterImage() = default;

QString CAmmeterImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' id='Layer_1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='45px' height='31px' viewBox='0 0 45 31' enable-background='new 0 0 45 31' xml:space='preserve'>\n"
        "<circle fill='none' stroke='#040000' stroke-width='2' vector-effect='none' cx='22.5' cy='15.5' r='13.589'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='0' y1='15.5' x2='8.911' y2='15.5'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='36.089' y1='15.5' x2='45' y2='15.5'/>\n"
        "<path fill='#040000' stroke='none' vector-effect='none' d='M26.279,21 L25.022,17.782 L20.01,17.782 L18.744,21 L17.2,21 L21.687,10 L23.383,10 L27.8,21 L26.279,21 M23.163,12.99 C23.08,12.782 23,12.571 22.925,12.357 C22.849,12.143 22.783,11.949 22.726,11.775 C22.669,11.601 22.622,11.455 22.582,11.338 C22.543,11.22 22.521,11.149 22.516,11.124 C22.505,11.149 22.481,11.222 22.445,11.342 C22.409,11.462 22.361,11.61 22.301,11.788 C22.241,11.965 22.174,12.16 22.098,12.373 C22.022,12.587 21.945,12.797 21.867,13.005 L20.463,16.62 L24.577,16.62 L23.163,12.99 Z'/>\n"
        "</svg>\n");
}

int CAmmeterImage::getSVGType() { return 708; }

QString CAmmeterImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}
