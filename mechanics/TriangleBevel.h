#pragma once
// A right-angled wedge: one handle sets the length of the base, the other the height.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CTriangleBevel : public CBasic
{
public:
    explicit CTriangleBevel(CSVGObj *owner);
    ~CTriangleBevel() override;

    QString getSVG() override;
    int getSVGType() override;
    void SVGInit(bool bLoad, bool bLoaded) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;
    QString getPropName(int id) override;
};
