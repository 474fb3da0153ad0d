#pragma once
// The uniform field between two charged parallel plates: evenly spaced field lines from
// plate to plate, arrowed from + to −. One handle sets the plates' length, the other
// the separation; the lines are regenerated to fill the length.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CElectricfield : public CBasic
{
public:
    explicit CElectricfield(CSVGObj *owner);
    ~CElectricfield() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void UpdateCheckBox(bool b) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    double plateLength() const;
    double separation() const;
    bool topPositive() const;

private:
    void layout(bool bFinal);
    // The lines, their heads and the signs: only when their number or the polarity changes.
    void regenerate(int count, bool topPlus);

    int m_nLaidCount = -1;
    int m_nLaidPolarity = -1;
    QSizeF m_nameSize;
    bool m_bPosByCode = false;
};
