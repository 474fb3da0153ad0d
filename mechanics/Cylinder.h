#pragma once
// A measuring cylinder: a graduated glass tube on a foot, holding liquid whose meniscus
// the handle sets; three capacities, each with its own graduation.
#include "bases/Basic.h"
#include "bases/LinearScale.h"
#include "bases/ShownValues.h"

class PHYSICALOBJECT_SHARED_EXPORT Cylinder : public CBasic
{
public:
    explicit Cylinder(CSVGObj *owner);
    ~Cylinder() override;

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

    // The height of the meniscus's bottom above the empty mark, in units (200 when full).
    double level() const;
    // The volume as the panel shows it ("42", "42.5").
    QString volumeText() const;
    double capacity() const;
    LinearScale::Reading reading() const;

    static constexpr double kScaleHeight = 200;

private:
    LinearScale::Reading readingOf(int range) const;
    void layScale();
    // The liquid from where the meniscus is.
    void layout();

    QRectF m_rcBody;
    int m_nScaleRange = -1;  // the range the graduation shows
    bool m_bByCode = false;
    ShownValues::Texts m_shown;  // what the panel shows of the values a drag changes
};
