#pragma once
// The host's content class: every apparatus derives from it. The virtual operations
// are declared in the host's table order; do not reorder them.
#include "hostglobal.h"
#include "svgpropitem.h"
#include "svgtinydocument.h"
#include <QBrush>
#include <QColor>
#include <QDataStream>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QPainterPath>
#include <QSizeF>
#include <QVariant>
#include <memory>
#include <vector>

class CSVGObj;
class CSVGBaseUndoCmd;

// What a drawing looks like at one moment: every node's attributes, text and
// visibility in document order, with the view box and size. Undo puts it back in
// place, so node pointers the apparatus holds stay valid.
struct SvgDocumentState {
    struct Node {
        QString tag;
        QVector<QSvgNode::Attr> attrs;
        QString text;
        bool visible = true;
    };
    QVector<Node> nodes;
    QRectF viewBox;
    QSizeF size;
};
class QPainter;
class QGraphicsSceneMouseEvent;
class QKeyEvent;

// Reads a colour the way QDataStream writes one, but refuses a colour kind
// Qt does not know (Qt would keep it as is, and later use it as an enum): the stream is
// then marked corrupt and the colour left invalid. Use it for every colour read from a
// page file or another untrusted stream.
HOST_EXPORT QDataStream &readColor(QDataStream &in, QColor &color);

class HOST_EXPORT CSVGBase
{
public:
    // Host-level property ids.
    enum { PROP_COLOR = 5002, PROP_LAMP_COLOR = 5005, ATTR_CAPTURE = 2804, ATTR_RESTORE = 2805 };

    explicit CSVGBase(CSVGObj *owner);

