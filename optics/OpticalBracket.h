#pragma once
// The stand of the optics bench: a disc foot, a rod whose height follows control_1 at
// the foot, and a holder on top shown in one of four orientations.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT COpticalBracket : public CAttribute
{
public:
    explicit COpticalBracket(CSVGObj *owner);
    ~COpticalBracket() override;

    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CAttribute::updateSVG;
    QString getPropName(int id) override;
    void ResetAtrribute() override;
    void UpdateCombobox(bool b) override;
    QByteArray GetComboboxData() override;

    virtual void posChangedByControl();
    virtual double getControlPos();
    virtual void setControlPos(double y);

private:
    int percent();
    int orientation() const;

    bool m_bPosByCode = false;
    double m_dSavedControlPos = 0;
    int m_nSavedOrientation = 0;
};
