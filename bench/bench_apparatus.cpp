// Figures for the README: creation, one drag update, save+load.
#include <benchmark/benchmark.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

static void BM_StickCreate(benchmark::State &state)
{
    for (auto _ : state) {
        CWBPhysicalObject *o = createObject_physical(0, 107, true);
        benchmark::DoNotOptimize(o);
        o->Release();
    }
}
BENCHMARK(BM_StickCreate);

static void BM_StickDragUpdate(benchmark::State &state)
{
    CWBPhysicalObject *o = createObject_physical(0, 107, true);
    CSVGBase *c = o->content();
    QSvgNode *h = c->controlNodes().first();
    double d = 1;
    for (auto _ : state) {
        c->moveControlPoint(h, QPointF(d, d), false);
        d = -d;
    }
    o->Release();
}
BENCHMARK(BM_StickDragUpdate);

static void BM_StickSaveLoad(benchmark::State &state)
{
    CWBPhysicalObject *o = createObject_physical(0, 107, true);
    o->content()->moveControlPoint(o->content()->controlNodes().first(), QPointF(-40, 60), true, false);
    for (auto _ : state) {
        QByteArray bytes;
        {
            QDataStream out(&bytes, QIODevice::WriteOnly);
            o->content()->save(out);
        }
        CWBPhysicalObject *copy = createObject_physical(0, 107, false);
        QDataStream in(bytes);
        copy->content()->load(in);
        copy->Release();
    }
    o->Release();
}
BENCHMARK(BM_StickSaveLoad);

// A whole drag as a user makes it: the first step opens an edit, the last closes it
// into one undo step (the object's record before and after, its exact drawing).
static void BM_WholeDrag(benchmark::State &state)
{
    const int type = int(state.range(0));
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    if (type == 109) {
        QMap<QString, QString> v{{QStringLiteral("idPosValue"), QStringLiteral("100")}};
        o->content()->SetSettingArray(v, false, false);
    }
    CSVGBase *c = o->content();
    QSvgNode *h = c->controlNodes().first();
    double d = 3;
    for (auto _ : state) {
        c->moveControlPoint(h, QPointF(-d, d), false);
        c->moveControlPoint(h, QPointF(0, 0), true);
        d = -d;
    }
    o->Release();
}
BENCHMARK(BM_WholeDrag)->Arg(107)->Arg(109)->Arg(202)->Arg(403)->Arg(600);
