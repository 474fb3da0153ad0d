#include "Wiring.h"
#include <QGraphicsView>
#include <cmath>
#include <PhysicalPlugin.h>
#include <svgbase.h>
#include <svgtinydocument.h>

namespace Wiring {

bool isWire(const CWBPhysicalObject *obj) { return obj && obj->typeId() == BoardPage::kWireType; }

int handleOfEnd(int end) { return end == 0 ? 0 : 3; }

int endOfHandle(CWBPhysicalObject *wire, int handle)
{
    if (!isWire(wire))
        return -1;
    return handle == 0 ? 0 : handle == 3 ? 1 : -1;
}

int terminalCount(CWBPhysicalObject *obj)
{
    if (!obj || !obj->content() || !obj->content()->document())
        return 0;
    if (isWire(obj))
        return obj->content()->controlNodes().size() >= 4 ? 2 : 0;
    int n = 0;
    PhysicalPlugin::terminals(obj->typeId(), &n);
    return n;
}

bool terminalAt(CWBPhysicalObject *obj, int index, QPointF *scene)
{
    if (index < 0 || index >= terminalCount(obj))
        return false;
    QPointF doc;
    if (isWire(obj)) {
        doc = obj->content()->controlNodes().at(handleOfEnd(index))->rect().center();
    } else {
        int n = 0;
        doc = PhysicalPlugin::terminals(obj->typeId(), &n)[index];
    }
    *scene = obj->mapToScene(obj->content()->documentToItem(doc));
    return true;
}

Target nearest(const BoardPage *page, const QGraphicsView *view, const QPointF &scenePos, const CWBPhysicalObject *wire)
{
    Target best;
    double bestDist = kSnapPixels;
    const QPointF at = view->mapFromScene(scenePos);
    for (CWBPhysicalObject *obj : page->objects()) {
        if (obj == wire)
            continue;
        const int n = terminalCount(obj);
        for (int k = 0; k < n; ++k) {
            QPointF p;
            if (!terminalAt(obj, k, &p))
                continue;
            const QPointF d = view->mapFromScene(p) - at;
            // Screen distance, so that the reach is the same at any zoom.
            const double dist = std::hypot(d.x(), d.y());
            if (dist <= bestDist) {
                bestDist = dist;
                best = Target{obj, k, p};
            }
        }
    }
    return best;
}

void moveEndTo(CWBPhysicalObject *wire, int end, const QPointF &scene, bool final)
{
    CSVGBase *c = wire->content();
    QSvgNode *node = c->controlNodes().value(handleOfEnd(end));
    if (!node)
        return;
    const QPointF target = c->itemToDocument(wire->mapFromScene(scene));
    c->moveControlPoint(node, target - node->rect().center(), final);
}

QSet<CWBPhysicalObject *> carry(BoardPage *page, const QSet<QGraphicsItem *> &moved, bool final, int onlyTerminal)
{
    QSet<CWBPhysicalObject *> carried;
    for (const WireLink &l : page->links()) {
        if (!moved.contains(l.to) || moved.contains(l.wire) || (onlyTerminal >= 0 && l.terminal != onlyTerminal))
            continue;
        QPointF p;
        if (terminalAt(l.to, l.terminal, &p)) {
            moveEndTo(l.wire, l.end, p, final);
            carried.insert(l.wire);
        }
    }
    return carried;
}

} // namespace Wiring
