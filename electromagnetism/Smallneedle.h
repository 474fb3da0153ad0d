#pragma once
// A small magnetic needle on a pivot pin over a round stand, seen from above: the north
// half red and lettered N, the south half white with a blue outline. Its handle on the
// north tip turns it through the full circle.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CSmallneedle : public CBasic
{
public:
    explicit CSmallneedle(CSVGObj *owner);
    ~CSmallneedle() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;

    void SVGInit(bool bLoad, bool bLoaded) override;

    // Where the north tip points: degrees anticlockwise from the right, in (-180, 180].
    double angle() const;

private:
    bool m_bPosByCode = false;
};
