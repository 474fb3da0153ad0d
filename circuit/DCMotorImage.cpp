#include "DCMotorImage.h"

CDCMotorImage::CDCMotorImage(CSVGObj *owner) : CSVGBase(owner) {}

CDCMotorImage::~CDCMotorImage() = default;

QString CDCMotorImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' id='Layer_1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='43px' height='30px' viewBox='0 0 43 30' enable-background='new 0 0 43 30' xml:space='preserve'>\n"
        "<circle fill='none' stroke='#040000' stroke-width='2' vector-effect='none' cx='21.5' cy='15' r='12.934'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='0' y1='15' x2='8.566' y2='15'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='34.434' y1='15' x2='43' y2='15'/>\n"
        "<path fill='#040000' stroke='none' vector-effect='none' d='M25.142,18 L25.142,11.327 C25.142,11.087 25.144,10.841 25.149,10.59 C25.153,10.34 25.16,10.11 25.169,9.901 C25.18,9.66 25.192,9.426 25.205,9.199 C25.139,9.44 25.07,9.679 24.999,9.917 C24.938,10.12 24.871,10.336 24.798,10.565 C24.724,10.795 24.652,11.002 24.581,11.186 L21.996,18 L21.047,18 L18.428,11.186 C18.399,11.115 18.37,11.032 18.339,10.938 C18.307,10.843 18.274,10.742 18.239,10.636 C18.203,10.529 18.167,10.42 18.132,10.31 C18.096,10.199 18.063,10.089 18.031,9.98 C17.949,9.729 17.87,9.469 17.795,9.199 C17.801,9.464 17.808,9.727 17.817,9.987 C17.826,10.21 17.833,10.443 17.838,10.687 C17.842,10.931 17.845,11.144 17.845,11.327 L17.845,18 L16.639,18 L16.639,8 L18.419,8 L21.081,14.934 C21.114,15.028 21.155,15.149 21.202,15.298 C21.25,15.448 21.295,15.6 21.338,15.757 C21.38,15.914 21.419,16.062 21.455,16.201 C21.49,16.341 21.515,16.448 21.528,16.524 C21.544,16.448 21.57,16.339 21.608,16.197 C21.646,16.054 21.689,15.905 21.738,15.749 C21.788,15.593 21.836,15.442 21.884,15.295 C21.932,15.148 21.974,15.028 22.012,14.934 L24.624,8 L26.361,8 L26.361,18 L25.142,18 Z'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='16.5' y1='21.5' x2='26.5' y2='21.5'/>\n"
        "</svg>\n");
}

int CDCMotorImage::getSVGType() { return 706; }

QString CDCMotorImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}
