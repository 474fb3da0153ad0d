#pragma once
// A force arrow drawn from its point of application: the tip handle sets direction and
// magnitude, and the force's name (with its value, if shown) stays upright by the tip.
#include "bases/Basic.h"
#include "bases/ShownValues.h"

class PHYSICALOBJECT_SHARED_EXPORT CForce : public CBasic
{
public:
    explicit CForce(CSVGObj *owner);
    ~CForce() override;

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
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    const QString &name() const { return m_strName; }
    // Newtons, as drawn (40 units per newton).
    double magnitude() const { return m_dLength / kUnitsPerNewton; }
    // Degrees anticlockwise from the positive x axis, as drawn.
    double angle() const { return m_dAngle; }
    // The text by the tip: the name, and "= 2.5 N" when the value is shown.
    QString labelText() const;

    static constexpr double kUnitsPerNewton = 40;
    static constexpr double kMinNewtons = 0.1, kMaxNewtons = 25;

private:
    QPointF pivot() const;
    // The drawing from the handle, the attributes and the name.
    void layout();
    // Moves the tip to that direction and length, as a typed value does.
    void moveTip(double angle, double length);

    QString m_strName = QStringLiteral("F");
    QString m_strCapturedName;
    double m_dAngle = 0;
    double m_dLength = 80;
    bool m_bByCode = false;
    ShownValues::Texts m_shown;  // what the panel shows of the values a drag changes
};
