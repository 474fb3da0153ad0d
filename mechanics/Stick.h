#pragma once
// A thin bar pivoted at one end; its one handle sets both length and direction.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CStick : public CBasic
{
public:
    explicit CStick(CSVGObj *owner);
    ~CStick() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void SVGInit(bool bLoad, bool bLoaded) override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    void ChangeLine(QPointF target);
    double CaculateRotateAngle(QPointF target);
};
