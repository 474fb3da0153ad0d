#pragma once
// A dial meter with a plain 0 to 6 scale and no unit.
#include "bases/Meter.h"

class PHYSICALOBJECT_SHARED_EXPORT CMeterCustom : public CMeter
{
public:
    explicit CMeterCustom(CSVGObj *owner);
    ~CMeterCustom() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    void angelChangedByControl(double angle) override;
};
