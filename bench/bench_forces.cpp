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

// Alternates a choice between two values, through the panel as the board sets it.
void choiceBackAndForth(benchmark::State &state, int type, const char *key, const char *from, const char *to)
{
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    CSVGBase *c = o->content();
    QMap<QString, QString> a{{QString::fromLatin1(key), QString::fromLatin1(from)}};
    QMap<QString, QString> b{{QString::fromLatin1(key), QString::fromLatin1(to)}};
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

static void BM_SpringbalanceRangeChange(benchmark::State &state) { choiceBackAndForth(state, 203, "idRange", "0", "2"); }
BENCHMARK(BM_SpringbalanceRangeChange);

// 101 ticks on the 100 mL cylinder, 51 on the 250 mL one: half the ticks go and come back.
static void BM_CylinderRangeChange(benchmark::State &state) { choiceBackAndForth(state, 302, "idRange", "1", "2"); }
BENCHMARK(BM_CylinderRangeChange);

static void BM_PulleyDragUpdate(benchmark::State &state) { dragBackAndForth(state, 204, 0, QPointF(0, 120)); }
BENCHMARK(BM_PulleyDragUpdate);

static void BM_PulleyGroupDragUpdate(benchmark::State &state) { dragBackAndForth(state, 205, 0, QPointF(0, -120)); }
BENCHMARK(BM_PulleyGroupDragUpdate);

static void BM_PulleyGroup2DragUpdate(benchmark::State &state) { dragBackAndForth(state, 206, 0, QPointF(0, -120)); }
BENCHMARK(BM_PulleyGroup2DragUpdate);

static void BM_PropellerDragUpdate(benchmark::State &state) { dragBackAndForth(state, 300, 0, QPointF(40, 40)); }
BENCHMARK(BM_PropellerDragUpdate);

// No handle: a change of the count, one mass against six.
static void BM_HookCodeCountChange(benchmark::State &state) { choiceBackAndForth(state, 207, "idCount", "0", "5"); }
BENCHMARK(BM_HookCodeCountChange);
