#pragma once
// A pulley block of two: a fixed pulley above, a movable one below carrying the load on
// its hook. Two falls hold the load, so the free end moves twice as far, the other way.
#include "bases/PulleyRig.h"

class PHYSICALOBJECT_SHARED_EXPORT CPulleyGroup : public CPulleyBlock
{
public:
    explicit CPulleyGroup(CSVGObj *owner);
    ~CPulleyGroup() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void ResetAtrribute() override;


private:
    void layout() override;
};
