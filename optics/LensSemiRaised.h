#pragma once
// A plano-convex lens: one arc through the top tip, the vertex (control_1) and the
// bottom tip (control_2), cut by a rectangle whose flat side lies on the height handle.
// The direction item puts the curved side right (0) or left (1); turning mirrors the
// thickness handle about the height handle, so left and back restores the shape.
// Facing left the thickness handle's x bounds are mirrored too, and the height
// handle's lower bound uses the thickness measured from the flat side, so both
// directions behave alike.
#include "bases/Lens.h"

class PHYSICALOBJECT_SHARED_EXPORT CLensSemiRaised : public CLens
{
public:
    explicit CLensSemiRaised(CSVGObj *owner);
    ~CLensSemiRaised() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CLens::updateSVG;
    double getXMin(QSvgNode *node) override;
    double getXMax(QSvgNode *node) override;
    double getYMin(QSvgNode *node) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;

    void genLensPath() override;
    virtual void posChangedByControl();

    void UpdateRightLeft(bool right);
    int ConvertValue();
    void SetConvertValue(int value);
    double getControlPos();
    void setControlPos(double x);

    bool facesRight() const { return m_bFacesRight; }

private:
    int percent();

    bool m_bPosByCode = false;
    bool m_bFacesRight = true;
    double m_dSavedControlPos = 0;
    int m_nSavedDirection = 0;
};
