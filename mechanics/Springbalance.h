#pragma once
// A spring balance (newton meter): a case with a scale, a spring in a slot stretched by
// the hook below, and a pointer that reads the pull in one of three ranges.
#include "bases/Basic.h"
#include "bases/LinearScale.h"
#include "bases/ShownValues.h"

class PHYSICALOBJECT_SHARED_EXPORT CSpringbalance : public CBasic
{
public:
    explicit CSpringbalance(CSVGObj *owner);
    ~CSpringbalance() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    // How far the hook has been pulled down from zero, in units (150 at full scale).
    double travel() const;
    // The reading as the panel shows it ("3.6", "1.80").
    QString readingText() const;
    // The full scale of the chosen range, in newtons.
    double fullScale() const;
    LinearScale::Reading reading() const;

    static constexpr double kScaleLength = 150;

private:
    // The ticks, and the numbers of the chosen range.
    void layScale();
    // The moving parts from where the hook is.
    void layout();

    QRectF m_rcBody;
    bool m_bByCode = false;
    ShownValues::Texts m_shown;  // what the panel shows of the values a drag changes
};
