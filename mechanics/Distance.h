#pragma once
// A dimension line between two free ends, with arrowheads and bars across the ends and
// an upright label beside its middle.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CDistance : public CBasic
{
public:
    explicit CDistance(CSVGObj *owner);
    ~CDistance() override;

    QString getSVG() override;
    int getSVGType() override;
    bool save(QDataStream &out) override;
    bool load(QDataStream &in) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void UpdateCheckBox(bool b) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    const QString &label() const { return m_strLabel; }

private:
    // The drawing from the two handles, the attributes and the label.
    void layout();

    QString m_strLabel = QStringLiteral("s");
    QString m_strCapturedLabel;
    bool m_bByCode = false;
};
