// qtsvg_peer: times QSvgRenderer on SVG files that physlab wrote, as the yardstick
// for our own parser and painter. It links QtSvg and nothing of ours: the two
// libraries define classes of the same names and must never share a process.
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <cstdio>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

double threadCpuMicros()
{
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return double(ts.tv_sec) * 1e6 + double(ts.tv_nsec) / 1e3;
}

struct Timing {
    double wall;
    double cpu; // this thread's CPU time: steadier than wall time on a shared machine
};

template <typename F>
Timing medianMicros(int reps, F f)
{
    std::vector<double> wall, cpu;
    wall.reserve(size_t(reps));
    cpu.reserve(size_t(reps));
    for (int i = 0; i < reps; ++i) {
        const double c = threadCpuMicros();
        const auto a = Clock::now();
        f();
        wall.push_back(std::chrono::duration<double, std::micro>(Clock::now() - a).count());
        cpu.push_back(threadCpuMicros() - c);
    }
    return {median(wall), median(cpu)};
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    int reps = 200;
    const int r = args.indexOf(QStringLiteral("--reps"));
    if (r >= 0 && r + 1 < args.size()) {
        reps = qMax(1, args[r + 1].toInt());
        args.erase(args.begin() + r, args.begin() + r + 2);
    }
    if (args.isEmpty()) {
        std::fprintf(stderr, "usage: qtsvg_peer [--reps N] FILE.svg...\n"
                             "prints one JSON line per file: median load and render times (wall and thread CPU) in microseconds\n");
        return 2;
    }
    QTextStream out(stdout);
    int failures = 0;
    for (const QString &path : args) {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "qtsvg_peer: cannot read %s\n", qPrintable(path));
            ++failures;
            continue;
        }
        const QByteArray bytes = f.readAll();
        QSvgRenderer renderer(bytes);
        if (!renderer.isValid()) {
            std::fprintf(stderr, "qtsvg_peer: %s is not an SVG QtSvg can read\n", qPrintable(path));
            ++failures;
            continue;
        }
        const Timing load = medianMicros(reps, [&] {
            QSvgRenderer fresh(bytes);
            Q_UNUSED(fresh);
        });
        // The document's own size, as our painter is timed.
        const QSize size = renderer.defaultSize();
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        const Timing render = medianMicros(reps, [&] {
            image.fill(Qt::transparent);
            QPainter p(&image);
            renderer.render(&p);
        });
        out << "{\"file\":\"" << path << "\",\"width\":" << size.width() << ",\"height\":" << size.height()
            << ",\"load_us\":" << load.wall << ",\"load_cpu_us\":" << load.cpu << ",\"render_us\":" << render.wall
            << ",\"render_cpu_us\":" << render.cpu << "}\n";
    }
    return failures ? 1 : 0;
}
