// The board window's work on the selection (clipboard, stacking order), its views
// (zoom, presentation, tools), printing, and what it keeps between runs.
#include "Annotations.h"
#include "BoardView.h"
#include "BoardWindow.h"
#include "Commands.h"
#include "Page.h"
#include "PropertyPanel.h"
#include "Recorder.h"
#include "Strings.h"
#include "Toolbox.h"
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDockWidget>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QSettings>
#include <QStatusBar>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

QString T(const char *key) { return Strings::text(QLatin1String(key)); }
QUndoStack *undoStack() { return GetFramework()->undoStack(); }
constexpr int kRecentCount = 8;
constexpr double kPasteOffset = 24;

} // namespace

void BoardWindow::buildViewMenus()
{
    m_viewMenu = menuBar()->addMenu(QString());
    m_zoomIn = m_viewMenu->addAction(QString(), this, [this]() { m_view->setZoom(m_view->zoom() * 1.25); });
    m_zoomIn->setShortcuts({QKeySequence::ZoomIn, QKeySequence(Qt::CTRL + Qt::Key_Equal)});
    m_zoomOut = m_viewMenu->addAction(QString(), this, [this]() { m_view->setZoom(m_view->zoom() / 1.25); });
    m_zoomOut->setShortcut(QKeySequence::ZoomOut);
    m_zoomFit = m_viewMenu->addAction(QString(), m_view, &BoardView::zoomToFit);
    m_zoomFit->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_0));
    m_zoom100 = m_viewMenu->addAction(QString(), this, [this]() { m_view->setZoom(1); });
    m_zoom100->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_1));
    m_viewMenu->addSeparator();
    m_present = m_viewMenu->addAction(QString(), this, [this]() { setPresenting(!presenting()); });
    m_present->setShortcut(QKeySequence(Qt::Key_F5));
    // Kept on the window, so that F5 and Esc work while the menu bar is hidden.
    addAction(m_present);

    m_toolMenu = menuBar()->addMenu(QString());
    auto *group = new QActionGroup(this);
    const QKeySequence keys[4] = {QKeySequence(Qt::Key_V), QKeySequence(Qt::Key_P), QKeySequence(Qt::Key_T), QKeySequence(Qt::Key_A)};
    for (int i = 0; i < 4; ++i) {
        m_tools[i] = m_toolMenu->addAction(QString(), this, [this, i]() { m_view->setTool(BoardView::Tool(i)); });
        m_tools[i]->setCheckable(true);
        m_tools[i]->setShortcut(keys[i]);
        group->addAction(m_tools[i]);
    }
    m_tools[0]->setChecked(true);
}

void BoardWindow::updateEditActions()
{
    const bool any = !m_view->selection().isEmpty();
    for (QAction *a : {m_cut, m_copy, m_duplicate, m_delete, m_front, m_back, m_exportItem})
        a->setEnabled(any);
    m_tools[m_view->tool()]->setChecked(true);
}

QMimeData *BoardWindow::mimeFor(const QList<QGraphicsItem *> &items, const QVector<WireLink> &links)
{
    auto *mime = new QMimeData;
    PageContent c;
    c.items = items;
    c.links = links;
    mime->setData(QLatin1String(kItemsMime), BoardPage::serialize(c));
    // A picture for worksheets in other programs.
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    const QImage image = BoardPage::itemsImage(items, 2);
    if (!image.isNull() && image.save(&buffer, "PNG")) {
        mime->setData(QStringLiteral("image/png"), png);
        mime->setImageData(image);
    }
    mime->setData(QStringLiteral("image/svg+xml"), BoardPage::itemsSvg(items));
    return mime;
}

bool BoardWindow::copySelection()
{
    const QList<QGraphicsItem *> items = m_view->selection();
    if (items.isEmpty())
        return false;
    QMimeData *mime = mimeFor(items, m_page->linksOf(items));
    m_lastCopy = mime->data(QLatin1String(kItemsMime));
    m_pasteCount = 0;
    QApplication::clipboard()->setMimeData(mime);
    return true;
}

void BoardWindow::cutSelection()
{
    if (!copySelection() || m_view->presenting())
        return;
    deleteSelected();
    // A cut puts the items back where they were on the first paste.
    m_pasteCount = -1;
}

