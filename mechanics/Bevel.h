#pragma once
// A plank hinged at its lower left end on the bench and propped up at its upper end:
// the inclined plane. The upper end's handle sets the slope and the length; the angle
// is marked at the hinge.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CBevel : public CBasic
{
public:
    explicit CBevel(CSVGObj *owner);
    ~CBevel() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCheckBox(bool b) override;
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    // The slope as drawn, in degrees (0 to 80), and as shown: whole degrees.
    double angle() const { return m_dAngle; }
    int shownAngle() const;
    // The plank's length along the slope, 60 to 1000.
    double length() const { return m_dLength; }
    bool showsAngle() const;

private:
    void layout();
    // Moves the upper end to the slope and length given, keeping the hinge.
    void moveEnd(double angle, double length);

    double m_dAngle = 30;
    double m_dLength = 300;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
