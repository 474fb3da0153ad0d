#pragma once
// Convex lens as drawn in ray diagrams: a line with outward arrow heads.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CLensRaisedImage : public CSVGBase
{
public:
    explicit CLensRaisedImage(CSVGObj *owner);
    ~CLensRaisedImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