bool BoardWindow::pasteContent(PageContent &content, const QPointF &offset, const QString &text)
{
    if (content.items.isEmpty())
        return false;
    if (m_page->objects().size() + content.objects().size() > BoardPage::kMaxObjects) {
        content.release();
        fail(T("BOARD_PAGE_FULL").arg(BoardPage::kMaxObjects));
        return false;
    }
    // Above everything, in their own order.
    double z = m_page->topZ() + 1;
    for (QGraphicsItem *i : content.items) {
        i->setPos(i->pos() + offset);
        i->setZValue(z++);
        if (m_view->presenting())
            if (CWBPhysicalObject *o = BoardPage::asObject(i))
                o->setHandlesVisible(false);
    }
    const QVector<WireLink> before = m_page->links();
    undoStack()->beginMacro(text);
    GetFramework()->pushUndo(new AddItemsCmd(m_page, content.items, text));
    if (!content.links.isEmpty()) {
        m_page->setLinks(before + content.links);
        GetFramework()->pushUndo(new LinkCmd(m_page, before, m_page->links(), text));
    }
    undoStack()->endMacro();
    m_view->setSelection(content.items);
    growPage();
    return true;
}

bool BoardWindow::paste()
{
    if (m_recorder->isPlaying() || m_view->presenting())
        return false;
    const QMimeData *mime = QApplication::clipboard()->mimeData();
    if (!mime || !mime->hasFormat(QLatin1String(kItemsMime))) {
        fail(T("BOARD_ERR_PASTE"));
        return false;
    }
    const QByteArray bytes = mime->data(QLatin1String(kItemsMime));
    PageContent content;
    QString err;
    if (!BoardPage::deserialize(bytes, &content, &err)) {
        fail(T("BOARD_ERR_PASTE"));
        return false;
    }
    // Each paste of the same copy lands one step further from the original.
    if (bytes != m_lastCopy) {
        m_lastCopy = bytes;
        m_pasteCount = 0;
    }
    ++m_pasteCount;
    return pasteContent(content, QPointF(kPasteOffset, kPasteOffset) * m_pasteCount, T("BOARD_CMD_PASTE"));
}

bool BoardWindow::duplicateSelection()
{
    const QList<QGraphicsItem *> items = m_view->selection();
    if (items.isEmpty() || m_view->presenting())
        return false;
    PageContent c;
    c.items = items;
    c.links = m_page->linksOf(items);
    PageContent copy;
    if (!BoardPage::deserialize(BoardPage::serialize(c), &copy, nullptr))
        return false;
    return pasteContent(copy, QPointF(kPasteOffset, kPasteOffset), T("BOARD_CMD_DUPLICATE"));
}

void BoardWindow::bringToFront()
{
    const QList<QGraphicsItem *> items = m_view->selection();
    if (items.isEmpty())
        return;
    QVector<StackItemsCmd::Change> changes;
    double z = m_page->topZ() + 1;
    for (QGraphicsItem *i : items) {
        changes.append({i, i->zValue(), z});
        i->setZValue(z++);
    }
    GetFramework()->pushUndo(new StackItemsCmd(changes, T("BOARD_CMD_FRONT")));
}

void BoardWindow::sendToBack()
{
    const QList<QGraphicsItem *> items = m_view->selection();
    if (items.isEmpty())
        return;
    QVector<StackItemsCmd::Change> changes;
    double z = m_page->bottomZ() - items.size();
    for (QGraphicsItem *i : items) {
        changes.append({i, i->zValue(), z});
        i->setZValue(z++);
    }
    GetFramework()->pushUndo(new StackItemsCmd(changes, T("BOARD_CMD_BACK")));
}

bool BoardWindow::printPage(QPrinter *printer)
{
    const QList<QGraphicsItem *> items = m_page->pageItems();
    if (items.isEmpty()) {
        fail(T("BOARD_ERR_NOTHING"));
        return false;
    }
    QPainter p;
    if (!p.begin(printer)) {
        fail(T("BOARD_ERR_EXPORT").arg(printer->outputFileName()));
        return false;
    }
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF source = BoardPage::exportRect(items);
    const QRectF sheet = printer->pageLayout().paintRectPixels(printer->resolution());
    // Fitted to the sheet, centred, proportions kept.
    const double k = qMin(sheet.width() / source.width(), sheet.height() / source.height());
    QRectF target(0, 0, source.width() * k, source.height() * k);
    target.moveCenter(QRectF(QPointF(0, 0), sheet.size()).center());
    BoardPage::paintItems(&p, items, source, target);
    p.end();
    statusBar()->showMessage(T("BOARD_PRINTED"));
    return true;
}

