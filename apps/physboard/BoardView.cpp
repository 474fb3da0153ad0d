#include "BoardView.h"
#include "Annotations.h"
#include "Page.h"
#include "Strings.h"
#include "Wiring.h"
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSet>
#include <QTabletEvent>
#include <QWheelEvent>
#include <QtMath>
#include <cmath>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

constexpr double kKnobOffset = 28;   // px from the outline to the rotate knob
constexpr double kMinScale = 0.1, kMaxScale = 10;
const QColor kSelectBlue(0x33, 0x66, 0xcc);
const QColor kSnapOrange(0xff, 0x8c, 0x00);

QString T(const char *key) { return Strings::text(QLatin1String(key)); }

double angleOf(const QPointF &v) { return qRadiansToDegrees(std::atan2(v.y(), v.x())); }

QString nameOf(QGraphicsItem *item) { return BoardPage::nameOf(item); }

// The rectangle an item is picked and outlined by, in its own coordinates.
QRectF frameOf(QGraphicsItem *item)
{
    const CWBPhysicalObject *o = BoardPage::asObject(item);
    return o ? o->itemRect() : item->boundingRect();
}

QUndoStack *stack() { return GetFramework()->undoStack(); }

} // namespace

BoardView::BoardView(BoardPage *page, QWidget *parent) : QGraphicsView(page, parent), m_page(page)
{
    setRenderHint(QPainter::Antialiasing);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // Each item invalidates what it covers; the view repaints only that.
    setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
    setSceneRect(BoardPage::pageRect());
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTransformationAnchor(QGraphicsView::NoAnchor);
    setResizeAnchor(QGraphicsView::NoAnchor);
    viewport()->setAttribute(Qt::WA_TabletTracking);
}

CWBPhysicalObject *BoardView::selected() const
{
    return m_selection.size() == 1 ? BoardPage::asObject(m_primary) : nullptr;
}

QList<QGraphicsItem *> BoardView::selection() const
{
    if (m_selection.size() <= 1)
        return m_selection;
    const QSet<QGraphicsItem *> in(m_selection.begin(), m_selection.end());
    QList<QGraphicsItem *> out;
    for (QGraphicsItem *i : m_page->pageItems())
        if (in.contains(i))
            out.append(i);
    return out;
}

void BoardView::emitSelection() { emit selectionChanged(selected()); }

void BoardView::select(CWBPhysicalObject *obj)
{
    setSelection(obj ? QList<QGraphicsItem *>{obj} : QList<QGraphicsItem *>(), obj);
}

void BoardView::setSelection(const QList<QGraphicsItem *> &items, QGraphicsItem *primary)
{
    QList<QGraphicsItem *> kept;
    for (QGraphicsItem *i : items)
        if (i && i->scene() == m_page && BoardPage::isPageItem(i) && !kept.contains(i))
            kept.append(i);
    if (!kept.contains(primary))
        primary = kept.isEmpty() ? nullptr : kept.last();
    if (kept == m_selection && primary == m_primary)
        return;
    m_selection = kept;
    m_primary = primary;
    m_handle = -1;
    m_mode = Mode::None;
    refreshOverlay();
    emitSelection();
}

void BoardView::selectAll() { setSelection(m_page->pageItems(), m_primary); }

void BoardView::pruneSelection()
{
    QList<QGraphicsItem *> kept;
    for (QGraphicsItem *i : m_selection)
        if (i->scene() == m_page)
            kept.append(i);
    if (kept.size() != m_selection.size())
        setSelection(kept, m_primary);
    if (m_hovered && m_hovered->scene() != m_page)
        m_hovered = nullptr;
}

void BoardView::selectHandle(int index)
{
    CWBPhysicalObject *obj = selected();
    const int count = obj && obj->content() ? obj->content()->controlNodes().size() : 0;
    m_handle = index >= 0 && index < count ? index : -1;
    refreshOverlay();
}

double BoardView::minHitPixels() const { return kMinHitMillimetres / 25.4 * logicalDpiX(); }

