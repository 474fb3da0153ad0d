#pragma once
// What a fixed pulley and the pulley blocks share: one handle, moved vertically, sets
// the rope; the panel shows where it stands as the rope's length in percent, and a drag
// posts that percentage when it changes. Any other handle is placed by the code.
#include "Basic.h"
#include "ShownValues.h"

class QJsonArray;

class PHYSICALOBJECT_SHARED_EXPORT CPulleyRig : public CBasic
{
public:
    explicit CPulleyRig(CSVGObj *owner);
    ~CPulleyRig() override;

    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    /* 71 */ virtual void posChangedByControl();
    /* 72 */ virtual double getControlPos();
    /* 73 */ virtual void setControlPos(double y);

    int percent();

protected:
    // The rope and what hangs on it, from where the handle stands.
    virtual void layout() = 0;
    // layout(), and the shown percentage a drag compares against.
    void refresh();
    // The "idPosValue" item, and the handle place a typed percentage asks for.
    void appendRopeLength(QJsonArray &array);
    void typedRopeLength(const QMap<QString, QString> &values);

private:
    bool m_bPosByCode = false;
    ShownValues::Texts m_shown;
    ShownValues::Texts m_before;
};
