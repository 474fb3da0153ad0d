#pragma once
// A skateboard seen from the side: a deck with kicked-up ends on two trucks. Its right
// end sets the length.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CSkateboard : public CBasic
{
public:
    explicit CSkateboard(CSVGObj *owner);
    ~CSkateboard() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    double length() const { return m_dLength; }

private:
    void layout();

    double m_dLength = 200;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
