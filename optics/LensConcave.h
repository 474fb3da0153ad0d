#pragma once
// A double-concave lens: a rectangle with an arc cut from each side. control_1 is the
// top-right corner, control_2 the waist of the right face, control_3 the bottom; the
// handle bounds keep each arc no deeper than a semicircle.
#include "bases/GenCircle.h"

class PHYSICALOBJECT_SHARED_EXPORT CLensConcave : public CGenCircle
{
public:
    explicit CLensConcave(CSVGObj *owner);
    ~CLensConcave() override;

    QString getSVG() override;
    int getSVGType() override;
    void updateOutlineRegion() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CGenCircle::updateSVG;
    double getXMin(QSvgNode *node) override;
    double getXMax(QSvgNode *node) override;
    double getYMin(QSvgNode *node) override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;
    void SVGInit(bool bLoad, bool bLoaded) override;

    virtual void posChangedByControl();
    virtual void genLensPath();
    double getControlPos();
    void setControlPos(double x);

protected:
    // Panel percentage of the waist handle as the panel shows it.
    virtual int percent();
    // Keeps the waist handle halfway between top and bottom after a height drag.
    void centreWaist();

    bool m_bPosByCode = false;
    double m_dSavedControlPos = 0;
};
