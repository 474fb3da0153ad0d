#pragma once
// A rectangular region of magnetic field: crosses (into the page), dots (out of it) or
// arrowed lines fill it evenly at the chosen spacing; the handle at its bottom-right
// corner sizes it, and the marks are regenerated to fill it.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CMagneticfield : public CBasic
{
public:
    explicit CMagneticfield(CSVGObj *owner);
    ~CMagneticfield() override;

    QString getSVG() override;
    int getSVGType() override;
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
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    // The region the marks fill, from where the corner handle stands.
    QRectF region() const;
    // Spacing of the marks for the density choice: 40, 30 or 20.
    double spacing() const;

private:
    // Resizes the region to the handle and refills it with marks.
    void relayout(bool bFinal);

    // What the marks in the drawing were last laid out as: when only marks at the end
    // come or go (rows of a grid, lines beside the others), the rest keep their path.
    struct Layout {
        int kind = -1;
        double spacing = 0;
        double across = 0; // a grid's columns, or the length the lines run
        int count = 0;
    };
    Layout m_layout;
    QRectF m_nameBox;
    bool m_bPosByCode = false;
};
