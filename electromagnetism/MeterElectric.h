#pragma once
// A centre-zero galvanometer reading -30 to 30; its pointer rests in the middle.
#include "bases/Meter.h"

class PHYSICALOBJECT_SHARED_EXPORT CMeterElectric : public CMeter
{
public:
    explicit CMeterElectric(CSVGObj *owner);
    ~CMeterElectric() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    void angelChangedByControl(double angle) override;
};
