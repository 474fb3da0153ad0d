#pragma once
// Electric bell symbol; ringing shows the marks above the bell.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CRingImage : public CAttribute
{
public:
    explicit CRingImage(CSVGObj *owner);
    ~CRingImage() override;

    QString getSVG() override;
    int getSVGType() override;
    QString getPropName(int id) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    void UpdateCheckBox(bool b) override;
    void ResetAtrribute() override;

    bool ringing() const { return m_attributes.value(5101).boolValue; }

private:
    bool m_bCapturedRinging = false;
};