QRectF BoardView::handleDrawnRect(CWBPhysicalObject *obj, int index) const
{
    if (!obj || !obj->content() || index < 0 || index >= obj->content()->controlNodes().size())
        return QRectF();
    const QRectF item = obj->content()->documentToItem(obj->content()->controlNodes().at(index)->documentBounds());
    QRectF drawn = viewportTransform().map(obj->mapToScene(item)).boundingRect();
    // The painter draws small handles enlarged about their centre.
    const double least = CSVGObj::minHandlePixels();
    if (drawn.width() < least || drawn.height() < least) {
        const QPointF c = drawn.center();
        drawn.setSize(QSizeF(qMax(drawn.width(), least), qMax(drawn.height(), least)));
        drawn.moveCenter(c);
    }
    return drawn;
}

QRectF BoardView::handleHitRect(CWBPhysicalObject *obj, int index) const
{
    const QRectF drawn = handleDrawnRect(obj, index);
    if (drawn.isNull())
        return drawn;
    const double side = minHitPixels();
    QRectF touch(0, 0, side, side);
    touch.moveCenter(drawn.center());
    return drawn.united(touch);
}

QPolygonF BoardView::outlineOf(QGraphicsItem *item) const
{
    if (!item || item->scene() != m_page)
        return QPolygonF();
    return viewportTransform().map(item->mapToScene(frameOf(item)));
}

QPolygonF BoardView::selectionOutline() const
{
    return m_selection.size() == 1 ? outlineOf(m_primary) : QPolygonF();
}

QPointF BoardView::rotateKnob() const
{
    const QPolygonF p = selectionOutline();
    if (p.size() < 4)
        return QPointF();
    const QPointF centre = (p[0] + p[2]) / 2;
    const QPointF top = (p[0] + p[1]) / 2;
    QPointF up = top - centre;
    const double len = std::hypot(up.x(), up.y());
    up = len > 1e-9 ? up / len : QPointF(0, -1);
    return top + up * kKnobOffset;
}

QPointF BoardView::scaleKnob() const
{
    const QPolygonF p = selectionOutline();
    return p.size() < 4 ? QPointF() : p[2];
}

bool BoardView::nearKnob(const QPointF &knob, const QPoint &viewPos) const
{
    if (m_presenting || m_selection.size() != 1 || !m_primary || m_primary->scene() != m_page)
        return false;
    const QPointF d = QPointF(viewPos) - knob;
    return std::hypot(d.x(), d.y()) <= minHitPixels() / 2;
}

BoardView::HandleHit BoardView::hitHandle(const QPoint &viewPos) const
{
    const QPointF scenePos = mapToScene(viewPos);
    QList<CWBPhysicalObject *> objs = m_page->objects();
    // The selected apparatus's handles come first, then top to bottom.
    if (CWBPhysicalObject *sel = BoardPage::asObject(m_primary))
        if (objs.removeOne(sel))
            objs.append(sel);
    for (int k = objs.size() - 1; k >= 0; --k) {
        CWBPhysicalObject *obj = objs[k];
        CSVGBase *c = obj->content();
        if (!c)
            continue;
        // The library's own hit test first, as a host asks it.
        CObjAction::ACT_Def action = CObjAction::ACT_NONE;
        if (obj->CheckHitTestHandlers(scenePos, action) && c->hitHandle()) {
            const int i = c->controlNodes().indexOf(c->hitHandle());
            if (i >= 0)
                return HandleHit{obj, i};
        }
        // Then the touch area: the nearest handle whose enlarged area takes the point.
        int best = -1;
        double bestDist = 0;
        for (int i = 0; i < c->controlNodes().size(); ++i) {
            if (!c->controlNodes().at(i)->isVisible())
                continue;
            const QRectF hit = handleHitRect(obj, i);
            if (!hit.contains(viewPos))
                continue;
            const QPointF d = hit.center() - QPointF(viewPos);
            const double dist = std::hypot(d.x(), d.y());
            if (best < 0 || dist < bestDist) {
                best = i;
                bestDist = dist;
            }
        }
        if (best >= 0)
            return HandleHit{obj, best};
    }
    return HandleHit();
}

