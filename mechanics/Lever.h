#pragma once
// A uniform bar with equally spaced holes, turning about its middle on a triangular
// fulcrum: the law of the lever. The right end's handle tilts the bar and sets how many
// holes it has on each side.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CLever : public CBasic
{
public:
    explicit CLever(CSVGObj *owner);
    ~CLever() override;

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

    // The tilt as drawn, degrees anticlockwise (−45 to 45), and as shown: whole degrees.
    double tilt() const { return m_dTilt; }
    int shownTilt() const;
    // Holes on each side of the pivot (2 to 10); the bar reaches half a pitch past the last.
    int marksPerSide() const { return m_nMarks; }
    double halfLength() const;

private:
    void layout();
    void moveEnd(double tilt, int marks);

    double m_dTilt = 0;
    int m_nMarks = 5;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
