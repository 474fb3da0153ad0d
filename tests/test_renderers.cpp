// What an apparatus writes is drawn alike by another renderer: every gallery state's
// SVG, drawn by librsvg (rsvg-convert) and by our painter, agrees up to antialiasing.
// Where rsvg-convert is not installed the comparison is skipped.
#include "helpers.h"
#include "pictures.h"
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

constexpr double kScale = 2;

} // namespace

TEST(Renderers, EveryGalleryStateDrawsAlikeInLibrsvg)
{
    const QString rsvg = QStandardPaths::findExecutable(QStringLiteral("rsvg-convert"));
    if (rsvg.isEmpty())
        GTEST_SKIP() << "rsvg-convert is not installed";
    QTemporaryDir dir;
    QProcess gallery;
    gallery.start(QStringLiteral(PHYSLAB_PATH), {QStringLiteral("gallery"), dir.filePath(QStringLiteral("g"))});
    ASSERT_TRUE(gallery.waitForFinished(300000));
    ASSERT_EQ(gallery.exitCode(), 0);
    const QDir g(dir.filePath(QStringLiteral("g")));
    const QString failures = QStringLiteral(ARTEFACT_DIR "/renderers");
    QDir().mkpath(failures);
    int compared = 0;
    for (const QString &name : g.entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name)) {
        QFile f(g.filePath(name));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        std::unique_ptr<QSvgTinyDocument> doc(QSvgTinyDocument::load(f.readAll()));
        ASSERT_TRUE(doc) << qPrintable(name);
        // The drawing as a worksheet gets it: no handles.
        QSvgTinyDocument::WriteOptions o;
        o.handles = false;
        const QString plain = dir.filePath(QStringLiteral("plain-") + name);
        {
            QFile out(plain);
            ASSERT_TRUE(out.open(QIODevice::WriteOnly));
            out.write(doc->toSvg(o));
        }
        const QString theirs = dir.filePath(name + QStringLiteral(".png"));
        QProcess p;
        p.start(rsvg, {QStringLiteral("-z"), QString::number(kScale), QStringLiteral("-b"), QStringLiteral("white"), plain,
                       QStringLiteral("-o"), theirs});
        ASSERT_TRUE(p.waitForFinished(30000));
        ASSERT_EQ(p.exitCode(), 0) << qPrintable(name) << p.readAllStandardError().constData();
        const QImage other(theirs);
        ASSERT_FALSE(other.isNull()) << qPrintable(name);
        QImage ours(other.size(), QImage::Format_ARGB32_Premultiplied);
        ours.fill(Qt::white);
        {
            QPainter painter(&ours);
            painter.setRenderHint(QPainter::Antialiasing);
            doc->render(&painter, QRectF(QPointF(0, 0), doc->size() * kScale), false);
        }
        QImage diff;
        const int n = differingPixels(ours, other, &diff);
        // A misplaced node, a missing part or a wrong colour differs over far more.
        const int allowed = std::max(12, int(0.004 * ours.width() * ours.height()));
        EXPECT_LE(n, allowed) << qPrintable(name) << ": pictures in " << qPrintable(failures);
        if (n > allowed) {
            const QString base = QFileInfo(name).completeBaseName();
            ours.save(failures + QLatin1Char('/') + base + QStringLiteral("-ours.png"));
            other.save(failures + QLatin1Char('/') + base + QStringLiteral("-librsvg.png"));
            diff.save(failures + QLatin1Char('/') + base + QStringLiteral("-diff.png"));
        }
        ++compared;
    }
    EXPECT_GT(compared, 60);
}
