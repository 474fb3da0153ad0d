// The board under a lesson's load: a handle dragged on a full page, with the repaint
// the drag causes; a page of 1,000 apparatus opened and shown; the same page exported
// headless. All on the board's own window, view and page.
#include <BoardView.h>
#include <BoardWindow.h>
#include <Page.h>
#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <benchmark/benchmark.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

// Every type of the library in turn, laid out in rows on the sheet.
QList<QGraphicsItem *> mixedPage(int count)
{
    int n = 0;
    const PhysicalTypeInfo *types = physical_TypeTable(&n);
    QList<QGraphicsItem *> items;
    for (int i = 0; i < count; ++i) {
        CWBPhysicalObject *o = BoardPage::create(types[i % n].type, true);
        if (!o)
            continue;
        o->setPos(20 + 105 * (i % 15), 20 + 95 * ((i / 15) % 10));
        o->setZValue(i);
        items.append(o);
    }
    return items;
}

QString writePage(const QDir &dir, int count)
{
    PageContent c;
    c.items = mixedPage(count);
    const QString path = dir.filePath(QStringLiteral("page%1.phb").arg(count));
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(BoardPage::serialize(c));
    c.release();
    return path;
}

void settle() { QCoreApplication::processEvents(); }

void sendMove(QWidget *w, const QPointF &p, Qt::MouseButtons buttons)
{
    QMouseEvent e(QEvent::MouseMove, p, w->mapToGlobal(p.toPoint()), Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

// One mouse move of a ruler's handle on a page of 150 apparatus, and the repaint of
// what it changed.
void BM_BoardHandleDragOnFullPage(benchmark::State &state)
{
    QTemporaryDir dir;
    BoardWindow w;
    w.resize(1600, 1000);
    w.show();
    settle();
    if (!w.openPage(writePage(QDir(dir.path()), 150))) {
        state.SkipWithError("page not opened");
        return;
    }
    w.view()->zoomToFit();
    settle();
    CWBPhysicalObject *ruler = nullptr;
    for (CWBPhysicalObject *o : w.page()->objects())
        if (o->typeId() == 109 && !ruler)
            ruler = o;
    w.view()->select(ruler);
    settle();
    QWidget *vp = w.view()->viewport();
    const int handle = ruler->content()->controlNodes().size() - 1;
    const QPointF at = w.view()->handleDrawnRect(ruler, handle).center();
    QTest::mousePress(vp, Qt::LeftButton, {}, at.toPoint());
    settle();
    int k = 0;
    for (auto _ : state) {
        sendMove(vp, at + QPointF((k++ % 2) ? 6 : 0, 0), Qt::LeftButton);
        settle(); // the repaint of the changed area
    }
    // The moves must have dragged the handle, or the figure means nothing.
    const QRectF before = ruler->content()->controlNodes().at(handle)->rect();
    sendMove(vp, at + QPointF(k % 2 ? 6 : 0, 0), Qt::LeftButton);
    if (ruler->content()->controlNodes().at(handle)->rect() == before)
        state.SkipWithError("the handle did not follow the pointer");
    QTest::mouseRelease(vp, Qt::LeftButton, {}, at.toPoint());
    state.counters["apparatus"] = w.page()->objects().size();
}
BENCHMARK(BM_BoardHandleDragOnFullPage)->Unit(benchmark::kMicrosecond)->MinTime(1.0);

void BM_BoardOpenPageOf1000(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString path = writePage(QDir(dir.path()), 1000);
    BoardWindow w;
    w.resize(1600, 1000);
    w.show();
    settle();
    for (auto _ : state) {
        if (!w.openPage(path))
            state.SkipWithError("page not opened");
        settle(); // and shown
        state.PauseTiming();
        w.newPage();
        settle();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_BoardOpenPageOf1000)->Unit(benchmark::kMillisecond)->Iterations(3);

void exportOf1000(benchmark::State &state, const char *suffix)
{
    QTemporaryDir dir;
    const QString path = writePage(QDir(dir.path()), 1000);
    const QString out = dir.filePath(QStringLiteral("out.") + QLatin1String(suffix));
    for (auto _ : state) {
        // What `physboard PAGE --export OUT` does after starting: read, then write.
        BoardPage page;
        QString error;
        if (!page.loadFrom(path, &error) || !page.exportPage(out, &error))
            state.SkipWithError(qPrintable(error));
    }
}
void BM_BoardExportPageOf1000Pdf(benchmark::State &s) { exportOf1000(s, "pdf"); }
void BM_BoardExportPageOf1000Png(benchmark::State &s) { exportOf1000(s, "png"); }
void BM_BoardExportPageOf1000Svg(benchmark::State &s) { exportOf1000(s, "svg"); }
BENCHMARK(BM_BoardExportPageOf1000Pdf)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BoardExportPageOf1000Png)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BoardExportPageOf1000Svg)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
