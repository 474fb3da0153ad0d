// Drag updates of the mechanics toolbox: one step of each handle (the host's move, the
// apparatus's layout, Resize), and for the calipers and the calibration scale, which
// regenerate series, a sweep over the whole travel in 1-unit steps.
// scripts/bench_peer_mechanics.sh sets the calipers and the scale against QtSvg's load
// of the same documents.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>
#include <vector>

namespace {

enum class HandleAxis { X, Y };

QSvgNode *handle(CWBPhysicalObject *o, int index) { return o->content()->controlNodes().value(index); }

// Alternates the handle between two places, so that every step changes the drawing.
void dragBackAndForth(benchmark::State &state, int type, int index, QPointF step,
                      const QMap<QString, QString> &setUp = {})
{
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    CSVGBase *c = o->content();
    QMap<QString, QString> values = setUp;
    c->SetSettingArray(values, false, false);
    QPointF d = step;
    for (auto _ : state) {
        c->moveControlPoint(handle(o, index), d, false);
        d = -d;
        GetFramework()->clearMessages();
    }
    o->Release();
}

// One pass over the handle's whole travel in 1-unit steps; the counters are per step.
void sweep(benchmark::State &state, int type, HandleAxis axis, double from, double to,
           const QMap<QString, QString> &setUp = {})
{
    using Clock = std::chrono::steady_clock;
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    CSVGBase *c = o->content();
    QMap<QString, QString> values = setUp;
    c->SetSettingArray(values, false, false);
    std::vector<double> steps;
    auto at = [&](QSvgNode *h) { return axis == HandleAxis::X ? h->rect().x() : h->rect().y(); };
    for (auto _ : state) {
        state.PauseTiming();
        const double back = from - at(handle(o, 0));
        c->moveControlPoint(handle(o, 0), axis == HandleAxis::X ? QPointF(back, 0) : QPointF(0, back), true, false);
        state.ResumeTiming();
        for (double p = from; p < to; ++p) {
            const auto t = Clock::now();
            c->moveControlPoint(handle(o, 0), axis == HandleAxis::X ? QPointF(1, 0) : QPointF(0, 1), p + 1 >= to, false);
            steps.push_back(std::chrono::duration<double, std::micro>(Clock::now() - t).count());
        }
        GetFramework()->clearMessages();
    }
    std::sort(steps.begin(), steps.end());
    auto q = [&](double f) { return steps[std::min(steps.size() - 1, size_t(f * double(steps.size())))]; };
    state.counters["p50_us"] = q(0.5);
    state.counters["p99_us"] = q(0.99);
    state.counters["max_us"] = steps.back();
    o->Release();
}

} // namespace

static void BM_CalipersDrag(benchmark::State &state) { dragBackAndForth(state, 110, 0, QPointF(37.3, 0)); }
BENCHMARK(BM_CalipersDrag);

static void BM_CalipersSweep(benchmark::State &state)
{
    // Jaws from closed to 150 mm on the 50-division vernier.
    sweep(state, 110, HandleAxis::X, 51.5, 651.5, {{QStringLiteral("idVernierDivisions"), QStringLiteral("2")}});
}
BENCHMARK(BM_CalipersSweep)->Unit(benchmark::kMillisecond);

static void BM_FlatBoardDrag(benchmark::State &state) { dragBackAndForth(state, 100, 0, QPointF(13.7, 0)); }
BENCHMARK(BM_FlatBoardDrag);

static void BM_BevelDrag(benchmark::State &state) { dragBackAndForth(state, 101, 0, QPointF(-13.7, -6.1)); }
BENCHMARK(BM_BevelDrag);

static void BM_LeverDrag(benchmark::State &state) { dragBackAndForth(state, 108, 0, QPointF(17.3, -31.1)); }
BENCHMARK(BM_LeverDrag);

static void BM_CalibrationDrag(benchmark::State &state)
{
    // On the full-length strip (248 ticks, 25 numbers), one unit to and fro.
    dragBackAndForth(state, 111, 0, QPointF(0, 1), {{QStringLiteral("idPosValue"), QStringLiteral("100")}});
}
BENCHMARK(BM_CalibrationDrag);

static void BM_CalibrationSweep(benchmark::State &state) { sweep(state, 111, HandleAxis::Y, 55.5, 995.5); }
BENCHMARK(BM_CalibrationSweep)->Unit(benchmark::kMillisecond);

static void BM_IndentationDrag(benchmark::State &state) { dragBackAndForth(state, 113, 0, QPointF(0, 7.3)); }
BENCHMARK(BM_IndentationDrag);

static void BM_WoodDrag(benchmark::State &state) { dragBackAndForth(state, 106, 0, QPointF(9.1, 13.3)); }
BENCHMARK(BM_WoodDrag);

static void BM_SmallBallDrag(benchmark::State &state) { dragBackAndForth(state, 104, 0, QPointF(7.7, 0)); }
BENCHMARK(BM_SmallBallDrag);

static void BM_SmallCarDrag(benchmark::State &state) { dragBackAndForth(state, 105, 0, QPointF(11.3, 0)); }
BENCHMARK(BM_SmallCarDrag);

static void BM_SkateboardDrag(benchmark::State &state) { dragBackAndForth(state, 114, 0, QPointF(12.9, 0)); }
BENCHMARK(BM_SkateboardDrag);

static void BM_CircularGrooveDrag(benchmark::State &state) { dragBackAndForth(state, 112, 0, QPointF(9.7, 0)); }
BENCHMARK(BM_CircularGrooveDrag);

static void BM_ConveyerbeltDrag(benchmark::State &state) { dragBackAndForth(state, 103, 0, QPointF(101.3, 0)); }
BENCHMARK(BM_ConveyerbeltDrag);
