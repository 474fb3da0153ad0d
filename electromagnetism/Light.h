#pragma once
// A small bulb in a holder. Lit, its filament shines and a halo in the host's light
// colour glows round it, larger and stronger with the brightness. It keeps its two
// panel values itself and saves them before the host's part.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CLight : public CSVGBase
{
public:
    // Property ids of the two values, for undo, playback and setInnerProperty.
    enum { PROP_ON = 1101, PROP_BRIGHTNESS = 1102 };

    explicit CLight(CSVGObj *owner);
    ~CLight() override;

    bool save(QDataStream &out) override;
    bool load(QDataStream &in) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    bool loadSVG(bool bLoad) override;
    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool getInnerProperty(int id, QDataStream &out) override;
    bool setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;

    bool isOn() const { return m_bOn; }
    int brightness() const { return m_nBrightness; }
    // The colour the bulb shines in: the host's light colour, or a warm white.
    QColor lightColour();

private:
    void updateLight();

    bool m_bOn = false;
    int m_nBrightness = 60;
    bool m_bSavedOn = false;
    int m_nSavedBrightness = 60;
};
