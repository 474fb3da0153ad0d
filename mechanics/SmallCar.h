#pragma once
// A laboratory trolley: a rounded body on two wheels with a hook at the front. Its right
// end sets the body's length; the wheels stay at a fifth of it from each end.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CSmallCar : public CBasic
{
public:
    explicit CSmallCar(CSVGObj *owner);
    ~CSmallCar() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void UpdateCheckBox(bool b) override;
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    double length() const { return m_dLength; }
    bool showsHook() const;

private:
    void layout();

    double m_dLength = 160;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
