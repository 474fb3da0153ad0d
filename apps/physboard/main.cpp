// physboard: place, drag and edit apparatus on a page.
#include "BoardWindow.h"
#include "Strings.h"
#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>
#include <QTimer>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("physboard"));
    QCommandLineParser cli;
    cli.setApplicationDescription(QStringLiteral("A board on which apparatus are placed, dragged and edited."));
    cli.addHelpOption();
    QCommandLineOption lang(QStringLiteral("lang"), QStringLiteral("Language: en or zh."), QStringLiteral("code"), QStringLiteral("en"));
    QCommandLineOption demo(QStringLiteral("demo"), QStringLiteral("Start with a page of several apparatus."));
    QCommandLineOption shot(QStringLiteral("screenshot"), QStringLiteral("Save a picture of the window to FILE and quit."),
                            QStringLiteral("FILE"));
    cli.addOptions({lang, demo, shot});
    cli.addPositionalArgument(QStringLiteral("page"), QStringLiteral("A page file to open."));
    cli.process(app);

    BoardWindow w;
    if (cli.value(lang).startsWith(QLatin1String("zh")))
        w.setLanguage(Strings::Chinese);
    if (cli.isSet(demo))
        w.fillDemoPage();
    const QStringList pages = cli.positionalArguments();
    if (!pages.isEmpty() && !w.openPage(pages.first()))
        QTextStream(stderr) << "physboard: " << w.lastError() << '\n';
    w.show();
    if (cli.isSet(shot)) {
        QCoreApplication::processEvents();
        const bool ok = w.grab().save(cli.value(shot));
        if (!ok)
            QTextStream(stderr) << "physboard: cannot write " << cli.value(shot) << '\n';
        return ok ? 0 : 1;
    }
    return app.exec();
}
