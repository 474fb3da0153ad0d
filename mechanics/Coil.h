#pragma once
// A coil: the spring's turns with straight lead wires instead of hooks, and fewer turns.
#include "Spring.h"

class PHYSICALOBJECT_SHARED_EXPORT CCoil : public CSpring
{
public:
    explicit CCoil(CSVGObj *owner);
    ~CCoil() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;
    void posChangedByControl() override;
    double getControlPos() override;
    void setControlPos(double y) override;
};
