#pragma once
// Shared start-up of the fuzz targets: Qt's application object and every lazily made
// static (fonts, the framework, templates) exist before the first input, so that the
// leak check between inputs sees only what an input itself leaves behind.
#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

inline void fuzzWarmUp()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The apparatus' own debug lines and Qt's codec warnings would drown the fuzzer's output.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static QGuiApplication app(argc, argv);
    int n = 0;
    const PhysicalTypeInfo *types = physical_TypeTable(&n);
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    QPainter p(&image);
    for (int i = 0; i < n; ++i) {
        CWBPhysicalObject *o = createObject_physical(0, types[i].type, true);
        if (o->content() && o->content()->document())
            o->content()->document()->render(&p, QRectF(0, 0, 64, 64), true);
        o->Release();
    }
}

// Qt's platform plugin and font caches live until exit; that is not ours.
extern "C" __attribute__((visibility("default"), used)) const char *__lsan_default_suppressions()
{
    return "leak:libQt5Gui\nleak:libQt5Core\nleak:libqoffscreen\nleak:libfontconfig\nleak:libfreetype\n";
}
