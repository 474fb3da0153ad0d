#pragma once
// A pulley block of four: two fixed pulleys above, two movable ones below carrying the
// load on their hook. Pulled down, four falls hold the load; pulled up from the movable
// block, five. The free end moves n times as far as the load.
#include "bases/PulleyRig.h"

class PHYSICALOBJECT_SHARED_EXPORT CPulleyGroup2 : public CPulleyBlock
{
public:
    explicit CPulleyGroup2(CSVGObj *owner);
    ~CPulleyGroup2() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCombobox(bool b) override;
    QByteArray GetComboboxData() override;
    void ResetAtrribute() override;

    // The falls that hold the load: 4 pulled down, 5 pulled up.
    int falls() const;
    bool pulledUp() const;

private:
    void layout() override;
};