QGraphicsItem *BoardView::itemAt(const QPoint &viewPos) const
{
    const QPointF scenePos = mapToScene(viewPos);
    const QList<QGraphicsItem *> all = m_page->pageItems();
    for (int k = all.size() - 1; k >= 0; --k) {
        QGraphicsItem *i = all[k];
        if (CWBPhysicalObject *o = BoardPage::asObject(i)) {
            CObjAction::ACT_Def action = CObjAction::ACT_NONE;
            if (o->CheckHitTestHandlers(scenePos, action))
                return o;
        } else if (i->isVisible() && i->shape().contains(i->mapFromScene(scenePos))) {
            return i;
        }
    }
    return nullptr;
}

QPointF BoardView::documentPoint(CWBPhysicalObject *obj, const QPoint &viewPos) const
{
    return obj->content()->itemToDocument(obj->mapFromScene(mapToScene(viewPos)));
}

void BoardView::setTool(Tool tool)
{
    if (m_editor)
        finishText(true);
    m_tool = m_presenting ? SelectTool : tool;
    viewport()->setCursor(m_tool == SelectTool ? Qt::ArrowCursor : m_tool == TextTool ? Qt::IBeamCursor : Qt::CrossCursor);
}

void BoardView::setPresenting(bool on)
{
    if (on == m_presenting)
        return;
    if (m_editor)
        finishText(true);
    m_presenting = on;
    m_tool = SelectTool;
    // A presentation shows the sheet in the middle of the screen.
    setAlignment(on ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignTop);
    m_hovered = nullptr;
    for (CWBPhysicalObject *o : m_page->objects())
        o->setHandlesVisible(!on);
    m_handle = -1;
    refreshOverlay();
}

void BoardView::setHovered(CWBPhysicalObject *obj)
{
    if (!m_presenting || obj == m_hovered)
        return;
    if (m_hovered && m_hovered->scene() == m_page)
        m_hovered->setHandlesVisible(false);
    m_hovered = obj;
    if (obj)
        obj->setHandlesVisible(true);
}

void BoardView::leaveEvent(QEvent *event)
{
    if (m_mode == Mode::None)
        setHovered(nullptr);
    QGraphicsView::leaveEvent(event);
}

void BoardView::startPan(const QPoint &pos)
{
    m_mode = Mode::Pan;
    m_panFrom = pos;
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void BoardView::mousePressEvent(QMouseEvent *event)
{
    setFocus();
    if (m_editor)
        finishText(true);
    const QPoint pos = event->pos();
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_spaceDown)) {
        startPan(pos);
        return;
    }
    if (event->button() != Qt::LeftButton) {
        QGraphicsView::mousePressEvent(event);
        return;
    }
    m_pressScene = mapToScene(pos);
    m_mode = Mode::None;
    m_moved = false;
    if (m_tool == PenTool) {
        if (!m_tabletInk)
            beginInk(m_pressScene, 0.5);
        return;
    }
    if (m_tool == ArrowTool) {
        auto *arrow = static_cast<ArrowMark *>(Annotation::create(Annotation::Arrow));
        styleMark(arrow);
        arrow->setPos(m_pressScene);
        arrow->setLine(QPointF(0, 0), QPointF(0, 0));
        arrow->setZValue(m_page->topZ() + 1);
        m_page->addItem(arrow);
        m_arrow = arrow;
        m_mode = Mode::Arrow;
        return;
    }
    if (m_tool == TextTool) {
        QGraphicsItem *hit = itemAt(pos);
        if (hit && hit->type() == Annotation::Type && static_cast<Annotation *>(hit)->kind() == Annotation::Text)
            beginText(hit->pos(), static_cast<TextNote *>(hit));
        else
            beginText(m_pressScene, nullptr);
        return;
    }
    const HandleHit h = hitHandle(pos);
    double handleDistance = 1e300;
    if (h.obj) {
        const QPointF d = handleDrawnRect(h.obj, h.index).center() - QPointF(pos);
        handleDistance = std::hypot(d.x(), d.y());
    }
    // A knob wins over a handle only when the press is nearer to it.
    auto knobWins = [&](const QPointF &knob) {
        if (!nearKnob(knob, pos))
            return false;
        const QPointF d = knob - QPointF(pos);
        return std::hypot(d.x(), d.y()) < handleDistance;
    };
    if (m_selection.size() == 1 && m_primary) {
        m_startPlacement = ItemPlacement::of(m_primary);
        m_start = {PlaceItemsCmd::Change{m_primary, m_startPlacement, m_startPlacement}};
        m_centerScene = m_primary->mapToScene(frameOf(m_primary).center());
        if (knobWins(rotateKnob())) {
            m_mode = Mode::Rotate;
            m_pressAngle = angleOf(m_pressScene - m_centerScene);
            return;
        }
        if (knobWins(scaleKnob())) {
            const QPointF d = m_pressScene - m_primary->pos();
            m_pressDistance = std::max(1e-6, std::hypot(d.x(), d.y()));
            m_mode = Mode::Scale;
            return;
        }
    }
    if (h.obj) {
        setHovered(h.obj);
        select(h.obj);
        selectHandle(h.index);
        m_mode = Mode::Handle;
        m_pressDoc = documentPoint(h.obj, pos);
        m_handleStart = h.obj->content()->controlNodes().at(h.index)->rect().topLeft();
        return;
    }
    QGraphicsItem *item = itemAt(pos);
    if (m_presenting) {
        // Nothing moves in a presentation; a touch shows the handles.
        setHovered(BoardPage::asObject(item));
        return;
    }
    const bool toggle = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    if (!item) {
        m_rubberBase = toggle ? m_selection : QList<QGraphicsItem *>();
        if (!toggle)
            setSelection({});
        m_rubber = QRectF(m_pressScene, m_pressScene);
        m_mode = Mode::Rubber;
        return;
    }
    if (toggle) {
        QList<QGraphicsItem *> s = m_selection;
        if (!s.removeOne(item))
            s.append(item);
        setSelection(s, item);
        return;
    }
    if (m_selection.contains(item)) {
        m_primary = item;
        m_handle = -1;
        emitSelection();
    } else {
        setSelection({item}, item);
    }
    m_start.clear();
    for (QGraphicsItem *i : m_selection)
        m_start.append(PlaceItemsCmd::Change{i, ItemPlacement::of(i), ItemPlacement::of(i)});
    m_mode = Mode::Move;
}

