#pragma once
// Lamp symbol: a crossed circle between two long leads.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CLampImage : public CSVGBase
{
public:
    explicit CLampImage(CSVGObj *owner);
    ~CLampImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
