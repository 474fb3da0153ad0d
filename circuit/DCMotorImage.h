#pragma once
// Direct-current motor symbol: a circle with a letter and a bar under it.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CDCMotorImage : public CSVGBase
{
public:
    explicit CDCMotorImage(CSVGObj *owner);
    ~CDCMotorImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
