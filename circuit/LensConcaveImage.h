#pragma once
// Concave lens as drawn in ray diagrams: a line with inward arrow heads.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CLensConcaveImage : public CSVGBase
{
public:
    explicit CLensConcaveImage(CSVGObj *owner);
    ~CLensConcaveImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
