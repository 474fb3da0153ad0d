#pragma once
// Where wires meet terminals: the terminal points of an apparatus on the page, the
// nearest one to a wire end, and wire ends carried along when what they hold moves.
#include "Page.h"
#include <QPointF>
#include <QSet>

class QGraphicsView;

namespace Wiring {

// A wire end is held within this many screen pixels of a terminal.
constexpr double kSnapPixels = 12;

int terminalCount(CWBPhysicalObject *obj);
// A terminal's place on the page; a wire's terminals are its two ends.
bool terminalAt(CWBPhysicalObject *obj, int index, QPointF *scene);
// The wire's handle for an end, and the end of a handle (-1: not an end).
int handleOfEnd(int end);
int endOfHandle(CWBPhysicalObject *wire, int handle);
bool isWire(const CWBPhysicalObject *obj);

struct Target {
    CWBPhysicalObject *to = nullptr;
    int terminal = -1;
    QPointF scene;
    bool valid() const { return to != nullptr; }
};
// The terminal nearest to scenePos within kSnapPixels on the view, leaving out the wire
// whose end is looked for.
Target nearest(const BoardPage *page, const QGraphicsView *view, const QPointF &scenePos, const CWBPhysicalObject *wire);

// Moves a wire's end so that its centre lies on a page point (one step of the host's
// edit; the final one closes it).
void moveEndTo(CWBPhysicalObject *wire, int end, const QPointF &scene, bool final);

// Carries the wire ends held by what moved; the wires that moved themselves keep their
// shape. onlyTerminal >= 0: only ends held by that terminal. Returns the wires it moved.
QSet<CWBPhysicalObject *> carry(BoardPage *page, const QSet<QGraphicsItem *> &moved, bool final, int onlyTerminal = -1);

} // namespace Wiring
