#pragma once
// A block with a circular track cut into it, seen from the side: a half-circle bowl, or
// a quarter curving down from the left rim or up to the right one. The rim's handle sets
// the radius about a fixed centre.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CircularGroove : public CBasic
{
public:
    explicit CircularGroove(CSVGObj *owner);
    ~CircularGroove() override;

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

    enum Shape { Half, QuarterLeft, QuarterRight };
    Shape shape() const;
    double radius() const { return m_dRadius; }
    // The block's outline, with its margin round the cut.
    QRectF block() const;

private:
    void layout();
    // The handle's travel for the shape: on the left of the centre for the left quarter.
    void setTravel();
    double margin() const;

    double m_dRadius = 80;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
