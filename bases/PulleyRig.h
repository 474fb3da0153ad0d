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

// A pulley block: the handle is the movable block's hook, which hangs kMinDrop to kMaxDrop
// below the fixed axle; the free end (control_2) is placed by the code; a switch shows
// the number of falls ("n_label").
class PHYSICALOBJECT_SHARED_EXPORT CPulleyBlock : public CPulleyRig
{
public:
    CPulleyBlock(CSVGObj *owner, double hookBelowAxle, int segmentsAttr);

    void UpdateCheckBox(bool b) override;

    // How far the movable pulley's axle hangs below the fixed one's (40 to 240).
    double drop() const;
    // Where the free end is (control_2's centre).
    QPointF freeEnd() const;

    static constexpr double kFixedY = 50, kMinDrop = 40, kMaxDrop = 240;
    // The beam the fixed pulleys hang from, and the free end's length at the lowest drop.
    static constexpr double kBeamY = 10, kFreeRest = 40;

protected:
    // The movable block, drawn at its lowest, moved up to where the hook is.
    void hangMovingBlock(double drop);

private:
    const double m_dHookBelowAxle;
    const int m_nSegmentsAttr;
};
