#pragma once
// Two-way switch symbol: open, closed to the upper contact or closed to the lower one.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CBilateralSwitchImage : public CAttribute
{
public:
    explicit CBilateralSwitchImage(CSVGObj *owner);
    ~CBilateralSwitchImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;

    int state() const { return m_attributes.value(5102).intValue; }

private:
    int m_nCapturedState = 1;
};
