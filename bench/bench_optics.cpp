// Lens drag updates: one thickness-handle step rebuilds the arcs, the set operation,
// the restored curves and the path data, and refits the drawing.
#include <benchmark/benchmark.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

static void BM_LensDragUpdate(benchmark::State &state)
{
    CWBPhysicalObject *o = createObject_physical(0, int(state.range(0)), true);
    CSVGBase *c = o->content();
    QSvgNode *h = c->controlNodes().first();
    const bool final = state.range(1) != 0;
    double d = 1;
    for (auto _ : state) {
        c->moveControlPoint(h, QPointF(d, 0), final, false);
        d = -d;
    }
    o->Release();
}
// Type id, then 1 for the final step of a drag (which also rebuilds the hit outline).
BENCHMARK(BM_LensDragUpdate)->Args({600, 0})->Args({601, 0})->Args({603, 0})->Args({604, 0})->Args({600, 1});