    /* 0-1 */ virtual ~CSVGBase();
    /* 2 */ virtual bool save(QDataStream &out);
    /* 3 */ virtual bool load(QDataStream &in);
    /* 4 */ virtual void saveJson(QJsonObject &json);
    /* 5 */ virtual void loadJson(QJsonObject &json);
    /* 6 */ virtual void SavePropertyForPlayback(QDataStream &out);
    /* 7 */ virtual void LoadPropertyForPlayback(QDataStream &in);
    /* 8 */ virtual bool DoPlaybackActionEx(int actionId, QDataStream &in);
    /* 9 */ virtual void getAllAttributes(QMap<QString, QVariant> &attrs);
    /* 10 */ virtual void setAllAttributes(const QMap<QString, QVariant> &attrs, bool bRecord);
    /* 11 */ virtual bool GetAttribute(int id, QDataStream &out);
    /* 12 */ virtual bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo);
    /* 13 */ virtual bool GetSpecialProperty(int id, QDataStream &out);
    /* 14 */ virtual bool SetSpecialProperty(int id, QDataStream &in, bool bRecord);
    /* 15 */ virtual void PopupObjectMenu(void *menu);
    /* 16 */ virtual void paint(QPainter *painter);
    /* 17 */ virtual void paintEx(QPainter *painter, float scale);
    /* 18 */ virtual void mousePressEvent(QGraphicsSceneMouseEvent *event);
    /* 19 */ virtual void mouseMoveEvent(QGraphicsSceneMouseEvent *event);
    /* 20 */ virtual void mouseReleaseEvent(QGraphicsSceneMouseEvent *event);
    /* 21 */ virtual void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event);
    /* 22 */ virtual void keyPressEvent(QKeyEvent *event);
    /* 23 */ virtual bool loadSVG(bool bLoad);
    /* 24 */ virtual QString getSVG();
    /* 25 */ virtual int getSVGType();
    /* 26 */ virtual void updateAllControlPoints(bool, bool);
    /* 27 */ virtual QSizeF getDefaultSVGSize();
    /* 28 */ virtual void updateOutlineRegion();
    /* 29 */ virtual void setSize(QSizeF oldSize, QSizeF newSize);
    /* 30 */ virtual QSizeF getMinimizeSize();
    /* 31 */ virtual int getMaxPenWidth();
    /* 32 */ virtual void notifyObjectCreated();
    /* 33 */ virtual bool CheckHitTestHandlers(const QPointF &localPoint);
    /* 34 */ virtual void setFillBrush(const QBrush &brush, bool bRecord, bool bUndo);
    /* 35 */ virtual void GetSettingArray(QJsonArray &array);
    /* 36 */ virtual bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo);
    /* 37 */ virtual void GetSettingJson(QString &json);
    /* 38 */ virtual bool SetSettingJson(const QString &json, bool bRecord, bool bUndo);
    /* 39 */ virtual void setExternalFilled(bool on);
    /* 40 */ virtual bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal);
    /* 41 */ virtual bool updateSVG(bool bFinal);
    /* 42 */ virtual double getXMin(QSvgNode *node);
    /* 43 */ virtual double getXMax(QSvgNode *node);
    /* 44 */ virtual double getYMin(QSvgNode *node);
    /* 45 */ virtual double getYMax(QSvgNode *node);
    /* 46 */ virtual QBrush getFillBrush();
    /* 47 */ virtual QColor getPenColor();
    /* 48 */ virtual void setPenColor(QColor color, bool bRecord);
    /* 49 */ virtual Qt::PenStyle getPenStyle();
    /* 50 */ virtual void setPenStyle(Qt::PenStyle style, bool bRecord);
    /* 51 */ virtual int getPenWidth();
    /* 52 */ virtual void setPenWidth(int width, bool bRecord);
    /* 53 */ virtual bool getInnerProperty(int id, QDataStream &out);
    /* 54 */ virtual bool setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo);
    /* 55 */ virtual void initPropItems();
    /* 56 */ virtual void initSpecialPropItems();
    /* 57 */ virtual QString getPropName(int id);
    /* 58 */ virtual void initGlobalPropValues();
    /* 59 */ virtual void updateAfterPenWidthChanged(int width);
    /* 60 */ virtual bool CanMoveControlPoint(QSvgNode *node, QPointF offset);
    /* 61 */ virtual int actionIdToPropId(int actionId);
    /* 62 */ virtual void getOutlinePath(QPainterPath *path);

    // --- services for apparatus code ---------------------------------------
    void addNode(QSvgNode *node, const QString &id);
    void removeNode(QSvgNode *node);
    void resizeSVG(double dw, double dh, bool bFinal);
    void adjustSvgPosition(QPointF offset, double dw, double dh, bool bFinal);
    // Path data with its start point moved by (dx, dy).
    QString changePathBeginPoint(const QString &pathData, double dx, double dy);
    // Path data scaled vertically about its top so that its height becomes h.
    QString changePathHeight(const QString &pathData, double h, int);
    QString numbersToString(const QVector<double> &numbers);
    QVector<double> parseNumbersList(const QChar *&str);
    void addAllItemsRegion(QPainterPath *path);
    void addAllControlPointsRegion(QPainterPath *path);
    void addUndoRedo(CSVGBaseUndoCmd *cmd);
    void RecordInt(int value, int propId);
    void RecordBool(bool value, int propId);
    void RecordColor(QColor value, int propId);
    void RecordData(int kind, const QByteArray &data, int propId);

    // --- host side ---------------------------------------------------------
    CSVGObj *owner() const { return m_pOwner; }
    QSvgTinyDocument *document() const { return m_pDocument; }
    quint64 serial() const { return m_serial; }
    const QList<QSvgNode *> &controlNodes() const { return m_controlNodes; }
    const std::vector<CSVGPropItem *> &propItems() const { return m_propItems; }
    const CSVGPropItem *propItemByAttribute(int attributeId) const;
    const CSVGPropItem *propItemByPropId(int propId) const;
    QSvgNode *hitHandle() const { return m_pHitHandle; }
    // The host's drag: moves the handle within its bounds, then calls updateSVG.
    // Returns the displacement actually applied. A final call closes one undo step.
    QPointF moveControlPoint(QSvgNode *handle, QPointF delta, bool bFinal, bool bUndo = true,
                             bool *handled = nullptr);
    // Maps a point in the owner item's coordinates to document units.
    QPointF itemToDocument(const QPointF &p) const;
    bool isLoading() const { return m_loading; }
    std::shared_ptr<const SvgDocumentState> captureDocumentState() const;
    // Writes a captured state back when the drawing still has the same nodes; false
    // (and nothing changed) when the drawing has since grown or lost nodes.
    bool restoreDocumentState(const SvgDocumentState &state);

protected:
    CSVGObj *m_pOwner;
    QSvgTinyDocument *m_pDocument = nullptr;
    QList<QSvgNode *> m_controlNodes;
    std::vector<CSVGPropItem *> m_propItems;
    bool m_bHostOption = false;
    bool m_bHostOption2 = false;   // second host flag (wire sets it, lenses clear it)
    QPainterPath *m_pOutlinePath;

private:
    void clearPropItems();
    void applyHostColors();
    bool setHostColor(int id, QColor &slot, QDataStream &in, bool bRecord, bool bUndo);

    quint64 m_serial;
    QSvgNode *m_pHitHandle = nullptr;
    QColor m_hostColor;             // 5002: the drawing's colour
    QColor m_lampColor;             // 5005: the light colour (a lamp's bulb)
    QColor m_capturedHostColor;
    QColor m_penColor = Qt::black;
    Qt::PenStyle m_penStyle = Qt::SolidLine;
    int m_penWidth = 1;
    QBrush m_fillBrush;
    bool m_bExternalFilled = false;
    bool m_loading = false;
    // Drag in progress: handle index and where it started.
    int m_dragHandle = -1;
    QPointF m_dragStart;
    std::shared_ptr<const SvgDocumentState> m_dragBefore;
};
