#pragma once
// A dial ammeter with the ranges 0.6 A and 3 A.
#include "bases/Meter.h"

class PHYSICALOBJECT_SHARED_EXPORT CMeterAmpere : public CMeter
{
public:
    explicit CMeterAmpere(CSVGObj *owner);
    ~CMeterAmpere() override;

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
