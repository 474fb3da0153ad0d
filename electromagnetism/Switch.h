#pragma once
// A lab knife switch drawn open or closed; one switch attribute chooses the drawing.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CSwitch : public CAttribute
{
public:
    explicit CSwitch(CSVGObj *owner);
    ~CSwitch() override;

    QString getSVG() override;
    int getSVGType() override;
    void ResetAtrribute() override;
    void UpdateCheckBox(bool b) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;

    void UpdateSwitch();
    bool isOpen() const { return open; }

protected:
    bool open = true;
    bool savedClosed = false;
};
