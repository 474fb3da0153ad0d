#pragma once
// A plano-concave lens: the half of the concave lens. The flat side lies on the
// vertical through control_3's centre (the lens axis); control_1 is the corner at the
// top of the curved side, control_2 the waist of the arc, control_3 the bottom.
//
// Rules, the concave lens's own, read from the flat side:
// - lens_rect spans from the axis to control_1's centre, from control_1's centre
//   height down to control_3's; circle_1 is the arc through the top corner, the waist
//   and the bottom corner; the outline is the rectangle minus that disc.
// - Dragging control_3 moves control_2 to halfway between top and bottom; the drawing
//   spans the three handles horizontally and grows downwards with control_3.
// - Facing right (direction 0): control_1's x lies between control_2's x and that plus
//   the half-chord (waist height minus top height); control_2's x lies between
//   control_1's x minus the half-chord and control_1's x, never past the axis;
//   control_3's y is at least control_1's y plus twice the arc's depth, and never
//   above its own template bound. So the arc is never deeper than a semicircle.
// - Facing left (1) every x rule is mirrored about the axis. Turning mirrors control_1
//   and control_2 about the axis, so left and back restores the shape. The panel
//   shows 100 minus the percentage when facing left, as the half convex lens does.
#include "LensConcave.h"

class PHYSICALOBJECT_SHARED_EXPORT CLensSemiConcave : public CLensConcave
{
public:
    explicit CLensSemiConcave(CSVGObj *owner);
    ~CLensSemiConcave() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CLensConcave::updateSVG;
    double getXMin(QSvgNode *node) override;
    double getXMax(QSvgNode *node) override;
    double getYMin(QSvgNode *node) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;

    void posChangedByControl() override;
    void genLensPath() override;

    // Puts a thickness handle on the chosen side of the axis, at the same distance.
    void UpdateRightLeft(QSvgNode *handle, bool right);
    int ConvertValue();
    void SetConvertValue(int value);

    bool facesRight() const { return m_bFacesRight; }

protected:
    int percent() override;

private:
    bool m_bFacesRight = true;
    int m_nSavedDirection = 0;
};
