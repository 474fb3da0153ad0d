#pragma once
// A solenoid wound on an iron core: the electromagnet. Its handle sets the wound length
// and the turns follow at a fixed pitch; arrows on the front of the turns can show
// which way the current flows, and the core can be taken out.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CCoilA : public CBasic
{
public:
    explicit CCoilA(CSVGObj *owner);
    ~CCoilA() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCheckBox(bool b) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    double woundLength() const;
    int turnCount() const;

private:
    void layout(bool bFinal);
    void wind(int turns, int direction);

    bool m_bPosByCode = false;
    // What the winding in the drawing was last laid out for.
    int m_nLaidTurns = -1;
    int m_nLaidDirection = -1;
};
