// Circuit symbols: a label edit from the panel (measure, refit, repaint request) and a
// switch state change; neither makes undo or playback records here.
#include <benchmark/benchmark.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

void setEach(CSVGBase *c, const QString &key, const QString &a, const QString &b, benchmark::State &state)
{
    QMap<QString, QString> va{{key, a}}, vb{{key, b}};
    bool flip = false;
    for (auto _ : state) {
        c->SetSettingArray(flip ? vb : va, false, false);
        flip = !flip;
    }
}

} // namespace

// Alternates a short and a long label, so every edit changes the item's width.
static void BM_CircuitLabelEdit(benchmark::State &state)
{
    CWBPhysicalObject *o = createObject_physical(0, 710, true);
    setEach(o->content(), QStringLiteral("idTextContent"), QStringLiteral("4.7k"),
            QStringLiteral("R1 = 4.7 kOhm, 0.25 W, 5 % tolerance"), state);
    o->Release();
}
BENCHMARK(BM_CircuitLabelEdit);

static void BM_CircuitSwitchState(benchmark::State &state)
{
    CWBPhysicalObject *o = createObject_physical(0, 702, true);
    setEach(o->content(), QStringLiteral("idSwitchState"), QStringLiteral("0"), QStringLiteral("2"), state);
    o->Release();
}
BENCHMARK(BM_CircuitSwitchState);

static void BM_CircuitSymbolCreation(benchmark::State &state)
{
    for (auto _ : state)
        createObject_physical(0, 700, true)->Release();
}
BENCHMARK(BM_CircuitSymbolCreation);
