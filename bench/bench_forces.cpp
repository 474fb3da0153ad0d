// Drag updates of the forces and measuring apparatus, and the range changes that lay a
// scale out again (the spring balance's numbers, the cylinder's ticks and numbers).
#include <benchmark/benchmark.h>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

// Moves a handle back and forth so that every step changes the drawing (and most the
// shown reading, which the host then posts).
void dragBackAndForth(benchmark::State &state, int type, int index, QPointF step)
{
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    CSVGBase *c = o->content();
    QSvgNode *h = c->controlNodes().value(index);
    QPointF d = step;
    for (auto _ : state) {
        c->moveControlPoint(h, d, false);
        d = -d;
        GetFramework()->clearMessages();
    }
    o->Release();
}

// Alternates the range between two choices, through the panel as the board sets it.
void rangeBackAndForth(benchmark::State &state, int type, const char *from, const char *to)
{
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    CSVGBase *c = o->content();
    QMap<QString, QString> a{{QStringLiteral("idRange"), QString::fromLatin1(from)}};
    QMap<QString, QString> b{{QStringLiteral("idRange"), QString::fromLatin1(to)}};
    bool flip = false;
    for (auto _ : state) {
        c->SetSettingArray(flip ? b : a, false, false);
        flip = !flip;
    }
    o->Release();
}

} // namespace

static void BM_ForceDragUpdate(benchmark::State &state) { dragBackAndForth(state, 200, 0, QPointF(-60, -90)); }
BENCHMARK(BM_ForceDragUpdate);

static void BM_DistanceDragUpdate(benchmark::State &state) { dragBackAndForth(state, 201, 1, QPointF(-40, -70)); }
BENCHMARK(BM_DistanceDragUpdate);

static void BM_SpringbalanceDragUpdate(benchmark::State &state) { dragBackAndForth(state, 203, 0, QPointF(0, 96)); }
BENCHMARK(BM_SpringbalanceDragUpdate);

static void BM_PressureDragUpdate(benchmark::State &state) { dragBackAndForth(state, 301, 0, QPointF(0, 45)); }
BENCHMARK(BM_PressureDragUpdate);

static void BM_CylinderDragUpdate(benchmark::State &state) { dragBackAndForth(state, 302, 0, QPointF(0, -70)); }
BENCHMARK(BM_CylinderDragUpdate);

static void BM_SpringbalanceRangeChange(benchmark::State &state) { rangeBackAndForth(state, 203, "0", "2"); }
BENCHMARK(BM_SpringbalanceRangeChange);

// 101 ticks on the 100 mL cylinder, 51 on the 250 mL one: half the ticks go and come back.
static void BM_CylinderRangeChange(benchmark::State &state) { rangeBackAndForth(state, 302, "1", "2"); }
BENCHMARK(BM_CylinderRangeChange);
