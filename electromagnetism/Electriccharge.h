#pragma once
// A point charge: a shaded sphere marked + or −, with radial field lines whose arrows
// point away from a positive charge and towards a negative one. The handle at the end
// of the first line sets the lines' length; the sphere stays put.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CElectriccharge : public CBasic
{
public:
    explicit CElectriccharge(CSVGObj *owner);
    ~CElectriccharge() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCheckBox(bool b) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    bool positive() const;
    int lineCount() const;
    double lineLength() const;

private:
    void layout(bool bFinal);
    void paintSign();

    bool m_bPosByCode = false;
};
