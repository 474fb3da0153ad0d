#pragma once
// A U-shaped magnet lying on its side: two parallel arms joined by a round bend, the
// arm ends coloured and lettered N and S. One handle sets the arms' length, the other
// the gap between them; the bend follows the gap.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CUtypeMagnet : public CBasic
{
public:
    explicit CUtypeMagnet(CSVGObj *owner);
    ~CUtypeMagnet() override;

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
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    // The arms' length from the bend's centre line to their ends, and the gap between them.
    double armLength() const;
    double gap() const;

private:
    void layout(bool bFinal);

    bool m_bPosByCode = false;
};
