#pragma once
// The page on screen: selecting one item or many, moving, turning and scaling them,
// dragging the control handles of apparatus (wire ends snap onto terminals), zoom and
// pan, the pen, text and arrow tools, and the presentation that hides handles.
#include "Commands.h"
#include <QGraphicsView>
#include <QPointer>

class Annotation;
class BoardPage;
class CWBPhysicalObject;
class InkStroke;
class QPlainTextEdit;
class QSvgNode;
class TextNote;

class BoardView : public QGraphicsView
{
    Q_OBJECT
public:
    static constexpr const char *kTypeMime = "application/x-physboard-type";
    // Touch targets are at least this big on any screen.
    static constexpr double kMinHitMillimetres = 8.0;
    // Handles are drawn at least this many pixels across, for a finger.
    static constexpr double kMinHandlePixels = 24.0;
    static constexpr double kMinZoom = 0.1, kMaxZoom = 8.0;

    enum Tool { SelectTool, PenTool, TextTool, ArrowTool };

    explicit BoardView(BoardPage *page, QWidget *parent = nullptr);

    BoardPage *page() const { return m_page; }
    // The one apparatus selected (null when none, or a mark, or many).
    CWBPhysicalObject *selected() const;
    QGraphicsItem *primary() const { return m_primary; }
    // Everything selected, in page order.
    QList<QGraphicsItem *> selection() const;
    void select(CWBPhysicalObject *obj);
    void setSelection(const QList<QGraphicsItem *> &items, QGraphicsItem *primary = nullptr);
    void selectAll();
    // Drops items that left the page.
    void pruneSelection();
    // The handle the arrow keys move: an index into the content's control nodes, or -1.
    int selectedHandle() const { return m_handle; }
    void selectHandle(int index);

    // Zoom of the page on screen; anchored at a viewport point, which stays over the
    // same page point (the centre when none is given).
    double zoom() const { return transform().m11(); }
    void setZoom(double zoom, const QPoint &anchor = QPoint(-1, -1));
    void zoomToFit();

    Tool tool() const { return m_tool; }
    void setTool(Tool tool);
    // Handles hidden except on the apparatus under the pointer or finger; nothing moves.
    void setPresenting(bool on);
    bool presenting() const { return m_presenting; }
    // Colour and size of the marks the tools draw next (kind: Annotation::Kind).
    void setMarkStyle(int kind, const QColor &color, double size);

    // Moves the selection by a page offset as one undo step (wires follow what they hold).
    void moveSelection(const QPointF &offset);
    // Records placements already made as one undo step; the wire ends held by what
    // moved follow, and wires moved away from what they held let go.
    void commitPlacement(const QVector<PlaceItemsCmd::Change> &changes, const QString &text);
    // Redraws the selection marks after a change made elsewhere (undo, panel).
    void refreshOverlay();

    // Side of the smallest touch target in viewport pixels, from the screen's DPI.
    double minHitPixels() const;
    // Where a handle is drawn, and the area that takes a press for it, in viewport pixels.
    QRectF handleDrawnRect(CWBPhysicalObject *obj, int index) const;
    QRectF handleHitRect(CWBPhysicalObject *obj, int index) const;
    QPointF rotateKnob() const;  // viewport pixels, for the selected item
    QPointF scaleKnob() const;

signals:
    void selectionChanged(CWBPhysicalObject *obj);
    // A handle moved (live, or at the end of a drag or nudge).
    void handleMoved(CWBPhysicalObject *obj, bool final);
    void dropRequested(int typeId, const QPointF &scenePos);
    void deleteRequested();
    void zoomChanged(double zoom);
    void presentationLeft();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void tabletEvent(QTabletEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    enum class Mode { None, Move, Rotate, Scale, Handle, Rubber, Pan, Ink, Arrow };
    struct HandleHit {
        CWBPhysicalObject *obj = nullptr;
        int index = -1;
    };
    HandleHit hitHandle(const QPoint &viewPos) const;
    QGraphicsItem *itemAt(const QPoint &viewPos) const;
    bool nearKnob(const QPointF &knob, const QPoint &viewPos) const;
    QPointF documentPoint(CWBPhysicalObject *obj, const QPoint &viewPos) const;
    void dragHandleTo(const QPoint &viewPos, bool final, bool free);
    // The last call of a handle move: the host makes it one undo step, named here, with
    // the wire links it changes.
    void finishHandleMove(QSvgNode *node, const QPointF &delta);
    void finishTransform(const QString &key);
    void emitSelection();
    QPolygonF outlineOf(QGraphicsItem *item) const; // viewport pixels
    QPolygonF selectionOutline() const;
    QRect overlayRect() const;
    void updateCursor(const QPoint &viewPos);
    void setHovered(CWBPhysicalObject *obj);
    void startPan(const QPoint &pos);
    // Pen, text and arrow.
    void beginInk(const QPointF &scenePos, double pressure);
    void addInk(const QPointF &scenePos, double pressure);
    void finishInk();
    void beginText(const QPointF &scenePos, TextNote *editing);
    void finishText(bool commit);
    void addMark(Annotation *mark, const QString &key);
    bool eventFilter(QObject *watched, QEvent *event) override;

    BoardPage *m_page;
    QList<QGraphicsItem *> m_selection;
    QGraphicsItem *m_primary = nullptr;
    int m_handle = -1;
    Mode m_mode = Mode::None;
    Tool m_tool = SelectTool;
    QPointF m_pressScene;
    QPointF m_pressDoc;
    QPointF m_handleStart;
    QVector<PlaceItemsCmd::Change> m_start;
    ItemPlacement m_startPlacement;
    QPointF m_centerScene;
    double m_pressAngle = 0;
    double m_pressDistance = 1;
    bool m_moved = false;
    QRectF m_rubber;             // scene
    QList<QGraphicsItem *> m_rubberBase;
    QPoint m_panFrom;
    bool m_spaceDown = false;
    QRect m_lastOverlay;
    QPointF m_snap;              // scene point a dragged wire end holds to
    bool m_snapping = false;
    CWBPhysicalObject *m_snapTo = nullptr;
    int m_snapTerminal = -1;
    bool m_presenting = false;
    CWBPhysicalObject *m_hovered = nullptr;
    InkStroke *m_ink = nullptr;
    Annotation *m_arrow = nullptr;
    bool m_tabletInk = false;
    QPlainTextEdit *m_editor = nullptr;
    QPointF m_editorScene;
    TextNote *m_editing = nullptr;
    QColor m_markColor;          // invalid: each kind's own
    double m_markSize[4] = {0, 0, 0, 0};
    void styleMark(Annotation *mark) const;
};
