#pragma once
// An electron: a small blue sphere marked −, with a velocity arrow whose tip the user
// drags to set its direction and length, as a force arrow's.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CNegativeelectron : public CBasic
{
public:
    explicit CNegativeelectron(CSVGObj *owner);
    ~CNegativeelectron() override;

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

    // The arrow's direction (degrees anticlockwise from the right) and its length.
    double angle() const;
    double length() const;

private:
    void layout(bool bFinal);

    QSizeF m_labelSize;
    bool m_bPosByCode = false;
};
