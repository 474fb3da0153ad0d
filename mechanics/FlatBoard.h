#pragma once
// A horizontal plank seen from the side, resting on the bench: its right end sets the
// length, the middle of its top edge the thickness; the top surface is smooth, planed
// wood or cloth.
#include "bases/Basic.h"
#include "bases/HandlePos.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CFlatBoard : public CBasic
{
public:
    explicit CFlatBoard(CSVGObj *owner);
    ~CFlatBoard() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    // Slot 0 is the length (x of control_1), slot 1 the thickness (y of control_2).
    /* 71 */ virtual void posChangedByControl(int index);
    /* 72 */ virtual double getControlPos(int index);
    /* 73 */ virtual void setControlPos(int index, double pos);

    double length() const { return m_dLength; }
    double thickness() const { return m_dThickness; }
    int surface() const;

private:
    void layout();

    double m_dLength = 300;
    double m_dThickness = 20;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
