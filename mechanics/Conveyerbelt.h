#pragma once
// A conveyor belt: two rollers and a belt looped round them, with arrows along the top
// run for the way it moves. The right roller's centre sets the centre distance, the top
// of the left roller the radius of both.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT Conveyerbelt : public CBasic
{
public:
    explicit Conveyerbelt(CSVGObj *owner);
    ~Conveyerbelt() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    double distance() const { return m_dDistance; }
    double radius() const { return m_dRadius; }
    // 0 none, 1 right, 2 left.
    int direction() const;

private:
    void layout();

    double m_dDistance = 240;
    double m_dRadius = 25;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
