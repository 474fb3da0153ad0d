#pragma once
// Alternating-current motor symbol: a circle with a letter and a wave.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CACMotorImage : public CSVGBase
{
public:
    explicit CACMotorImage(CSVGObj *owner);
    ~CACMotorImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
