#pragma once
// A bar magnet: one half red and lettered N, the other blue and lettered S. The poles
// can be swapped, recoloured and their letters hidden; the host scales the bar.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CBarMagnet : public CAttribute
{
public:
    explicit CBarMagnet(CSVGObj *owner);
    ~CBarMagnet() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void UpdateCheckBox(bool b) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;

    bool northOnRight() const;

private:
    bool m_bPosByCode = false;
};
