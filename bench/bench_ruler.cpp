// The ruler at full length (266 ticks, 27 labels): one pitch of drag, a full repaint,
// and a sweep of the handle across its whole travel. scripts/bench_peer.sh sets these
// against QtSvg's load and render of the same document.
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>
#include <vector>

namespace {

CWBPhysicalObject *fullLengthRuler()
{
    CWBPhysicalObject *o = createObject_physical(0, 109, true);
    QMap<QString, QString> v{{QStringLiteral("idPosValue"), QStringLiteral("100")}};
    o->content()->SetSettingArray(v, false, false);
    return o;
}

QSvgNode *handle(CWBPhysicalObject *o) { return o->content()->controlNodes().first(); }

} // namespace

// Each step moves the handle one pitch, so a tick (and every tenth step a label) comes or goes.
static void BM_RulerDragUpdate(benchmark::State &state)
{
    CWBPhysicalObject *o = fullLengthRuler();
    CSVGBase *c = o->content();
    double d = -3;
    for (auto _ : state) {
        c->moveControlPoint(handle(o), QPointF(d, 0), false);
        d = -d;
    }
    o->Release();
}
BENCHMARK(BM_RulerDragUpdate);

static void BM_RulerRepaint(benchmark::State &state)
{
    CWBPhysicalObject *o = fullLengthRuler();
    const QSvgTinyDocument *doc = o->content()->document();
    // Truncated like QSvgRenderer::defaultSize(), so both sides fill the same pixels.
    const QSize size(int(doc->size().width()), int(doc->size().height()));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::transparent);
        QPainter p(&image);
        doc->render(&p);
    }
    state.counters["width"] = size.width();
    o->Release();
}
BENCHMARK(BM_RulerRepaint);

// One pass of 750 one-unit steps from 50 to 800; the counters are per-step figures.
static void BM_RulerSweep(benchmark::State &state)
{
    using Clock = std::chrono::steady_clock;
    CWBPhysicalObject *o = createObject_physical(0, 109, true);
    CSVGBase *c = o->content();
    std::vector<double> steps;
    for (auto _ : state) {
        state.PauseTiming();
        c->moveControlPoint(handle(o), QPointF(50 - handle(o)->rect().x(), 0), true, false);
        state.ResumeTiming();
        for (int x = 50; x < 800; ++x) {
            const auto t = Clock::now();
            c->moveControlPoint(handle(o), QPointF(1, 0), x + 1 == 800, false);
            steps.push_back(std::chrono::duration<double, std::micro>(Clock::now() - t).count());
        }
    }
    std::sort(steps.begin(), steps.end());
    auto at = [&](double q) { return steps[std::min(steps.size() - 1, size_t(q * double(steps.size())))]; };
    state.counters["p50_us"] = at(0.5);
    state.counters["p99_us"] = at(0.99);
    state.counters["max_us"] = steps.back();
    o->Release();
}
BENCHMARK(BM_RulerSweep)->Unit(benchmark::kMillisecond);
