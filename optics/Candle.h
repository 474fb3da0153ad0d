#pragma once
// The light source of the optics bench: a candle whose body stretches with the
// handle at its foot (or a panel percentage); flame and wick stay where they are.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CCandle : public CSVGBase
{
public:
    explicit CCandle(CSVGObj *owner);
    ~CCandle() override;

    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    bool loadSVG(bool bLoad) override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CSVGBase::updateSVG;
    QString getPropName(int id) override;

    virtual void posChangedByControl();
    virtual double getControlPos();
    virtual void setControlPos(double y);

private:
    int percent();

    bool m_bPosByCode = false;
    double m_dSavedControlPos = 0;
};
