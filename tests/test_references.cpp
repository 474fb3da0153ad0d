// Every gallery state looks as it did when its reference picture was made: a node that
// moved, a tick that went missing or a colour that changed shows up; antialiasing noise
// does not. After an intended change, scripts/update-references.sh writes them anew.
#include "helpers.h"
#include "pictures.h"
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

TEST(References, EveryGalleryStateLooksAsItsReference)
{
    const QDir refs(QStringLiteral(TEST_DATA_DIR "/reference"));
    const QStringList names = refs.entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
    ASSERT_GT(names.size(), 100) << "no reference pictures in " << qPrintable(refs.path());
    QTemporaryDir dir;
    QProcess gallery;
    gallery.start(QStringLiteral(PHYSLAB_PATH), {QStringLiteral("gallery"), dir.path()});
    ASSERT_TRUE(gallery.waitForFinished(300000));
    ASSERT_EQ(gallery.exitCode(), 0);
    const QString failures = QStringLiteral(ARTEFACT_DIR "/references");
    QDir().mkpath(failures);
    // Every state drawn has a reference, and every reference a state.
    const QStringList drawn = QDir(dir.path()).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
    EXPECT_EQ(drawn, names);
    for (const QString &name : names) {
        const QImage want(refs.filePath(name)), got(QDir(dir.path()).filePath(name));
        ASSERT_FALSE(want.isNull()) << qPrintable(name);
        if (got.isNull())
            continue; // reported above
        EXPECT_EQ(got.size(), want.size()) << qPrintable(name);
        QImage diff;
        const int n = got.size() == want.size() ? differingPixels(got, want, &diff) : got.width() * got.height();
        // A tick a pixel wide and a few long is more than this; rasteriser noise is none.
        EXPECT_LE(n, 12) << qPrintable(name) << ": pictures in " << qPrintable(failures);
        if (n > 12) {
            const QString base = QFileInfo(name).completeBaseName();
            got.save(failures + QLatin1Char('/') + base + QStringLiteral("-actual.png"));
            if (!diff.isNull())
                diff.save(failures + QLatin1Char('/') + base + QStringLiteral("-diff.png"));
        }
    }
}
