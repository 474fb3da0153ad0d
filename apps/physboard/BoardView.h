#pragma once
// The page on screen: selection, moving, turning and scaling apparatus, dragging
// their control handles, and keyboard nudges.
#include "Commands.h"
#include <QGraphicsView>
#include <QPointer>

class BoardPage;
class CWBPhysicalObject;
class QSvgNode;

class BoardView : public QGraphicsView
{
    Q_OBJECT
public:
    static constexpr const char *kTypeMime = "application/x-physboard-type";
    // Touch targets are at least this big on any screen.
    static constexpr double kMinHitMillimetres = 8.0;

    explicit BoardView(BoardPage *page, QWidget *parent = nullptr);

    BoardPage *page() const { return m_page; }
    CWBPhysicalObject *selected() const { return m_selected; }
    void select(CWBPhysicalObject *obj);
    // The handle the arrow keys move: an index into the content's control nodes, or -1.
    int selectedHandle() const { return m_handle; }
    void selectHandle(int index);
    // Zoom of the page on screen, 0.25 to 4.
    double zoom() const { return transform().m11(); }
    void setZoom(double zoom);

    // Side of the smallest touch target in viewport pixels, from the screen's DPI.
    double minHitPixels() const;
    // Where a handle is drawn, and the area that takes a press for it, in viewport pixels.
    QRectF handleDrawnRect(CWBPhysicalObject *obj, int index) const;
    QRectF handleHitRect(CWBPhysicalObject *obj, int index) const;
    QPointF rotateKnob() const;  // viewport pixels, for the selected object
    QPointF scaleKnob() const;

signals:
    void selectionChanged(CWBPhysicalObject *obj);
    // A handle moved (live, or at the end of a drag or nudge).
    void handleMoved(CWBPhysicalObject *obj, bool final);
    void dropRequested(int typeId, const QPointF &scenePos);
    void deleteRequested();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    enum class Mode { None, Move, Rotate, Scale, Handle };
    struct HandleHit {
        CWBPhysicalObject *obj = nullptr;
        int index = -1;
    };
    HandleHit hitHandle(const QPoint &viewPos) const;
    CWBPhysicalObject *objectAt(const QPoint &viewPos) const;
    bool nearKnob(const QPointF &knob, const QPoint &viewPos) const;
    QPointF documentPoint(CWBPhysicalObject *obj, const QPoint &viewPos) const;
    void dragHandleTo(const QPoint &viewPos, bool final);
    // The last call of a handle move: the host makes it one undo step, named here.
    void finishHandleMove(QSvgNode *node, const QPointF &delta);
    void finishTransform(const QString &key);
    QPolygonF selectionOutline() const;  // viewport pixels
    void updateCursor(const QPoint &viewPos);

    BoardPage *m_page;
    CWBPhysicalObject *m_selected = nullptr;
    int m_handle = -1;
    Mode m_mode = Mode::None;
    QPointF m_pressScene;
    QPointF m_pressDoc;
    QPointF m_handleStart;
    ItemPlacement m_startPlacement;
    QPointF m_centerScene;
    double m_pressAngle = 0;
    double m_pressDistance = 1;
};
