// physboard: place, drag and edit apparatus on a page; or, with --export, write a page
// as PDF, PNG or SVG without showing anything.
#include "BoardWindow.h"
#include "Strings.h"
#include <QApplication>
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QMessageBox>
#include <PhysicalPlugin.h>
#include <QTextStream>
#include <QTimer>
#include <cstring>

namespace {

bool wantsExport(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--export") == 0 || std::strncmp(argv[i], "--export=", 9) == 0)
            return true;
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    // A headless export needs no display; worksheets are made on servers too.
    if (wantsExport(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("physlab"));
    QCoreApplication::setApplicationName(QStringLiteral("physboard"));
    QCommandLineParser cli;
    cli.setApplicationDescription(QStringLiteral("A board on which apparatus are placed, dragged and edited."));
    cli.addHelpOption();
    QCommandLineOption lang(QStringLiteral("lang"), QStringLiteral("Language: en or zh (default: as last time, else the system's)."), QStringLiteral("code"));
    QCommandLineOption demo(QStringLiteral("demo"), QStringLiteral("Start with a page of several apparatus."));
    QCommandLineOption shot(QStringLiteral("screenshot"), QStringLiteral("Save a picture of the window to FILE and quit."),
                            QStringLiteral("FILE"));
    QCommandLineOption present(QStringLiteral("present"), QStringLiteral("Start in the presentation."));
    QCommandLineOption exportTo(QStringLiteral("export"),
                                QStringLiteral("Write the page to OUT (.pdf, .png or .svg) and quit, showing nothing."),
                                QStringLiteral("OUT"));
    QCommandLineOption library(PhysicalPlugin::optionName(),
                              QStringLiteral("Load the apparatus library from PATH (a file, or its folder) instead of the one "
                                             "found beside physboard or by its soname; so does the variable %1.")
                                  .arg(QLatin1String(PhysicalPlugin::environmentName())),
                              QStringLiteral("PATH"));
    cli.addOptions({lang, demo, shot, present, exportTo, library});
    cli.addPositionalArgument(QStringLiteral("page"), QStringLiteral("A page file to open."));
    cli.process(app);

    QTextStream err(stderr);
    QString why;
    if (!PhysicalPlugin::load(cli.value(library), &why)) {
        err << "physboard: " << why << '\n';
        err.flush();
        // A teacher who started the board from a menu sees no terminal.
        if (!cli.isSet(exportTo) && QGuiApplication::platformName() != QLatin1String("offscreen"))
            QMessageBox::critical(nullptr, QStringLiteral("physboard"), why);
        return 2;
    }
    const QStringList pages = cli.positionalArguments();
    if (cli.isSet(exportTo)) {
        if (pages.size() != 1) {
            err << "physboard: --export needs exactly one page file, as in: physboard PAGE --export OUT.pdf\n";
            return 2;
        }
        BoardWindow w;
        if (!w.openPage(pages.first())) {
            err << "physboard: " << w.lastError() << '\n';
            return 1;
        }
        if (!w.exportPage(cli.value(exportTo))) {
            err << "physboard: " << (w.lastError().isEmpty() ? QStringLiteral("cannot export to %1").arg(cli.value(exportTo)) : w.lastError())
                << '\n';
            return 1;
        }
        return 0;
    }

    BoardWindow w;
    w.restoreSettings();
    if (cli.isSet(lang))
        w.setLanguage(cli.value(lang).startsWith(QLatin1String("zh")) ? Strings::Chinese : Strings::English);
    if (cli.isSet(demo))
        w.fillDemoPage();
    if (!pages.isEmpty() && !w.openPage(pages.first()))
        err << "physboard: " << w.lastError() << '\n';
    w.show();
    if (cli.isSet(present))
        w.setPresenting(true);
    if (cli.isSet(shot)) {
        QCoreApplication::processEvents();
        const bool ok = w.grab().save(cli.value(shot));
        if (!ok)
            err << "physboard: cannot write " << cli.value(shot) << '\n';
        return ok ? 0 : 1;
    }
    return app.exec();
}
