#pragma once
// A laminated soft-iron bar: one handle sets its length, the other its thickness (the
// top edge stays put); the lamination lines fill the thickness.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CIroncore : public CBasic
{
public:
    explicit CIroncore(CSVGObj *owner);
    ~CIroncore() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    double length() const;
    double thickness() const;

private:
    void layout(bool bFinal);

    bool m_bPosByCode = false;
};
