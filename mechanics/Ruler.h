#pragma once
// A graduated ruler whose one handle sets its length; ticks and numbers follow the
// body at the pitch of the template's first two ticks.
#include "bases/Basic.h"

class PHYSICALOBJECT_SHARED_EXPORT CRuler : public CBasic
{
public:
    explicit CRuler(CSVGObj *owner);
    ~CRuler() override;

    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CBasic::updateSVG;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    void SVGInit(bool bLoad, bool bLoaded) override;
    void UpdateColor(bool b) override;
    void ResetAtrribute() override;
    void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight) override;

    /* 71 */ virtual void posChangedByControl();
    /* 72 */ virtual double getControlPos();
    /* 73 */ virtual void setControlPos(double x);

    // Rebuilds the ticks and labels for the body's current width.
    void CaculateLine();

    int lineCount() const { return m_nLineCount; }

private:
    int percent();

    int m_nLineCount = 2;
    QColor m_savedScaleColor;
    double m_dSavedControlPos = 0;
    bool m_bPosByCode = false;
};
