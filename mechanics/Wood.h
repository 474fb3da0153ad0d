#pragma once
// A wooden block for friction and pressure lessons: its bottom-right corner sets width
// and height, grain lines fill it, and a small ring on its right face takes a spring
// balance's hook.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CWood : public CBasic
{
public:
    explicit CWood(CSVGObj *owner);
    ~CWood() override;

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

    double width() const { return m_dWidth; }
    double height() const { return m_dHeight; }
    bool showsHook() const;

private:
    void layout();

    double m_dWidth = 120;
    double m_dHeight = 60;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
