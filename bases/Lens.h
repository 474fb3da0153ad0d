#pragma once
// Base of the two convex lenses: the outline lives in one path "lens" that is rebuilt
// from control_1 (thickness, horizontal) and control_2 (height, vertical) on every
// drag, and the object grows equally on both sides of its centre.
#include "GenCircle.h"

class PHYSICALOBJECT_SHARED_EXPORT CLens : public CGenCircle
{
public:
    explicit CLens(CSVGObj *owner);
    ~CLens() override;

    bool loadSVG(bool bLoad) override;
    int getSVGType() override;
    void updateOutlineRegion() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CGenCircle::updateSVG;
    double getXMax(QSvgNode *node) override;
    double getYMin(QSvgNode *node) override;
    QString getPropName(int id) override;

    // Writes the outline for the handles' current places into "lens".
    virtual void genLensPath();
};
