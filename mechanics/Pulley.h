#pragma once
// A fixed pulley hanging from a ceiling beam by its bracket, with a rope over the wheel:
// the handle at the end of the right fall lengthens or shortens it; the left one keeps
// its length.
#include "bases/PulleyRig.h"

class PHYSICALOBJECT_SHARED_EXPORT CPulley : public CPulleyRig
{
public:
    explicit CPulley(CSVGObj *owner);
    ~CPulley() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;

    // The right fall, from where the rope leaves the wheel to its hook.
    double rightFall() const;

    static constexpr double kMinFall = 20, kMaxFall = 600, kLeftFall = 100;

private:
    // The right fall and its hook from where the handle is.
    void layout() override;
};
