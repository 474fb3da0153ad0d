#pragma once
// Base of the lenses: a small geometry kit that finds the circle through three points
// (the arc of a lens face), plus the shared chores of an outline made from arcs.
#include "Attribute.h"
#include <QPointF>

class QJsonArray;

class PHYSICALOBJECT_SHARED_EXPORT CGenCircle : public CAttribute
{
public:
    explicit CGenCircle(CSVGObj *owner);
    ~CGenCircle() override;

    int getSVGType() override = 0;

    // Slope 65535 stands for a vertical line; its intercept then holds the line's x.
    static constexpr double kVerticalSlope = 65535.0;

    void GetPointSlopeAngleAndCenter(QPointF p1, QPointF p2, double &angle, QPointF &mid);
    void GetVerticalLine(double angle, QPointF mid, double &k, double &b);
    bool GetCrossoverPointBySlope(double k1, double b1, double k2, double b2, QPointF &out);
    double GetLineDistance(QPointF a, QPointF b);
    bool GetCircle(QPointF a, QPointF b, QPointF c, QPointF &center, double &radius);

protected:
    // Direction attribute of the half lenses: index 0 faces right, 1 left.
    enum { kDirectionAttr = 5100 };
    // While a saved object replays its handles, coupled bounds would clamp a handle
    // against a partner that has not moved yet; the replay gets this much room instead.
    static constexpr double kLoadReach = 1000.0;

    QSvgNode *docNode(const QString &id) const;
    QPointF handleCentre(int index) const;
    // The arc through a, b, c written into a construction circle; a failed or
    // degenerate fit writes only r = 0, which makes its disc empty.
    void placeCircle(QSvgNode *circle, QPointF a, QPointF b, QPointF c);
    // The disc of a construction circle as far as it matters inside `area`.
    static QPainterPath discPath(const QSvgNode *circle, const QRectF &area);
    static QPainterPath rectPath(const QSvgNode *rect);
    // Writes the outline as the "lens" path's data, so every SVG reader draws it. The
    // set operations return polygons; the runs of them that lie on one of `circles`
    // (construction circle nodes) go back to true arcs first.
    void setLensPath(const QPainterPath &outline, const QVector<const QSvgNode *> &circles);
    static QPainterPath restoreArcs(const QPainterPath &flat, const QVector<const QSvgNode *> &circles);
    static QString pathData(const QPainterPath &path);
    // Hit-test region: the lens shape and the handles.
    void lensOutlineRegion();
    void repaint();
    QString colourPropName(int id);
    // The document's view box, or its drawn bounds while it has none.
    QRectF viewBoxOrBounds() const;
    // Fits the drawing horizontally to the first `count` handles; its top moves by dy
    // and its height grows by dh.
    void spanHandles(int count, double dy, double dh, bool bFinal);
    // The panel's thickness input "idPosValue" showing p.
    void appendThicknessInput(QJsonArray &array, int p);

    void resetDirection();
    static QByteArray directionComboData();
    void appendDirectionSetting(QJsonArray &array);
    void applyDirectionSetting(QMap<QString, QString> &values, bool bRecord, bool bUndo);
    int directionValue() const;
    // A direction index as the faces-right flag (0 right, 1 left); others leave it.
    static void applyFacing(int value, bool &facesRight);
};
