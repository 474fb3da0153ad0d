#pragma once
// Cell symbol with its voltage label.
#include "bases/ImageTextBasic.h"

class PHYSICALOBJECT_SHARED_EXPORT CBatteryImage : public CImageTextBasic
{
public:
    explicit CBatteryImage(CSVGObj *owner);
    ~CBatteryImage() override;

    QString getSVG() override;
    int getSVGType() override;
};