void BoardView::dragHandleTo(const QPoint &viewPos, bool final, bool free)
{
    CWBPhysicalObject *obj = selected();
    CSVGBase *c = obj ? obj->content() : nullptr;
    if (!c || m_handle < 0 || m_handle >= c->controlNodes().size())
        return;
    QSvgNode *node = c->controlNodes().at(m_handle);
    // Aim at where the pointer has taken the handle; the host clamps to the bounds.
    QPointF target = m_handleStart + (documentPoint(obj, viewPos) - m_pressDoc);
    const int end = Wiring::endOfHandle(obj, m_handle);
    m_snapping = false;
    if (end >= 0 && !free) {
        const QPointF half = node->rect().center() - node->rect().topLeft();
        const QPointF centreItem = c->documentToItem(target + half);
        const Wiring::Target t = Wiring::nearest(m_page, this, obj->mapToScene(centreItem), obj);
        if (t.valid()) {
            target = c->itemToDocument(obj->mapFromScene(t.scene)) - half;
            m_snapping = true;
            m_snap = t.scene;
            m_snapTo = t.to;
            m_snapTerminal = t.terminal;
        }
    }
    const QPointF delta = target - node->rect().topLeft();
    if (final) {
        finishHandleMove(node, delta);
        m_snapping = false;
    } else {
        c->moveControlPoint(node, delta, false);
        Wiring::carry(m_page, {obj}, false, end);
    }
    refreshOverlay();
    emit handleMoved(obj, final);
}

void BoardView::finishHandleMove(QSvgNode *node, const QPointF &delta)
{
    CWBPhysicalObject *obj = selected();
    const int end = Wiring::endOfHandle(obj, m_handle);
    const QString text = T("BOARD_CMD_HANDLE").arg(nameOf(obj));
    const QVector<WireLink> before = m_page->links();
    QVector<WireLink> after;
    bool holds = false; // other wires hold this end
    for (const WireLink &l : before) {
        if (end >= 0 && l.wire == obj && l.end == end)
            continue;
        holds = holds || (end >= 0 && l.to == obj && l.terminal == end);
        after.append(l);
    }
    if (end >= 0 && m_snapping && m_snapTo && m_snapTo->scene() == m_page)
        after.append(WireLink{obj, end, m_snapTo, m_snapTerminal});
    const bool relink = after != before;
    auto top = []() { return stack()->index() > 0 ? stack()->command(stack()->index() - 1) : nullptr; };
    const QUndoCommand *was = top();
    if (relink || holds)
        stack()->beginMacro(text);
    obj->content()->moveControlPoint(node, delta, true);
    if (holds)
        Wiring::carry(m_page, {obj}, true, end);
    if (relink) {
        m_page->setLinks(after);
        GetFramework()->pushUndo(new LinkCmd(m_page, before, m_page->links(), text));
    }
    if (relink || holds)
        stack()->endMacro();
    // A drag that changed nothing left no step; one that did left exactly one.
    else if (top() && top() != was)
        const_cast<QUndoCommand *>(top())->setText(text);
}

