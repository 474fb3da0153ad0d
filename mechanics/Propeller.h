#pragma once
// A propeller: a hub with two to four blades on a rotor that the handle on the first
// blade's tip turns through the full circle.
#include "bases/Attribute.h"
#include "bases/ShownValues.h"

class PHYSICALOBJECT_SHARED_EXPORT CPropeller : public CAttribute
{
public:
    explicit CPropeller(CSVGObj *owner);
    ~CPropeller() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CAttribute::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;

    int blades() const;
    // Where blade_1 points: degrees anticlockwise from the positive x axis, as drawn.
    double angle() const { return m_dAngle; }

    static constexpr double kTipRadius = 50;

private:
    // The rotor from where the handle is; the handle back on its circle.
    void layout();
    void layBlades();

    double m_dAngle = 90;
    bool m_bByCode = false;
    ShownValues::Texts m_shown;
};
