#pragma once
// A sponge, or a tray of sand, pressed in from above: the dent's depth shows the
// pressure. One handle sets the depth at the dent's bottom, the other its width at its
// right edge; the pores or grains beneath are squeezed with it.
#include "bases/Basic.h"
#include "bases/PanelCache.h"

class PHYSICALOBJECT_SHARED_EXPORT CIndentation : public CBasic
{
public:
    explicit CIndentation(CSVGObj *owner);
    ~CIndentation() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    // Slot 0 is the depth (y of control_1), slot 1 the width (x of control_2).
    /* 71 */ virtual void posChangedByControl(int index);
    /* 72 */ virtual double getControlPos(int index);
    /* 73 */ virtual void setControlPos(int index, double pos);

    double depth() const { return m_dDepth; }
    double width() const { return m_dWidth; }
    // How far the top surface is pressed down at x.
    double sinkAt(double x) const;

private:
    void layout();
    void paintTexture();

    double m_dDepth = 20;
    double m_dWidth = 100;
    bool m_bPosByCode = false;
    PanelCache m_panel;
};
