#pragma once
// A vertical graduated strip, zero at the top and values growing downward: a backdrop
// for reading heights and extensions. Its bottom end's handle sets the length; ticks and
// numbers follow, in centimetres, newtons or no unit.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT Calibration : public CBasic
{
public:
    explicit Calibration(CSVGObj *owner);
    ~Calibration() override;

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

    /* 71 */ virtual void posChangedByControl();
    /* 72 */ virtual double getControlPos();
    /* 73 */ virtual void setControlPos(double y);

    double length() const { return m_dLength; }
    int tickCount() const { return m_nTicks; }

private:
    void layout();

    double m_dLength = 210;
    int m_nTicks = 0;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
