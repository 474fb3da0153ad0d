#pragma once
// Sliding-rheostat symbol: the resistor symbol with a slider arrow touching it from
// above, whose tail is the third lead. Its handle moves the arrow along the resistor;
// its value label reads "20Ω" when new.
#include "bases/ImageTextBasic.h"

class PHYSICALOBJECT_SHARED_EXPORT CSlideRhostImage : public CImageTextBasic
{
public:
    explicit CSlideRhostImage(CSVGObj *owner);
    ~CSlideRhostImage() override;

    QString getSVG() override;
    int getSVGType() override;
    bool loadSVG(bool bLoad) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CImageTextBasic::updateSVG;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;

    // The arrow's place along the resistor, 0 at its left end, 100 at its right.
    double position();

private:
    double m_dLoadedPos = 50;
    double m_dSavedX = 0;
    bool m_bPosByCode = false;
};