void BoardView::setZoom(double zoom, const QPoint &anchor)
{
    zoom = qBound(kMinZoom, zoom, kMaxZoom);
    if (zoom == this->zoom())
        return;
    const QPoint at = anchor.x() < 0 ? viewport()->rect().center() : anchor;
    const QPointF scenePoint = mapToScene(at);
    setTransform(QTransform::fromScale(zoom, zoom));
    // Keep the page point under the anchor where it was.
    const QPointF now = viewportTransform().map(scenePoint);
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + int(std::lround(now.x() - at.x())));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + int(std::lround(now.y() - at.y())));
    // The reach of handles drawn at a fixed screen size changes with the zoom.
    for (CWBPhysicalObject *o : m_page->objects())
        o->refreshGeometry();
    refreshOverlay();
    emit zoomChanged(zoom);
}

void BoardView::zoomToFit()
{
    QRectF r = BoardPage::pageRect().united(m_page->contentBounds());
    r.adjust(-20, -20, 20, 20);
    const QSize vp = viewport()->size();
    if (vp.isEmpty() || r.isEmpty())
        return;
    setZoom(qMin(vp.width() / r.width(), vp.height() / r.height()));
    centerOn(r.center());
    refreshOverlay();
}

void BoardView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    setZoom(zoom() * std::pow(1.15, event->angleDelta().y() / 120.0), event->position().toPoint());
    event->accept();
}

void BoardView::updateCursor(const QPoint &pos)
{
    if (m_tool != SelectTool)
        return;
    if (m_spaceDown) {
        viewport()->setCursor(Qt::OpenHandCursor);
        return;
    }
    const HandleHit h = hitHandle(pos);
    QGraphicsItem *item = h.obj ? nullptr : itemAt(pos);
    if (m_presenting)
        setHovered(h.obj ? h.obj : BoardPage::asObject(item));
    Qt::CursorShape shape = Qt::ArrowCursor;
    if (nearKnob(rotateKnob(), pos) || nearKnob(scaleKnob(), pos))
        shape = Qt::CrossCursor;
    else if (h.obj)
        shape = Qt::PointingHandCursor;
    else if (item && !m_presenting)
        shape = Qt::SizeAllCursor;
    viewport()->setCursor(shape);
}

