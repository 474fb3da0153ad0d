#pragma once
// A shaded sphere: a body colour lit from the upper left, a handle on its right edge
// that sets the radius about a fixed centre, and a centre-of-mass dot to show or hide.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CSmallBall : public CBasic
{
public:
    explicit CSmallBall(CSVGObj *owner);
    ~CSmallBall() override;

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

    double radius() const { return m_dRadius; }

private:
    void layout();

    double m_dRadius = 20;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
