#pragma once
// A sliding rheostat: a ceramic tube wound with resistance wire, a metal bar above it
// on two end posts, and a slider whose contact runs along the winding. Its handle
// moves the slider over the wound length; the four terminals can be named A to D.
#include "physicalobject/physicalobject_shared_global.h"
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CSlidingRheostat : public CSVGBase
{
public:
    // Property ids of the two panel values, for undo, playback and setInnerProperty.
    enum { PROP_POS = 1101, PROP_NAMES = 1102 };

    explicit CSlidingRheostat(CSVGObj *owner);
    ~CSlidingRheostat() override;

    bool save(QDataStream &out) override;
    bool load(QDataStream &in) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    bool loadSVG(bool bLoad) override;
    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CSVGBase::updateSVG;
    bool getInnerProperty(int id, QDataStream &out) override;
    bool setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    QString getPropName(int id) override;

    // The slider's place along the winding, 0 at the left end, 100 at the right.
    double position();
    bool namesShown() const { return m_bNames; }

private:
    // The whole percentage the panel shows.
    int shownPosition();
    void showNames();

    bool m_bNames = false;
    bool m_bPosByCode = false;
    double m_dSavedX = 0;
    bool m_bSavedNames = false;
};
