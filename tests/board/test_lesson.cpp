// Building a lesson page on the board: many items at once, the clipboard, stacking,
// wires on terminals, ink and text, zoom and presentation, files and exports.
#include "Annotations.h"
#include "BoardView.h"
#include "BoardWindow.h"
#include "Page.h"
#include "PropertyPanel.h"
#include "Strings.h"
#include "Wiring.h"
#include "input.h"
#include <QAbstractButton>
#include <QClipboard>
#include <QDockWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

QUndoStack *stack() { return GetFramework()->undoStack(); }

QList<Annotation *> marks(BoardPage *page)
{
    QList<Annotation *> out;
    for (QGraphicsItem *i : page->pageItems())
        if (i->type() == Annotation::Type)
            out.append(static_cast<Annotation *>(i));
    return out;
}

QPointF terminal(CWBPhysicalObject *obj, int k)
{
    QPointF p;
    Wiring::terminalAt(obj, k, &p);
    return p;
}

double distance(const QPointF &a, const QPointF &b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

} // namespace

class LessonTest : public QObject
{
    Q_OBJECT
    BoardWindow *w = nullptr;
    QWidget *vp() const { return w->view()->viewport(); }
    QPointF onScreen(const QPointF &scene) const { return w->view()->mapFromScene(scene); }
    QPointF centreOf(CWBPhysicalObject *o) const { return onScreen(o->mapToScene(o->itemRect().center())); }

private slots:
    void initTestCase()
    {
        QDir().mkpath(QStringLiteral(ARTEFACT_DIR));
        keepSettingsIn(QStringLiteral(ARTEFACT_DIR "/settings-lesson"));
    }

