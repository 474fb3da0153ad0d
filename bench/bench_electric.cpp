// Drag updates of the ammeter and the knob, each a handle moved by the host and the
// apparatus laying out pointer and handle again. scripts/bench_peer_electric.sh sets
// them against QtSvg's load of the same documents.
#include <benchmark/benchmark.h>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

QSvgNode *handle(CWBPhysicalObject *o) { return o->content()->controlNodes().first(); }

// Alternates the handle between two places so that every step turns the pointer.
void dragBackAndForth(benchmark::State &state, int type, QPointF step)
{
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    CSVGBase *c = o->content();
    QPointF d = step;
    for (auto _ : state) {
        c->moveControlPoint(handle(o), d, false);
        d = -d;
        // The meter posts its reading on every step; keep the host's inbox from growing.
        GetFramework()->clearMessages();
    }
    o->Release();
}

} // namespace

static void BM_MeterDragUpdate(benchmark::State &state)
{
    // From the left end of the arc towards its middle and back.
    dragBackAndForth(state, 403, QPointF(60, -30));
}
BENCHMARK(BM_MeterDragUpdate);

static void BM_KnobDrag(benchmark::State &state)
{
    // From straight up a quarter turn round to the right and back.
    dragBackAndForth(state, 401, QPointF(30, 30));
}
BENCHMARK(BM_KnobDrag);
