#include "BoardView.h"
#include "Page.h"
#include "Strings.h"
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QtMath>
#include <cmath>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

constexpr double kKnobOffset = 28;   // px from the outline to the rotate knob
constexpr double kMinScale = 0.1, kMaxScale = 10;

// The item's own rectangle of a document rectangle.
QRectF docToItem(CWBPhysicalObject *obj, const QRectF &r)
{
    const QRectF vb = obj->content()->document()->viewBox();
    const QSizeF s = obj->itemSize();
    if (vb.isEmpty() || s.isEmpty())
        return r;
    const double kx = s.width() / vb.width(), ky = s.height() / vb.height();
    return QRectF((r.x() - vb.x()) * kx, (r.y() - vb.y()) * ky, r.width() * kx, r.height() * ky);
}

double angleOf(const QPointF &v) { return qRadiansToDegrees(std::atan2(v.y(), v.x())); }

QString nameOf(CWBPhysicalObject *obj) { return obj ? Strings::typeName(obj->typeId()) : QString(); }

} // namespace

BoardView::BoardView(BoardPage *page, QWidget *parent) : QGraphicsView(page, parent), m_page(page)
{
    setRenderHint(QPainter::Antialiasing);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setSceneRect(0, 0, 1600, 1000);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void BoardView::select(CWBPhysicalObject *obj)
{
    if (obj && obj->scene() != m_page)
        obj = nullptr;
    if (obj == m_selected)
        return;
    m_selected = obj;
    m_handle = -1;
    m_mode = Mode::None;
    viewport()->update();
    emit selectionChanged(obj);
}

void BoardView::selectHandle(int index)
{
    const int count = m_selected && m_selected->content() ? m_selected->content()->controlNodes().size() : 0;
    m_handle = index >= 0 && index < count ? index : -1;
    viewport()->update();
}

double BoardView::minHitPixels() const { return kMinHitMillimetres / 25.4 * logicalDpiX(); }

QRectF BoardView::handleDrawnRect(CWBPhysicalObject *obj, int index) const
{
    if (!obj || !obj->content() || index < 0 || index >= obj->content()->controlNodes().size())
        return QRectF();
    const QRectF item = docToItem(obj, obj->content()->controlNodes().at(index)->documentBounds());
    return viewportTransform().map(obj->mapToScene(item)).boundingRect();
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

QPolygonF BoardView::selectionOutline() const
{
    if (!m_selected || m_selected->scene() != m_page)
        return QPolygonF();
    return viewportTransform().map(m_selected->mapToScene(m_selected->boundingRect()));
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
    if (!m_selected || m_selected->scene() != m_page)
        return false;
    const QPointF d = QPointF(viewPos) - knob;
    return std::hypot(d.x(), d.y()) <= minHitPixels() / 2;
}

BoardView::HandleHit BoardView::hitHandle(const QPoint &viewPos) const
{
    const QPointF scenePos = mapToScene(viewPos);
    QList<CWBPhysicalObject *> objs = m_page->objects();
    // The selected object's handles come first, then top to bottom.
    if (m_selected && objs.removeOne(m_selected))
        objs.append(m_selected);
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

CWBPhysicalObject *BoardView::objectAt(const QPoint &viewPos) const
{
    const QPointF scenePos = mapToScene(viewPos);
    const QList<CWBPhysicalObject *> objs = m_page->objects();
    for (int k = objs.size() - 1; k >= 0; --k) {
        CObjAction::ACT_Def action = CObjAction::ACT_NONE;
        if (objs[k]->CheckHitTestHandlers(scenePos, action))
            return objs[k];
    }
    return nullptr;
}

QPointF BoardView::documentPoint(CWBPhysicalObject *obj, const QPoint &viewPos) const
{
    return obj->content()->itemToDocument(obj->mapFromScene(mapToScene(viewPos)));
}

void BoardView::mousePressEvent(QMouseEvent *event)
{
    setFocus();
    if (event->button() != Qt::LeftButton) {
        QGraphicsView::mousePressEvent(event);
        return;
    }
    const QPoint pos = event->pos();
    m_pressScene = mapToScene(pos);
    m_mode = Mode::None;
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
    if (m_selected && m_selected->scene() == m_page) {
        m_startPlacement = ItemPlacement::of(m_selected);
        m_centerScene = m_selected->mapToScene(m_selected->boundingRect().center());
        if (knobWins(rotateKnob())) {
            m_mode = Mode::Rotate;
            m_pressAngle = angleOf(m_pressScene - m_centerScene);
            return;
        }
        if (knobWins(scaleKnob())) {
            const QPointF d = m_pressScene - m_selected->pos();
            m_pressDistance = std::max(1e-6, std::hypot(d.x(), d.y()));
            m_mode = Mode::Scale;
            return;
        }
    }
    if (h.obj) {
        select(h.obj);
        selectHandle(h.index);
        m_mode = Mode::Handle;
        m_pressDoc = documentPoint(h.obj, pos);
        m_handleStart = h.obj->content()->controlNodes().at(h.index)->rect().topLeft();
        return;
    }
    CWBPhysicalObject *obj = objectAt(pos);
    select(obj);
    selectHandle(-1);
    if (obj) {
        m_startPlacement = ItemPlacement::of(obj);
        m_mode = Mode::Move;
    }
}

void BoardView::dragHandleTo(const QPoint &viewPos, bool final)
{
    CSVGBase *c = m_selected ? m_selected->content() : nullptr;
    if (!c || m_handle < 0 || m_handle >= c->controlNodes().size())
        return;
    QSvgNode *node = c->controlNodes().at(m_handle);
    // Aim at where the pointer has taken the handle; the host clamps to the bounds.
    const QPointF target = m_handleStart + (documentPoint(m_selected, viewPos) - m_pressDoc);
    const QPointF delta = target - node->rect().topLeft();
    if (final)
        finishHandleMove(node, delta);
    else
        c->moveControlPoint(node, delta, false);
    m_selected->update();
    viewport()->update();
    emit handleMoved(m_selected, final);
}

void BoardView::setZoom(double zoom)
{
    zoom = qBound(0.25, zoom, 4.0);
    setTransform(QTransform::fromScale(zoom, zoom));
}

void BoardView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    setZoom(zoom() * std::pow(1.15, event->angleDelta().y() / 120.0));
    event->accept();
}

void BoardView::updateCursor(const QPoint &pos)
{
    Qt::CursorShape shape = Qt::ArrowCursor;
    if (nearKnob(rotateKnob(), pos) || nearKnob(scaleKnob(), pos))
        shape = Qt::CrossCursor;
    else if (hitHandle(pos).obj)
        shape = Qt::PointingHandCursor;
    else if (objectAt(pos))
        shape = Qt::SizeAllCursor;
    viewport()->setCursor(shape);
}

void BoardView::finishHandleMove(QSvgNode *node, const QPointF &delta)
{
    QUndoStack *s = GetFramework()->undoStack();
    auto top = [s]() { return s->index() > 0 ? s->command(s->index() - 1) : nullptr; };
    const QUndoCommand *before = top();
    m_selected->content()->moveControlPoint(node, delta, true);
    // A drag that changed nothing left no step; one that did left exactly one.
    if (top() && top() != before)
        const_cast<QUndoCommand *>(top())->setText(Strings::text(QStringLiteral("BOARD_CMD_HANDLE")).arg(nameOf(m_selected)));
}

void BoardView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_selected || m_mode == Mode::None) {
        if (!(event->buttons() & Qt::LeftButton))
            updateCursor(event->pos());
        QGraphicsView::mouseMoveEvent(event);
        return;
    }
    const QPointF scenePos = mapToScene(event->pos());
    switch (m_mode) {
    case Mode::Handle:
        dragHandleTo(event->pos(), false);
        break;
    case Mode::Move:
        m_selected->setPos(m_startPlacement.pos + scenePos - m_pressScene);
        break;
    case Mode::Rotate: {
        double a = m_startPlacement.rotation + angleOf(scenePos - m_centerScene) - m_pressAngle;
        if (event->modifiers() & Qt::ShiftModifier)
            a = std::round(a / 15) * 15;
        a = std::fmod(a, 360.0);
        // Turn about the centre: the centre stays where it was.
        QTransform t;
        t.rotate(a);
        t.scale(m_startPlacement.scale, m_startPlacement.scale);
        m_selected->setRotation(a);
        m_selected->setPos(m_centerScene - t.map(m_selected->boundingRect().center()));
        break;
    }
    case Mode::Scale: {
        const QPointF d = scenePos - m_startPlacement.pos;
        const double k = std::hypot(d.x(), d.y()) / m_pressDistance;
        m_selected->setScale(qBound(kMinScale, m_startPlacement.scale * k, kMaxScale));
        break;
    }
    case Mode::None:
        break;
    }
    viewport()->update();
}