void BoardWindow::printInteractive()
{
    QPrinter printer(QPrinter::HighResolution);
    const QRectF r = m_page->contentBounds();
    printer.setPageOrientation(r.width() > r.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(Strings::plain(QStringLiteral("BOARD_PRINT")));
    if (dialog.exec() == QDialog::Accepted && !printPage(&printer))
        QMessageBox::warning(this, Strings::plain(QStringLiteral("BOARD_ERROR")), m_lastError);
}

bool BoardWindow::presenting() const { return m_view->presenting(); }

void BoardWindow::setPresenting(bool on)
{
    if (on == presenting())
        return;
    m_view->setPresenting(on);
    menuBar()->setVisible(!on);
    statusBar()->setVisible(!on);
    m_toolDock->setVisible(!on);
    m_panelDock->setVisible(!on);
    if (on) {
        showFullScreen();
        m_view->zoomToFit();
    } else {
        showNormal();
    }
    m_view->setFocus();
    updateEditActions();
}

QString BoardWindow::folder() const { return m_lastFolder.isEmpty() ? QDir::homePath() : m_lastFolder; }

void BoardWindow::addRecent(const QString &path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    m_recent.removeAll(full);
    m_recent.prepend(full);
    while (m_recent.size() > kRecentCount)
        m_recent.removeLast();
    m_lastFolder = QFileInfo(full).absolutePath();
    rebuildRecentMenu();
    saveSettings();
}

void BoardWindow::rebuildRecentMenu()
{
    m_recentMenu->clear();
    for (int i = 0; i < m_recent.size(); ++i) {
        const QString path = m_recent[i];
        QAction *a = m_recentMenu->addAction(QStringLiteral("&%1  %2").arg(i + 1).arg(QFileInfo(path).fileName()), this, [this, path]() {
            if (confirmDiscard() && !openPage(path))
                QMessageBox::warning(this, Strings::plain(QStringLiteral("BOARD_ERROR")), m_lastError);
        });
        a->setToolTip(path);
        a->setStatusTip(path);
    }
    m_recentMenu->addSeparator();
    QAction *clear = m_recentMenu->addAction(T("BOARD_RECENT_CLEAR"), this, [this]() {
        m_recent.clear();
        rebuildRecentMenu();
        saveSettings();
    });
    clear->setEnabled(!m_recent.isEmpty());
    m_recentMenu->setEnabled(true);
}

void BoardWindow::restoreSettings()
{
    // Read everything first: applying the language saves the settings again.
    QSettings s;
    // The saved choice, else the system's language (main.cpp lets --lang override both).
    const QString saved = s.value(QStringLiteral("language")).toString();
    const bool chinese = saved.isEmpty() ? Strings::systemLanguage() == Strings::Chinese : saved == QLatin1String("zh");
    const QByteArray geometry = s.value(QStringLiteral("geometry")).toByteArray();
    const QByteArray state = s.value(QStringLiteral("windowState")).toByteArray();
    m_lastFolder = s.value(QStringLiteral("lastFolder")).toString();
    m_recent = s.value(QStringLiteral("recentFiles")).toStringList().mid(0, kRecentCount);
    if (!geometry.isEmpty())
        restoreGeometry(geometry);
    if (!state.isEmpty())
        restoreState(state);
    setLanguage(chinese ? Strings::Chinese : Strings::English);
}

void BoardWindow::saveSettings() const
{
    QSettings s;
    s.setValue(QStringLiteral("language"), Strings::language() == Strings::Chinese ? QStringLiteral("zh") : QStringLiteral("en"));
    if (!presenting()) {
        s.setValue(QStringLiteral("geometry"), saveGeometry());
        s.setValue(QStringLiteral("windowState"), saveState());
    }
    s.setValue(QStringLiteral("lastFolder"), m_lastFolder);
    s.setValue(QStringLiteral("recentFiles"), m_recent);
}
