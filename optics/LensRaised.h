#pragma once
// A double-convex lens: two arcs through the top tip, a vertex and the bottom tip,
// their discs intersected. control_1 sets the thickness, control_2 the height.
#include "bases/Lens.h"

class PHYSICALOBJECT_SHARED_EXPORT CLensRaised : public CLens
{
public:
    explicit CLensRaised(CSVGObj *owner);
    ~CLensRaised() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CLens::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void genLensPath() override;
    virtual void posChangedByControl();
    virtual double getControlPos();
    virtual void setControlPos(double x);

private:
    int percent();

    bool m_bPosByCode = false;
    double m_dSavedControlPos = 0;
};
