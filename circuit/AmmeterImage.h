#pragma once
// Ammeter symbol: a circle with its letter.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CAmmeterImage : public CSVGBase
{
public:
    explicit CAmmeterImage(CSVGObj *owner);
    ~CAmmeterImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
