#pragma once
// Voltmeter symbol: a circle with its letter.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CVoltmeterImage : public CSVGBase
{
public:
    explicit CVoltmeterImage(CSVGObj *owner);
    ~CVoltmeterImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
