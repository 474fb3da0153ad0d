// Fonts, painting and graphics scenes need an application object; tests run it offscreen.
#include <QApplication>
#include <gtest/gtest.h>

// Qt's platform plugin keeps its screen objects until process exit; that is not ours.
extern "C" __attribute__((visibility("default"), used)) const char *__lsan_default_suppressions()
{
    return "leak:libQt5Gui\nleak:libQt5Core\nleak:libqoffscreen\nleak:libfontconfig\n";
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