void BoardView::finishTransform(const QString &key)
{
    const ItemPlacement now = ItemPlacement::of(m_selected);
    if (now != m_startPlacement)
        GetFramework()->pushUndo(new PlaceObjectCmd(m_selected, m_startPlacement, now, Strings::text(key).arg(nameOf(m_selected))));
}

void BoardView::mouseReleaseEvent(QMouseEvent *event)
{
    const Mode mode = m_mode;
    m_mode = Mode::None;
    if (!m_selected || event->button() != Qt::LeftButton) {
        QGraphicsView::mouseReleaseEvent(event);
        return;
    }
    switch (mode) {
    case Mode::Handle: dragHandleTo(event->pos(), true); break;
    case Mode::Move: finishTransform(QStringLiteral("BOARD_CMD_MOVE")); break;
    case Mode::Rotate: finishTransform(QStringLiteral("BOARD_CMD_ROTATE")); break;
    case Mode::Scale: finishTransform(QStringLiteral("BOARD_CMD_SCALE")); break;
    case Mode::None: break;
    }
    viewport()->update();
}

void BoardView::keyPressEvent(QKeyEvent *event)
{
    QPointF dir;
    switch (event->key()) {
    case Qt::Key_Left: dir = QPointF(-1, 0); break;
    case Qt::Key_Right: dir = QPointF(1, 0); break;
    case Qt::Key_Up: dir = QPointF(0, -1); break;
    case Qt::Key_Down: dir = QPointF(0, 1); break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        emit deleteRequested();
        return;
    case Qt::Key_Escape:
        if (m_handle >= 0)
            selectHandle(-1);
        else
            select(nullptr);
        return;
    default:
        QGraphicsView::keyPressEvent(event);
        return;
    }
    if (!m_selected || m_mode != Mode::None)
        return;
    const QPointF step = dir * ((event->modifiers() & Qt::ShiftModifier) ? 10.0 : 1.0);
    CSVGBase *c = m_selected->content();
    if (m_handle >= 0 && c && m_handle < c->controlNodes().size()) {
        // One unit of the drawing in the direction of the key as seen on screen;
        // each nudge is its own undo step.
        QTransform unturn;
        unturn.rotate(-m_selected->rotation());
        QPointF d = unturn.map(step);
        auto snap = [](double v) { return std::fabs(v - std::round(v)) < 1e-9 ? std::round(v) : v; };
        d = QPointF(snap(d.x()), snap(d.y()));
        finishHandleMove(c->controlNodes().at(m_handle), d);
        m_selected->update();
        emit handleMoved(m_selected, true);
    } else {
        m_startPlacement = ItemPlacement::of(m_selected);
        m_selected->setPos(m_selected->pos() + step);
        finishTransform(QStringLiteral("BOARD_CMD_MOVE"));
    }
    viewport()->update();
}

void BoardView::drawForeground(QPainter *painter, const QRectF &)
{
    const QPolygonF outline = selectionOutline();
    if (outline.size() < 4)
        return;
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing);
    QPen dash(QColor(0x33, 0x66, 0xcc), 1, Qt::DashLine);
    painter->setPen(dash);
    painter->setBrush(Qt::NoBrush);
    painter->drawPolygon(outline);
    const QPointF top = (outline[0] + outline[1]) / 2;
    const QPointF rot = rotateKnob();
    painter->drawLine(top, rot);
    painter->setPen(QPen(QColor(0x33, 0x66, 0xcc), 1.5));
    painter->setBrush(Qt::white);
    painter->drawEllipse(rot, 7, 7);
    painter->drawRect(QRectF(scaleKnob() - QPointF(6, 6), QSizeF(12, 12)));
    if (m_handle >= 0) {
        painter->setPen(QPen(QColor(0xff, 0x8c, 0x00), 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(handleDrawnRect(m_selected, m_handle).adjusted(-3, -3, 3, 3));
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
