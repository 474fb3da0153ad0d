#include "VoltmeterImage.h"

CVoltmeterImage::CVoltmeterImage(CSVGObj *owner) : CSVGBase(owner) {}

CVoltmeterImage::~CVoltmeterImage() = default;

QString CVoltmeterImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' id='Layer_1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='45px' height='31px' viewBox='0 0 45 31' enable-background='new 0 0 45 31' xml:space='preserve'>\n"
        "<circle fill='none' stroke='#040000' stroke-width='2' vector-effect='none' cx='22.5' cy='15.5' r='13.589'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='0' y1='15.5' x2='8.911' y2='15.5'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='36.089' y1='15.5' x2='45' y2='15.5'/>\n"
        "<path fill='#040000' stroke='none' vector-effect='none' d='M23.273,21 L21.727,21 L17.237,10 L18.806,10 L21.852,17.745 C21.93,17.978 22.008,18.211 22.087,18.443 C22.165,18.675 22.235,18.882 22.296,19.064 C22.37,19.277 22.44,19.485 22.509,19.688 C22.57,19.495 22.638,19.292 22.711,19.079 C22.773,18.897 22.841,18.692 22.917,18.463 C22.993,18.234 23.075,17.995 23.163,17.745 L26.194,10 L27.763,10 L23.273,21 Z'/>\n"
        "</svg>\n");
}

int CVoltmeterImage::getSVGType() { return 709; }

QString CVoltmeterImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}
