// One Qt application for every benchmark: the board's page is a graphics scene.
#include <QApplication>
#include <benchmark/benchmark.h>
#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The spring's one debug line per stretch would bury the figures.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &msg) {
        if (type != QtDebugMsg)
            fprintf(stderr, "%s\n", qPrintable(msg));
    });
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
