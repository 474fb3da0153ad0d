#pragma once
// Symbol of a battery of two cells, with its voltage label.
#include "bases/ImageTextBasic.h"

class PHYSICALOBJECT_SHARED_EXPORT CBatteryPackImage : public CImageTextBasic
{
public:
    explicit CBatteryPackImage(CSVGObj *owner);
    ~CBatteryPackImage() override;

    QString getSVG() override;
    int getSVGType() override;
};
