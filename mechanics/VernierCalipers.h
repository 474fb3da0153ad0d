#pragma once
// Vernier calipers for practice in reading a vernier: a beam with a millimetre scale to
// 150 mm, a sliding jaw carrying a vernier of 10, 20 or 50 divisions, and the reading
// the picture shows.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CVernierCalipers : public CBasic
{
public:
    explicit CVernierCalipers(CSVGObj *owner);
    ~CVernierCalipers() override;

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

    /* 71 */ virtual void posChangedByControl();

    // The jaw opening in millimetres, as the handle stands.
    double opening() const { return m_dOpening; }
    // The opening rounded to the vernier's precision (halves up), and as it is written.
    double reading() const;
    QString readingText() const;
    int divisions() const;
    double precision() const;
    // Moves the jaw to mm rounded to the precision, held to 0..150 (no echo to the panel).
    void setReading(double mm);

private:
    void buildMainScale();
    void buildVernier();
    void layout();
    // The precision steps of an opening of mm, halves up.
    long steps(double mm) const;

    double m_dOpening = 0;
    PanelCache m_panel;
    bool m_bPosByCode = false;
};
