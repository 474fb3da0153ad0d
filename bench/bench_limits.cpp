// What a page costs: memory per apparatus, opening a page of 1,000 apparatus, and
// parsing an element of 100,000 attributes.
#include <Page.h>
#include <QDataStream>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>
#include <vector>

namespace {

size_t heapInUse() { return mallinfo2().uordblks; }

// Bytes of heap one apparatus holds: many made at once, the growth divided by their count.
void memoryOf(benchmark::State &state, int type, const char *setting)
{
    constexpr int kCount = 200;
    createObject_physical(0, type, true)->Release(); // templates and caches made once
    double perObject = 0;
    for (auto _ : state) {
        std::vector<CWBPhysicalObject *> made;
        const size_t before = heapInUse();
        for (int i = 0; i < kCount; ++i) {
            CWBPhysicalObject *o = createObject_physical(0, type, true);
            if (setting) {
                const QStringList kv = QString::fromLatin1(setting).split(QLatin1Char('='));
                QMap<QString, QString> v{{kv[0], kv[1]}};
                o->content()->SetSettingArray(v, false, false);
            }
            made.push_back(o);
        }
        perObject = double(heapInUse() - before) / kCount;
        for (CWBPhysicalObject *o : made)
            o->Release();
    }
    state.counters["KB_per_object"] = perObject / 1024;
}

void BM_MemoryRuler(benchmark::State &s) { memoryOf(s, 109, nullptr); }
void BM_MemoryRulerFullLength(benchmark::State &s) { memoryOf(s, 109, "idPosValue=100"); }
void BM_MemoryAmmeter(benchmark::State &s) { memoryOf(s, 403, nullptr); }
void BM_MemoryVoltmeter(benchmark::State &s) { memoryOf(s, 404, nullptr); }
void BM_MemoryGalvanometer(benchmark::State &s) { memoryOf(s, 405, nullptr); }
void BM_MemoryCustomMeter(benchmark::State &s) { memoryOf(s, 406, nullptr); }
BENCHMARK(BM_MemoryRuler)->Iterations(3);
BENCHMARK(BM_MemoryRulerFullLength)->Iterations(3);
BENCHMARK(BM_MemoryAmmeter)->Iterations(3);
BENCHMARK(BM_MemoryVoltmeter)->Iterations(3);
BENCHMARK(BM_MemoryGalvanometer)->Iterations(3);
BENCHMARK(BM_MemoryCustomMeter)->Iterations(3);

// A lesson's page: every apparatus of the library in turn, each dragged once.
QByteArray pageOf(int count)
{
    int n = 0;
    const PhysicalTypeInfo *types = physical_TypeTable(&n);
    QList<CWBPhysicalObject *> objs;
    for (int i = 0; i < count; ++i) {
        CWBPhysicalObject *o = createObject_physical(0, types[i % n].type, true);
        if (!o->content()->controlNodes().isEmpty())
            o->content()->moveControlPoint(o->content()->controlNodes().first(), QPointF(7, 5), true, false);
        o->setPos(40 * (i % 40), 40 * (i / 40));
        objs.append(o);
    }
    const QByteArray bytes = BoardPage::serialize(objs);
    for (CWBPhysicalObject *o : objs)
        o->Release();
    return bytes;
}

void BM_OpenPageOf1000(benchmark::State &state)
{
    const QByteArray bytes = pageOf(1000);
    BoardPage page;
    for (auto _ : state) {
        QList<CWBPhysicalObject *> objs;
        QString error;
        if (!BoardPage::deserialize(bytes, &objs, &error))
            state.SkipWithError(qPrintable(error));
        page.replaceWith(objs);
        state.PauseTiming();
        page.clearPage();
        state.ResumeTiming();
    }
    state.counters["MB"] = bytes.size() / 1048576.0;
}
BENCHMARK(BM_OpenPageOf1000)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_SavePageOf1000(benchmark::State &state)
{
    QList<CWBPhysicalObject *> objs;
    BoardPage::deserialize(pageOf(1000), &objs, nullptr);
    for (auto _ : state)
        benchmark::DoNotOptimize(BoardPage::serialize(objs));
    for (CWBPhysicalObject *o : objs)
        o->Release();
}
BENCHMARK(BM_SavePageOf1000)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_Parse100kAttributes(benchmark::State &state)
{
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg'><rect ";
    for (int i = 0; i < 100000; ++i)
        svg += "a" + QByteArray::number(i) + "='" + QByteArray::number(i % 97) + "' ";
    svg += "/></svg>";
    for (auto _ : state) {
        QSvgTinyDocument *doc = QSvgTinyDocument::load(svg);
        if (!doc)
            state.SkipWithError("not parsed");
        delete doc;
    }
}
BENCHMARK(BM_Parse100kAttributes)->Unit(benchmark::kMillisecond);

} // namespace
