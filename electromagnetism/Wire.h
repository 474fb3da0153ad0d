#pragma once
// A connecting wire: one cubic curve from the first handle to the fourth, pulled by
// the two between; the item always spans the four handles.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CWire : public CSVGBase
{
public:
    explicit CWire(CSVGObj *owner);
    ~CWire() override;

    bool loadSVG(bool bLoad) override;
    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CSVGBase::updateSVG;
    QString getPropName(int id) override;

    void genPath();
};
