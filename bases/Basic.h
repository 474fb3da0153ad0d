#pragma once
// Base of the apparatus whose extent follows a handle: keeps the item fitted to
// the drawing after every edit.
#include "Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CBasic : public CAttribute
{
public:
    explicit CBasic(CSVGObj *owner);
    ~CBasic() override;

    bool loadSVG(bool bLoad) override;
    QString getSVG() override;
    int getSVGType() override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CSVGBase::updateSVG;

    /* 69 */ virtual void CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight);
    /* 70 */ virtual void Resize(bool bFinal);

    static double GetLineDistance(double x1, double y1, double x2, double y2);

protected:
    // Grows [topLeft, bottomRight] to enclose r (the corner rule of the overrides).
    static void enclose(const QRectF &r, QPointF &topLeft, QPointF &bottomRight);
    static void enclose(const QPointF &p, QPointF &topLeft, QPointF &bottomRight);
    void repaint();
};
