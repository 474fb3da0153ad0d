#pragma once
// Hook weights: slotted masses stacked on a hanger with a hook at the top. The number of
// masses and the mass of each are chosen in the panel; the label gives the total.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CHookCode : public CBasic
{
public:
    explicit CHookCode(CSVGObj *owner);
    ~CHookCode() override;

    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    int count() const;
    // Grams per mass: 10, 50 or 100.
    int gramsEach() const;
    // The label's text: "100 g".
    QString totalText() const;

private:
    // The stack, the rod and the label from the count and the mass of each.
    void layout();

    bool m_bByCode = false;
};
