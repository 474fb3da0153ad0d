#pragma once
// Capacitor symbol with its capacitance label.
#include "bases/ImageTextBasic.h"

class PHYSICALOBJECT_SHARED_EXPORT CCapacitanceImage : public CImageTextBasic
{
public:
    explicit CCapacitanceImage(CSVGObj *owner);
    ~CCapacitanceImage() override;

    QString getSVG() override;
    int getSVGType() override;
};