void BoardView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF scenePos = mapToScene(event->pos());
    switch (m_mode) {
    case Mode::None:
        if (!(event->buttons() & Qt::LeftButton))
            updateCursor(event->pos());
        QGraphicsView::mouseMoveEvent(event);
        return;
    case Mode::Pan: {
        const QPoint d = event->pos() - m_panFrom;
        m_panFrom = event->pos();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - d.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - d.y());
        return;
    }
    case Mode::Ink:
        if (!m_tabletInk)
            addInk(scenePos, 0.5);
        return;
    case Mode::Arrow:
        if (m_arrow)
            static_cast<ArrowMark *>(m_arrow)->setLine(QPointF(0, 0), scenePos - m_arrow->pos());
        return;
    case Mode::Handle:
        dragHandleTo(event->pos(), false, event->modifiers() & Qt::AltModifier);
        return;
    case Mode::Rubber: {
        m_rubber = QRectF(m_pressScene, scenePos).normalized();
        QList<QGraphicsItem *> s = m_rubberBase;
        for (QGraphicsItem *i : m_page->pageItems())
            if (!s.contains(i) && i->mapRectToScene(frameOf(i)).intersects(m_rubber))
                s.append(i);
        m_selection = s;
        m_primary = s.isEmpty() ? nullptr : s.last();
        refreshOverlay();
        return;
    }
    case Mode::Move: {
        const QPointF offset = scenePos - m_pressScene;
        QSet<QGraphicsItem *> moved;
        for (const PlaceItemsCmd::Change &c : m_start) {
            c.item->setPos(c.from.pos + offset);
            moved.insert(c.item);
        }
        Wiring::carry(m_page, moved, false);
        m_moved = true;
        break;
    }
    case Mode::Rotate: {
        double a = m_startPlacement.rotation + angleOf(scenePos - m_centerScene) - m_pressAngle;
        if (event->modifiers() & Qt::ShiftModifier)
            a = std::round(a / 15) * 15;
        a = std::fmod(a, 360.0);
        // Turn about the centre: the centre stays where it was.
        QTransform t;
        t.rotate(a);
        t.scale(m_startPlacement.scale, m_startPlacement.scale);
        m_primary->setRotation(a);
        m_primary->setPos(m_centerScene - t.map(frameOf(m_primary).center()));
        Wiring::carry(m_page, {m_primary}, false);
        break;
    }
    case Mode::Scale: {
        const QPointF d = scenePos - m_startPlacement.pos;
        const double k = std::hypot(d.x(), d.y()) / m_pressDistance;
        m_primary->setScale(qBound(kMinScale, m_startPlacement.scale * k, kMaxScale));
        Wiring::carry(m_page, {m_primary}, false);
        break;
    }
    }
    refreshOverlay();
}

void BoardView::finishTransform(const QString &key)
{
    QVector<PlaceItemsCmd::Change> changes;
    for (PlaceItemsCmd::Change c : m_start) {
        if (c.item->scene() != m_page)
            continue;
        c.to = ItemPlacement::of(c.item);
        if (c.to != c.from)
            changes.append(c);
    }
    m_start.clear();
    if (changes.isEmpty())
        return;
    const QString text = changes.size() == 1 ? Strings::text(key).arg(nameOf(changes.first().item))
                                             : T("BOARD_CMD_MANY").arg(Strings::text(key).arg(QString()).trimmed())
                                                   .arg(changes.size());
    commitPlacement(changes, text);
}

void BoardView::commitPlacement(const QVector<PlaceItemsCmd::Change> &changes, const QString &text)
{
    QSet<QGraphicsItem *> moved;
    for (const PlaceItemsCmd::Change &c : changes)
        moved.insert(c.item);
    // Wires that moved without what they held let go of it; the rest follow.
    const QVector<WireLink> before = m_page->links();
    QVector<WireLink> after;
    bool carries = false;
    for (const WireLink &l : before) {
        if (moved.contains(l.wire) && !moved.contains(l.to))
            continue;
        carries = carries || (moved.contains(l.to) && !moved.contains(l.wire));
        after.append(l);
    }
    const bool relink = after != before;
    if (relink || carries)
        stack()->beginMacro(text);
    GetFramework()->pushUndo(new PlaceItemsCmd(changes, text));
    if (carries)
        Wiring::carry(m_page, moved, true);
    if (relink) {
        m_page->setLinks(after);
        GetFramework()->pushUndo(new LinkCmd(m_page, before, m_page->links(), text));
    }
    if (relink || carries)
        stack()->endMacro();
    refreshOverlay();
}

void BoardView::moveSelection(const QPointF &offset)
{
    if (m_mode != Mode::None || m_selection.isEmpty() || m_presenting)
        return;
    m_start.clear();
    QSet<QGraphicsItem *> moved;
    for (QGraphicsItem *i : m_selection) {
        const ItemPlacement p = ItemPlacement::of(i);
        m_start.append(PlaceItemsCmd::Change{i, p, p});
        i->setPos(p.pos + offset);
        moved.insert(i);
    }
    finishTransform(QStringLiteral("BOARD_CMD_MOVE"));
    refreshOverlay();
}

