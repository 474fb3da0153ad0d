#pragma once
// Single-throw switch symbol; the panel opens and closes it and the drawing shows the blade.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CSwitchImage : public CAttribute
{
public:
    explicit CSwitchImage(CSVGObj *owner);
    ~CSwitchImage() override;

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
