#pragma once
// Loudspeaker symbol: the magnet box and the cone.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CSpeakerImage : public CSVGBase
{
public:
    explicit CSpeakerImage(CSVGObj *owner);
    ~CSpeakerImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
};