void BoardView::mouseReleaseEvent(QMouseEvent *event)
{
    const Mode mode = m_mode;
    if (event->button() != Qt::LeftButton && !(mode == Mode::Pan && event->button() == Qt::MiddleButton)) {
        QGraphicsView::mouseReleaseEvent(event);
        return;
    }
    m_mode = Mode::None;
    switch (mode) {
    case Mode::Handle: dragHandleTo(event->pos(), true, event->modifiers() & Qt::AltModifier); break;
    case Mode::Move: finishTransform(QStringLiteral("BOARD_CMD_MOVE")); break;
    case Mode::Rotate: finishTransform(QStringLiteral("BOARD_CMD_ROTATE")); break;
    case Mode::Scale: finishTransform(QStringLiteral("BOARD_CMD_SCALE")); break;
    case Mode::Rubber: {
        // The band chose the items as it went; now the panel hears of it.
        const QList<QGraphicsItem *> chosen = m_selection;
        m_rubber = QRectF();
        m_selection.clear();
        m_primary = nullptr;
        setSelection(chosen);
        break;
    }
    case Mode::Pan: updateCursor(event->pos()); break;
    case Mode::Ink:
        if (!m_tabletInk)
            finishInk();
        break;
    case Mode::Arrow: {
        Annotation *arrow = m_arrow;
        m_arrow = nullptr;
        if (!arrow)
            break;
        m_page->removeItem(arrow);
        const QPointF d = viewportTransform().map(mapToScene(event->pos())) - viewportTransform().map(m_pressScene);
        // A click without a drag draws nothing.
        if (std::hypot(d.x(), d.y()) < 4)
            delete arrow;
        else
            addMark(arrow, "BOARD_CMD_ARROW");
        break;
    }
    case Mode::None: break;
    }
    refreshOverlay();
}

void BoardView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QGraphicsItem *hit = itemAt(event->pos());
    if (!m_presenting && hit && hit->type() == Annotation::Type && static_cast<Annotation *>(hit)->kind() == Annotation::Text) {
        beginText(hit->pos(), static_cast<TextNote *>(hit));
        return;
    }
    QGraphicsView::mouseDoubleClickEvent(event);
}

void BoardView::keyPressEvent(QKeyEvent *event)
{
    QPointF dir;
    switch (event->key()) {
    case Qt::Key_Space:
        if (!event->isAutoRepeat()) {
            m_spaceDown = true;
            viewport()->setCursor(Qt::OpenHandCursor);
        }
        return;
    case Qt::Key_Left: dir = QPointF(-1, 0); break;
    case Qt::Key_Right: dir = QPointF(1, 0); break;
    case Qt::Key_Up: dir = QPointF(0, -1); break;
    case Qt::Key_Down: dir = QPointF(0, 1); break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (!m_presenting)
            emit deleteRequested();
        return;
    case Qt::Key_Escape:
        if (m_presenting)
            emit presentationLeft();
        else if (m_tool != SelectTool)
            setTool(SelectTool);
        else if (m_handle >= 0)
            selectHandle(-1);
        else
            setSelection({});
        return;
    default:
        QGraphicsView::keyPressEvent(event);
        return;
    }
    if (m_selection.isEmpty() || m_mode != Mode::None || m_presenting)
        return;
    const QPointF step = dir * ((event->modifiers() & Qt::ShiftModifier) ? 10.0 : 1.0);
    CWBPhysicalObject *obj = selected();
    CSVGBase *c = obj ? obj->content() : nullptr;
    if (m_handle >= 0 && c && m_handle < c->controlNodes().size()) {
        // One unit of the drawing in the direction of the key as seen on screen;
        // each nudge is its own undo step.
        QTransform unturn;
        unturn.rotate(-obj->rotation());
        QPointF d = unturn.map(step);
        auto snap = [](double v) { return std::fabs(v - std::round(v)) < 1e-9 ? std::round(v) : v; };
        d = QPointF(snap(d.x()), snap(d.y()));
        m_snapping = false;
        finishHandleMove(c->controlNodes().at(m_handle), d);
        emit handleMoved(obj, true);
        refreshOverlay();
    } else {
        moveSelection(step);
    }
}

void BoardView::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        m_spaceDown = false;
        if (m_mode != Mode::Pan)
            viewport()->setCursor(Qt::ArrowCursor);
        return;
    }
    QGraphicsView::keyReleaseEvent(event);
}

void BoardView::scrollContentsBy(int dx, int dy)
{
    QGraphicsView::scrollContentsBy(dx, dy);
    m_lastOverlay.translate(dx, dy);
}

