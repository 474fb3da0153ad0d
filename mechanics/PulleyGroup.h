#pragma once
// A pulley block of two: a fixed pulley above, a movable one below carrying the load on
// its hook. Two falls hold the load, so the free end moves twice as far, the other way.
#include "bases/PulleyRig.h"

class PHYSICALOBJECT_SHARED_EXPORT CPulleyGroup : public CPulleyRig
{
public:
    explicit CPulleyGroup(CSVGObj *owner);
    ~CPulleyGroup() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCheckBox(bool b) override;
    void ResetAtrribute() override;

    // How far the movable pulley's axle hangs below the fixed one's (40 to 240).
    double drop() const;
    // Where the free end is (control_2's centre).
    QPointF freeEnd() const;

    static constexpr double kMinDrop = 40, kMaxDrop = 240;

private:
    void layout() override;
};
