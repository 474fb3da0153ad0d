#pragma once
// A round control knob: its handle turns the pointer mark through the full circle;
// ring, disc and mark colours are attributes.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CKnob : public CAttribute
{
public:
    explicit CKnob(CSVGObj *owner);
    ~CKnob() override;

    QString getSVG() override;
    int getSVGType() override;
    bool loadSVG(bool bLoad) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CAttribute::updateSVG;
    void ResetAtrribute() override;
    void UpdateColor(bool b) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    double getKnobRadius() const { return knobRadius; }

protected:
    void setColour(int attribute, const QColor &colour, bool bRecord, bool bUndo);

    double knobRadius = 0.0;
    QColor savedExtColor, savedIntColor, savedScaleColor;
};