void BoardView::drawBackground(QPainter *painter, const QRectF &rect)
{
    // The desk around the sheet, the sheet, and its edge.
    painter->fillRect(rect, QColor(0xd5, 0xd8, 0xdd));
    const QRectF page = BoardPage::pageRect();
    painter->fillRect(rect.intersected(page), Qt::white);
    if (m_presenting)
        return;
    QPen edge(QColor(0x8a, 0x90, 0x99), 1);
    edge.setCosmetic(true);
    painter->setPen(edge);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(page);
}

QRect BoardView::overlayRect() const
{
    QRectF r;
    if (!m_presenting) {
        for (QGraphicsItem *i : m_selection)
            r |= outlineOf(i).boundingRect();
        if (m_selection.size() == 1) {
            const QPointF rot = rotateKnob(), sc = scaleKnob();
            r |= QRectF(rot - QPointF(10, 10), QSizeF(20, 20));
            r |= QRectF(sc - QPointF(10, 10), QSizeF(20, 20));
            if (m_handle >= 0)
                r |= handleDrawnRect(selected(), m_handle).adjusted(-5, -5, 5, 5);
        }
        if (!m_rubber.isNull())
            r |= viewportTransform().mapRect(m_rubber);
    }
    if (m_snapping)
        r |= QRectF(viewportTransform().map(m_snap) - QPointF(14, 14), QSizeF(28, 28));
    return r.isNull() ? QRect() : r.adjusted(-4, -4, 4, 4).toAlignedRect();
}

void BoardView::refreshOverlay()
{
    const QRect now = overlayRect();
    QRegion dirty(m_lastOverlay);
    dirty += now;
    if (!dirty.isEmpty())
        viewport()->update(dirty);
    m_lastOverlay = now;
}

void BoardView::drawForeground(QPainter *painter, const QRectF &)
{
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing);
    if (!m_presenting) {
        QPen dash(kSelectBlue, 1, Qt::DashLine);
        painter->setBrush(Qt::NoBrush);
        for (QGraphicsItem *i : m_selection) {
            dash.setWidthF(i == m_primary ? 1.5 : 1);
            painter->setPen(dash);
            painter->drawPolygon(outlineOf(i));
        }
        const QPolygonF outline = selectionOutline();
        if (outline.size() >= 4) {
            painter->setPen(QPen(kSelectBlue, 1, Qt::DashLine));
            const QPointF top = (outline[0] + outline[1]) / 2;
            const QPointF rot = rotateKnob();
            painter->drawLine(top, rot);
            painter->setPen(QPen(kSelectBlue, 1.5));
            painter->setBrush(Qt::white);
            painter->drawEllipse(rot, 7, 7);
            painter->drawRect(QRectF(scaleKnob() - QPointF(6, 6), QSizeF(12, 12)));
            if (m_handle >= 0) {
                painter->setPen(QPen(kSnapOrange, 2));
                painter->setBrush(Qt::NoBrush);
                painter->drawRect(handleDrawnRect(selected(), m_handle).adjusted(-3, -3, 3, 3));
            }
        }
        if (!m_rubber.isNull()) {
            painter->setPen(QPen(kSelectBlue, 1));
            painter->setBrush(QColor(0x33, 0x66, 0xcc, 40));
            painter->drawPolygon(viewportTransform().map(QPolygonF(m_rubber)));
        }
    }
    if (m_snapping) {
        painter->setPen(QPen(kSnapOrange, 2.5));
        painter->setBrush(QColor(0xff, 0x8c, 0x00, 60));
        painter->drawEllipse(viewportTransform().map(m_snap), 10, 10);
    }
    painter->restore();
}

void BoardView::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(QLatin1String(kTypeMime)))
        event->acceptProposedAction();
}

void BoardView::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->mimeData()->hasFormat(QLatin1String(kTypeMime)))
        event->acceptProposedAction();
}

void BoardView::dropEvent(QDropEvent *event)
{
    bool ok = false;
    const int type = event->mimeData()->data(QLatin1String(kTypeMime)).toInt(&ok);
    if (!ok)
        return;
    event->acceptProposedAction();
    emit dropRequested(type, mapToScene(event->pos()));
}
