// The magnetic field region at its largest on the dense spacing (1000 x 1000, 2,500
// marks): one resize step and a full repaint, which scripts/bench_peer_fields.sh sets
// against QtSvg's render of the same document. Then one drag update of every
// apparatus of electricity and magnetism that has a handle.
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>
#include <svgtinydocument.h>

namespace {

CWBPhysicalObject *largestDenseField()
{
    CWBPhysicalObject *o = createObject_physical(0, 506, true);
    QMap<QString, QString> v{{"idDensity", "2"}, {"idWidth", "100"}, {"idHeight", "100"}};
    o->content()->SetSettingArray(v, false, false);
    return o;
}

QSvgNode *handle(CWBPhysicalObject *o, int index) { return o->content()->controlNodes().value(index); }

} // namespace

// One spacing smaller each way and back: a row and a column of marks go and come.
static void BM_FieldResizeStep(benchmark::State &state)
{
    CWBPhysicalObject *o = largestDenseField();
    QPointF d(-20, -20);
    for (auto _ : state) {
        o->content()->moveControlPoint(handle(o, 0), d, false);
        d = -d;
        GetFramework()->clearMessages();
    }
    state.counters["marks"] = 2500;
    o->Release();
}
BENCHMARK(BM_FieldResizeStep);

static void BM_FieldRepaint(benchmark::State &state)
{
    CWBPhysicalObject *o = largestDenseField();
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
BENCHMARK(BM_FieldRepaint);

// A handle moved back and forth by the host, the apparatus laying itself out each time.
static void BM_DragUpdate(benchmark::State &state, int type, int index, QPointF step)
{
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    QPointF d = step;
    for (auto _ : state) {
        o->content()->moveControlPoint(handle(o, index), d, false);
        d = -d;
        GetFramework()->clearMessages();
    }
    o->Release();
}
BENCHMARK_CAPTURE(BM_DragUpdate, rheostat_407, 407, 0, QPointF(30, 0));
BENCHMARK_CAPTURE(BM_DragUpdate, coil_502, 502, 0, QPointF(30, 0));
BENCHMARK_CAPTURE(BM_DragUpdate, ironcore_503, 503, 1, QPointF(0, 30));
BENCHMARK_CAPTURE(BM_DragUpdate, umagnet_505, 505, 1, QPointF(0, 30));
BENCHMARK_CAPTURE(BM_DragUpdate, field_506, 506, 0, QPointF(30, 30));
BENCHMARK_CAPTURE(BM_DragUpdate, plates_507, 507, 0, QPointF(60, 0));
BENCHMARK_CAPTURE(BM_DragUpdate, charge_508, 508, 0, QPointF(40, 0));
BENCHMARK_CAPTURE(BM_DragUpdate, electron_509, 509, 0, QPointF(-60, -60));
BENCHMARK_CAPTURE(BM_DragUpdate, needle_510, 510, 0, QPointF(-48, -48));
BENCHMARK_CAPTURE(BM_DragUpdate, symbol_711, 711, 0, QPointF(10, 0));