    void init()
    {
        Strings::setLanguage(Strings::English);
        w = new BoardWindow;
        w->resize(1280, 800);
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w));
    }

    void cleanup()
    {
        QCoreApplication::processEvents();
        w->grab().save(QStringLiteral(ARTEFACT_DIR "/lesson-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
        w->setPresenting(false);
        delete w;
        w = nullptr;
    }

    void pasteKeepsEverythingAndIsOneStep()
    {
        CWBPhysicalObject *ruler = w->place(109, QPointF(300, 200));
        w->applyEdit(QStringLiteral("idPosValue"), QStringLiteral("70"));
        w->view()->select(ruler);
        QVERIFY(w->copySelection());
        const QMimeData *mime = QApplication::clipboard()->mimeData();
        QVERIFY(mime->hasFormat(QLatin1String(BoardWindow::kItemsMime)));
        QVERIFY(!QImage::fromData(mime->data(QStringLiteral("image/png"))).isNull());
        QVERIFY(mime->data(QStringLiteral("image/svg+xml")).startsWith("<?xml"));

        const int steps = stack()->count();
        QTest::keySequence(w, QKeySequence::Paste);
        QCOMPARE(stack()->count(), steps + 1);
        QCOMPARE(w->page()->objects().size(), 2);
        CWBPhysicalObject *copy = w->page()->objects().last();
        const QByteArray record = ruler->content()->record();
        QCOMPARE(copy->content()->record(), record);
        QCOMPARE(copy->pos(), ruler->pos() + QPointF(24, 24));
        QCOMPARE(w->view()->selected(), copy);
        // A second paste lands further on; Ctrl+D copies without the clipboard.
        QVERIFY(w->paste());
        QCOMPARE(w->page()->objects().last()->pos(), ruler->pos() + QPointF(48, 48));
        QTest::keyClick(w, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(w->page()->objects().size(), 4);
        w->undo();
        w->undo();
        w->undo();
        QCOMPARE(w->page()->objects(), QList<CWBPhysicalObject *>{ruler});
        // Cut is one step too, and gives back what it took.
        w->view()->select(ruler);
        QTest::keySequence(w, QKeySequence::Cut);
        QVERIFY(w->page()->objects().isEmpty());
        QVERIFY(w->paste());
        QCOMPARE(w->page()->objects().first()->content()->record(), record);
        // Something else on the clipboard pastes nothing.
        QApplication::clipboard()->setText(QStringLiteral("not apparatus"));
        QVERIFY(!w->paste());
    }

    void manyItemsMoveNudgeAndDeleteAsOneStep()
    {
        CWBPhysicalObject *a = w->place(107, QPointF(200, 200));
        CWBPhysicalObject *b = w->place(700, QPointF(420, 220));
        CWBPhysicalObject *far = w->place(710, QPointF(900, 600));
        // A rubber band over the first two.
        drag(vp(), onScreen(QPointF(60, 60)), onScreen(QPointF(520, 320)));
        QCOMPARE(w->view()->selection().size(), 2);
        QVERIFY(!w->view()->selection().contains(far));
        // Shift-click adds, Ctrl-click takes away, Ctrl+A takes all.
        press(vp(), centreOf(far), Qt::ShiftModifier);
        release(vp(), centreOf(far), Qt::ShiftModifier);
        QCOMPARE(w->view()->selection().size(), 3);
        press(vp(), centreOf(far), Qt::ControlModifier);
        release(vp(), centreOf(far), Qt::ControlModifier);
        QCOMPARE(w->view()->selection().size(), 2);

        const QPointF pa = a->pos(), pb = b->pos();
        const int steps = stack()->count();
        drag(vp(), centreOf(b), centreOf(b) + QPointF(50, 30));
        QCOMPARE(stack()->count(), steps + 1);
        QCOMPARE(b->pos() - pb, a->pos() - pa);
        QVERIFY(a->pos() != pa);
        QCOMPARE(far->pos(), far->pos());
        QTest::keyClick(w->view(), Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(stack()->count(), steps + 2);
        w->undo();
        w->undo();
        QCOMPARE(a->pos(), pa);
        QCOMPARE(b->pos(), pb);

        QTest::keySequence(w, QKeySequence::SelectAll);
        QCOMPARE(w->view()->selection().size(), 3);
        QTest::keyClick(w->view(), Qt::Key_Delete);
        QVERIFY(w->page()->pageItems().isEmpty());
        QCOMPARE(stack()->count(), steps + 1);
        w->undo();
        QCOMPARE(w->page()->objects().size(), 3);
    }

    void stackingOrderSurvivesSaveAndReopen()
    {
        QTemporaryDir dir;
        CWBPhysicalObject *first = w->place(109, QPointF(300, 200));
        CWBPhysicalObject *second = w->place(202, QPointF(320, 210));
        w->view()->select(first);
        w->bringToFront();
        QCOMPARE(w->page()->objects(), (QList<CWBPhysicalObject *>{second, first}));
        w->undo();
        QCOMPARE(w->page()->objects(), (QList<CWBPhysicalObject *>{first, second}));
        w->redo();
        const QString path = dir.filePath(QStringLiteral("order.phb"));
        QVERIFY(w->savePage(path));
        QVERIFY(w->openPage(path));
        QList<int> types;
        for (CWBPhysicalObject *o : w->page()->objects())
            types << o->typeId();
        QCOMPARE(types, (QList<int>{202, 109}));
        w->view()->select(w->page()->objects().last());
        w->sendToBack();
        QCOMPARE(w->page()->objects().first()->typeId(), 109);
    }

    void aWireEndSnapsOntoATerminalAndFollowsIt()
    {
        QTemporaryDir dir;
        // Near enough that the wire's own reach is no limit.
        CWBPhysicalObject *cell = w->place(700, QPointF(520, 300));
        CWBPhysicalObject *wire = w->place(500, QPointF(380, 300));
        const QPointF post = terminal(cell, 0);
        w->view()->select(wire);
        // Drop the wire's last end a few pixels beside the cell's terminal.
        const QPointF end = w->view()->handleDrawnRect(wire, 3).center();
        drag(vp(), end, onScreen(post) + QPointF(6, -5));
        QVERIFY(distance(terminal(wire, 1), post) < 1e-6);
        QCOMPARE(w->page()->links().size(), 1);
        // The snap is one step: undone, the end and its link go; redone, both come back.
        w->undo();
        QVERIFY(w->page()->links().isEmpty());
        QVERIFY(distance(terminal(wire, 1), post) > 1);
        w->redo();
        QCOMPARE(w->page()->links().size(), 1);
        QVERIFY(distance(terminal(wire, 1), post) < 1e-6);

        // The symbol moves: the end comes along, in the same undo step.
        const int steps = stack()->count();
        w->view()->select(cell);
        w->view()->moveSelection(QPointF(40, 70));
        QCOMPARE(stack()->count(), steps + 1);
        QVERIFY(distance(terminal(wire, 1), terminal(cell, 0)) < 1e-6);
        // Turned too.
        w->applyPlacement(PropertyPanel::PlaceRotation, 90);
        QVERIFY(distance(terminal(wire, 1), terminal(cell, 0)) < 1e-6);
        w->undo();
        w->undo();
        QVERIFY(distance(terminal(wire, 1), post) < 1e-6);

        // Saved and reopened, still joined; copied together, the copy is joined too.
        const QString path = dir.filePath(QStringLiteral("circuit.phb"));
        QVERIFY(w->savePage(path));
        QVERIFY(w->openPage(path));
        QCOMPARE(w->page()->links().size(), 1);
        w->view()->selectAll();
        QVERIFY(w->duplicateSelection());
        QCOMPARE(w->page()->links().size(), 2);

        // Alt places an end freely.
        CWBPhysicalObject *free = w->place(500, QPointF(200, 600));
        w->view()->select(free);
        CWBPhysicalObject *other = w->page()->objects().first();
        const QPointF target = onScreen(terminal(other, 1)) + QPointF(5, 5);
        drag(vp(), w->view()->handleDrawnRect(free, 0).center(), target, 8, Qt::AltModifier);
        QVERIFY(distance(terminal(free, 0), terminal(other, 1)) > 1);
        QCOMPARE(w->page()->links().size(), 2);
    }

    void inkTextAndArrowsAreMarksOnThePage()
    {
        QTemporaryDir dir;
        w->view()->setTool(BoardView::PenTool);
        const int steps = stack()->count();
        drag(vp(), QPointF(100, 100), QPointF(300, 180), 20);
        QCOMPARE(stack()->count(), steps + 1);
        QCOMPARE(marks(w->page()).size(), 1);
        auto *ink = static_cast<InkStroke *>(marks(w->page()).first());
        QVERIFY(ink->points().size() > 10);
        // Recoloured from the panel in one step; the next stroke takes the colour too.
        QCOMPARE(w->view()->primary(), ink);
        auto *swatch = w->panel()->findChild<ColorButton *>(QStringLiteral("markColor"));
        QVERIFY(swatch);
        swatch->setColor(Qt::red, true);
        QCOMPARE(ink->color(), QColor(Qt::red));
        QCOMPARE(stack()->count(), steps + 2);
        w->undo();
        QVERIFY(ink->color() != QColor(Qt::red));
        drag(vp(), QPointF(100, 400), QPointF(200, 420), 10);
        QCOMPARE(marks(w->page()).last()->color(), QColor(Qt::red));
        w->undo();
        QCOMPARE(stack()->count(), steps + 2);
        stack()->setIndex(steps + 1); // the first stroke only
        QCOMPARE(stack()->count(), steps + 2);
        QCOMPARE(marks(w->page()).size(), 1);

        w->view()->setTool(BoardView::ArrowTool);
        drag(vp(), QPointF(400, 300), QPointF(520, 260));
        w->view()->setTool(BoardView::TextTool);
        QTest::mouseClick(vp(), Qt::LeftButton, {}, QPoint(600, 120));
        auto *editor = w->view()->findChild<QPlainTextEdit *>(QStringLiteral("textEditor"));
        QVERIFY(editor);
        QTest::keyClicks(editor, QStringLiteral("F = ma"));
        QTest::keyClick(editor, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(marks(w->page()).size(), 3);
        QCOMPARE(stack()->index(), steps + 3);

        QList<QByteArray> before;
        for (Annotation *m : marks(w->page()))
            before << m->data();
        const QString path = dir.filePath(QStringLiteral("notes.phb"));
        QVERIFY(w->savePage(path));
        QVERIFY(w->openPage(path));
        QList<QByteArray> after;
        for (Annotation *m : marks(w->page()))
            after << m->data();
        QCOMPARE(after, before);
        QCOMPARE(static_cast<TextNote *>(marks(w->page()).last())->text(), QStringLiteral("F = ma"));
        // Marks export with the page.
        const QString svg = dir.filePath(QStringLiteral("notes.svg"));
        QVERIFY(w->exportPage(svg));
        QFile f(svg);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray text = f.readAll();
        QVERIFY(text.contains("<polyline") && text.contains("F = ma"));
    }

    void headlessExportWritesValidFiles()
    {
        QTemporaryDir dir;
        w->fillDemoPage();
        const QString page = dir.filePath(QStringLiteral("demo.phb"));
        QVERIFY(w->savePage(page));
        for (const char *suffix : {"pdf", "png", "svg"}) {
            const QString out = dir.filePath(QStringLiteral("demo.") + QLatin1String(suffix));
            QProcess p;
            p.start(QStringLiteral(PHYSBOARD_BIN), {page, QStringLiteral("--export"), out});
            QVERIFY(p.waitForFinished(30000));
            QCOMPARE(p.exitCode(), 0);
            QFile f(out);
            QVERIFY(f.open(QIODevice::ReadOnly));
            const QByteArray bytes = f.readAll();
            if (QLatin1String(suffix) == QLatin1String("pdf")) {
                QVERIFY(bytes.startsWith("%PDF-"));
                // Drawn as paths, not pasted in as one picture.
                QVERIFY(!bytes.contains("/Subtype /Image"));
                QFile::remove(QStringLiteral(ARTEFACT_DIR "/export.pdf"));
                QFile::copy(out, QStringLiteral(ARTEFACT_DIR "/export.pdf"));
            } else if (QLatin1String(suffix) == QLatin1String("png")) {
                QVERIFY(!QImage::fromData(bytes, "PNG").isNull());
            } else {
                QVERIFY(bytes.contains("<svg") && bytes.trimmed().endsWith("</svg>"));
                // Every apparatus names its nodes alike; on one page they stay apart.
                QSet<QString> ids;
                static const QRegularExpression id(QStringLiteral("\\bid=\"([^\"]+)\""));
                for (auto it = id.globalMatch(QString::fromUtf8(bytes)); it.hasNext();) {
                    const QString one = it.next().captured(1);
                    QVERIFY2(!ids.contains(one), qPrintable(one));
                    ids.insert(one);
                }
                QVERIFY(ids.size() > 10);
            }
        }
        // Printing goes through the same painter: a PDF printer gets the page.
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        const QString printed = dir.filePath(QStringLiteral("printed.pdf"));
        printer.setOutputFileName(printed);
        QVERIFY(w->printPage(&printer));
        QFile pf(printed);
        QVERIFY(pf.open(QIODevice::ReadOnly) && pf.read(5) == "%PDF-");
        // Failures say why and exit non-zero.
        QProcess missing;
        missing.start(QStringLiteral(PHYSBOARD_BIN), {dir.filePath(QStringLiteral("none.phb")), QStringLiteral("--export"),
                                                      dir.filePath(QStringLiteral("x.pdf"))});
        QVERIFY(missing.waitForFinished(30000));
        QVERIFY(missing.exitCode() != 0);
        QVERIFY(missing.readAllStandardError().contains("none.phb"));
        QProcess badSuffix;
        badSuffix.start(QStringLiteral(PHYSBOARD_BIN), {page, QStringLiteral("--export"), dir.filePath(QStringLiteral("x.doc"))});
        QVERIFY(badSuffix.waitForFinished(30000));
        QVERIFY(badSuffix.exitCode() != 0);
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("x.doc"))));
    }

    void promptsAndFieldsBehave()
    {
        w->place(107, QPointF(300, 300));
        QScopedPointer<QMessageBox> box(w->makeDiscardPrompt());
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::Save));
        QVERIFY(box->button(QMessageBox::Discard) && box->button(QMessageBox::Cancel));
        QVERIFY(!box->windowTitle().contains(QLatin1Char('&')));
        for (const char *key : {"BOARD_OPEN", "BOARD_SAVE_AS", "BOARD_EXPORT_PAGE", "BOARD_PRINT"})
            for (Strings::Language l : {Strings::English, Strings::Chinese}) {
                Strings::setLanguage(l);
                QVERIFY2(!Strings::plain(QLatin1String(key)).contains(QLatin1Char('&')), key);
            }
        Strings::setLanguage(Strings::English);
        // Left and top stay on the page.
        w->applyPlacement(PropertyPanel::PlaceX, 999999);
        w->applyPlacement(PropertyPanel::PlaceY, -5000);
        QCOMPARE(w->view()->selected()->pos(), QPointF(BoardPage::pageRect().right(), 0));
        // New items take free spots near the centre instead of piling up.
        w->newPage();
        QList<QRectF> taken;
        for (int i = 0; i < 5; ++i) {
            CWBPhysicalObject *o = w->placeAtFreeSpot(403);
            const QRectF r = o->mapRectToScene(o->itemRect());
            for (const QRectF &t : taken)
                QVERIFY(!t.intersects(r));
            taken << r;
        }
        // The wire and the lamp offer their colours.
        w->view()->select(w->place(500, QPointF(100, 700)));
        QVERIFY(w->panel()->findChild<ColorButton *>(PropertyPanel::hostColorId(CSVGBase::PROP_COLOR)));
        w->view()->select(w->place(704, QPointF(300, 700)));
        QVERIFY(w->panel()->findChild<ColorButton *>(PropertyPanel::hostColorId(CSVGBase::PROP_LAMP_COLOR)));
    }

    void settingsAreRememberedBetweenRuns()
    {
        QTemporaryDir dir;
        w->place(107, QPointF(300, 300));
        const QString path = dir.filePath(QStringLiteral("kept.phb"));
        QVERIFY(w->savePage(path));
        w->setLanguage(Strings::Chinese);
        BoardWindow next;
        Strings::setLanguage(Strings::English);
        next.restoreSettings();
        QCOMPARE(Strings::language(), Strings::Chinese);
        QCOMPARE(next.recentFiles().value(0), QFileInfo(path).absoluteFilePath());
        next.setLanguage(Strings::English);
    }

    void zoomKeepsThePointUnderTheCursor()
    {
        BoardView *v = w->view();
        const QPoint at(400, 300);
        const QPointF before = v->mapToScene(at);
        v->setZoom(2.5, at);
        QVERIFY(distance(v->mapToScene(at), before) < 1);
        QTest::keyClick(w, Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(v->zoom(), 1.0);
        QTest::keyClick(w, Qt::Key_0, Qt::ControlModifier);
        const QRectF seen = v->mapToScene(v->viewport()->rect()).boundingRect();
        QVERIFY(seen.contains(BoardPage::pageRect()));
        v->setZoom(100);
        QCOMPARE(v->zoom(), BoardView::kMaxZoom);
    }

    void presentationShowsHandlesOnlyWhereThePointerIs()
    {
        w->fillDemoPage();
        QTest::keyClick(w, Qt::Key_F5);
        QVERIFY(w->presenting());
        QVERIFY(!w->menuBar()->isVisible());
        for (QDockWidget *d : w->findChildren<QDockWidget *>())
            QVERIFY(!d->isVisible());
        QList<CWBPhysicalObject *> objs = w->page()->objects();
        for (CWBPhysicalObject *o : objs)
            QVERIFY(!o->handlesVisible());
        CWBPhysicalObject *ruler = objs.first();
        QTest::mouseMove(vp(), centreOf(ruler).toPoint());
        moveTo(vp(), centreOf(ruler));
        QMouseEvent hover(QEvent::MouseMove, centreOf(ruler), vp()->mapToGlobal(centreOf(ruler).toPoint()), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(vp(), &hover);
        QVERIFY(ruler->handlesVisible());
        QCOMPARE(objs.count(ruler), 1);
        // Nothing moves in a presentation.
        const QPointF at = ruler->pos();
        drag(vp(), centreOf(ruler) + QPointF(0, 2), centreOf(ruler) + QPointF(80, 2));
        QCOMPARE(ruler->pos(), at);
        w->grab().save(QStringLiteral(ARTEFACT_DIR "/lesson-presentation.png"));
        QTest::keyClick(w->view(), Qt::Key_Escape);
        QVERIFY(!w->presenting());
        for (CWBPhysicalObject *o : w->page()->objects())
            QVERIFY(o->handlesVisible());
        w->setLanguage(Strings::Chinese);
        QCoreApplication::processEvents();
        w->grab().save(QStringLiteral(ARTEFACT_DIR "/lesson-chinese.png"));
        w->setLanguage(Strings::English);
    }
};

QTEST_MAIN(LessonTest)
#include "test_lesson.moc"
