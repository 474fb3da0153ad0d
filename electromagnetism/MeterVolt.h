#pragma once
// A dial voltmeter with the ranges 3 V and 15 V.
#include "bases/Meter.h"

class PHYSICALOBJECT_SHARED_EXPORT CMeterVolt : public CMeter
{
public:
    explicit CMeterVolt(CSVGObj *owner);
    ~CMeterVolt() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    void angelChangedByControl(double angle) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    int getGrade() const { return grade; }

protected:
    int grade = 0;
    int savedGrade = 0;
};
