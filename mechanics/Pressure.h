#pragma once
// A U-tube pressure gauge: a glass U on a board with a centimetre scale, liquid in the
// bend, and a rubber hose from the left arm to a probe. The handle on the left surface
// sets the levels; the liquid moves as much up one arm as down the other.
#include "bases/Attribute.h"
#include "bases/LinearScale.h"
#include "bases/ShownValues.h"

class PHYSICALOBJECT_SHARED_EXPORT CPressure : public CAttribute
{
public:
    explicit CPressure(CSVGObj *owner);
    ~CPressure() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CAttribute::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void UpdateCheckBox(bool b) override;
    void ResetAtrribute() override;

    // How far the left surface stands below the rest level, in units (10 per cm).
    double drop() const;
    // The difference of the levels as the panel shows it, in cm ("6.0").
    QString differenceText() const;
    static LinearScale::Reading reading();

    static constexpr double kRestY = 170, kUnitsPerCm = 10;

private:
    // The liquid from where the left surface is.
    void layout();

    bool m_bByCode = false;
    ShownValues::Texts m_shown;  // what the panel shows of the values a drag changes
};
