#pragma once
// Resistor symbol with its resistance label; the unit sign is added on load.
#include "bases/ImageTextBasic.h"

class PHYSICALOBJECT_SHARED_EXPORT CResistanceImage : public CImageTextBasic
{
public:
    explicit CResistanceImage(CSVGObj *owner);
    ~CResistanceImage() override;

    QString getSVG() override;
    int getSVGType() override;
    bool loadSVG(bool bLoad) override;
};
