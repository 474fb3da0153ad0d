#pragma once
// Earth symbol: a lead and three bars of decreasing length.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CEarthWireImage : public CSVGBase
{
public:
    explicit CEarthWireImage(CSVGObj *owner);
    ~CEarthWireImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
