#include "BoardWindow.h"
#include "Annotations.h"
#include "BoardView.h"
#include "Commands.h"
#include "Page.h"
#include "PropertyPanel.h"
#include "Recorder.h"
#include "Strings.h"
#include "Toolbox.h"
#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <cmath>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QScrollArea>
#include <QStatusBar>
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

QUndoStack *undoStack() { return GetFramework()->undoStack(); }
QString T(const char *key) { return Strings::text(QLatin1String(key)); }

} // namespace

BoardWindow::BoardWindow(QWidget *parent) : QMainWindow(parent)
{
    // A lesson's worth of history; older steps drop off instead of piling up all day.
    if (undoStack()->count() == 0)
        undoStack()->setUndoLimit(kUndoLimit);
    // Handles big enough for a finger at any zoom.
    CSVGObj::setMinHandlePixels(BoardView::kMinHandlePixels);
    m_page = new BoardPage(this);
    m_view = new BoardView(m_page, this);
    setCentralWidget(m_view);

    m_toolbox = new Toolbox(this);
    m_toolDock = new QDockWidget(this);
    m_toolDock->setObjectName(QStringLiteral("toolbox"));
    m_toolDock->setWidget(m_toolbox);
    m_toolDock->setFeatures(QDockWidget::DockWidgetMovable);
    addDockWidget(Qt::LeftDockWidgetArea, m_toolDock);

    m_recorder = new Recorder(m_page, this);
    m_panel = new PropertyPanel(this);
    auto *scroll = new QScrollArea(this);
    scroll->setWidget(m_panel);
    scroll->setWidgetResizable(true);
    scroll->setMinimumWidth(260);
    m_panelDock = new QDockWidget(this);
    m_panelDock->setObjectName(QStringLiteral("properties"));
    m_panelDock->setWidget(scroll);
    m_panelDock->setFeatures(QDockWidget::DockWidgetMovable);
    addDockWidget(Qt::RightDockWidgetArea, m_panelDock);

    connect(m_toolbox, &Toolbox::placeRequested, this, [this](int type) { placeAtFreeSpot(type); });
    connect(m_view, &BoardView::dropRequested, this, [this](int type, const QPointF &p) { place(type, p); });
    connect(m_view, &BoardView::selectionChanged, this, &BoardWindow::onSelectionChanged);
    connect(m_view, &BoardView::deleteRequested, this, &BoardWindow::deleteSelected);
    connect(m_view, &BoardView::presentationLeft, this, [this]() { setPresenting(false); });
    connect(m_view, &BoardView::handleMoved, this, [this](CWBPhysicalObject *, bool final) {
        // Live values come through message 100; the end of a drag settles the rest.
        if (final) {
            m_panel->refreshValues();
            growPage();
        }
    });
    connect(m_panel, &PropertyPanel::edited, this, &BoardWindow::applyEdit);
    connect(m_panel, &PropertyPanel::placementEdited, this, &BoardWindow::applyPlacement);
    auto editMark = [this](const std::function<void(Annotation *)> &change) {
        Annotation *mark = m_panel->mark();
        if (!mark || mark->scene() != m_page)
            return;
        const QByteArray from = mark->data();
        change(mark);
        if (mark->data() != from)
            GetFramework()->pushUndo(new MarkDataCmd(mark, from, mark->data(), T("BOARD_CMD_EDIT").arg(BoardPage::nameOf(mark))));
        // New marks of the kind are drawn the same way.
        m_view->setMarkStyle(mark->kind(), mark->color(), mark->size());
        m_view->refreshOverlay();
    };
    connect(m_panel, &PropertyPanel::markColorEdited, this, [editMark](const QColor &c) {
        editMark([c](Annotation *m) { m->setColor(c); });
    });
    connect(m_panel, &PropertyPanel::markSizeEdited, this, [editMark](double v) {
        editMark([v](Annotation *m) { m->setSize(v); });
    });
    connect(m_panel, &PropertyPanel::hostColorEdited, this, [this](int id, const QColor &c) {
        CWBPhysicalObject *obj = m_panel->object();
        if (!obj || !obj->content() || obj->scene() != m_page)
            return;
        QByteArray bytes;
        {
            QDataStream out(&bytes, QIODevice::WriteOnly);
            out << c;
        }
        nameNewStep([&]() { obj->content()->editAttribute(id, bytes); }, T("BOARD_CMD_EDIT").arg(Strings::typeName(obj->typeId())));
        obj->update();
        m_panel->rebuild();
    });
    connect(m_panel, &PropertyPanel::notice, this, [this](const QString &text) { statusBar()->showMessage(text, 8000); });
    m_observer = GetFramework()->addObserver([this](int message, const QByteArray &json) {
        if (message == CFramework::MSG_SETTINGS_CHANGED)
            m_panel->applyMessage(json);
    });

    buildMenus();
    updateEditActions();
    m_capture->setEnabled(false);
    m_restore->setEnabled(false);
    connect(m_recorder, &Recorder::progress, this, [this](int done, int total) {
        statusBar()->showMessage(T("BOARD_PLAYING").arg(done).arg(total));
    });
    connect(m_recorder, &Recorder::finished, this, [this]() {
        setPlaying(false);
        updatePlaybackActions();
    });
    updatePlaybackActions();
    connect(undoStack(), &QUndoStack::indexChanged, this, &BoardWindow::afterUndoRedo);
    connect(undoStack(), &QUndoStack::cleanChanged, this, &BoardWindow::updateTitle);
    connect(undoStack(), &QUndoStack::canUndoChanged, m_undo, &QAction::setEnabled);
    connect(undoStack(), &QUndoStack::canRedoChanged, m_redo, &QAction::setEnabled);
    undoStack()->clear();
    m_undo->setEnabled(false);
    m_redo->setEnabled(false);
    retranslate();
    resize(1280, 800);
}

BoardWindow::~BoardWindow()
{
    GetFramework()->removeObserver(m_observer);
    disconnect(undoStack(), nullptr, this, nullptr);
    disconnect(undoStack(), nullptr, m_undo, nullptr);
    disconnect(undoStack(), nullptr, m_redo, nullptr);
    m_view->select(nullptr);
    // Steps may own objects taken off the page; they go first.
    undoStack()->clear();
    m_page->clearPage();
}

void BoardWindow::buildMenus()
{
    m_fileMenu = menuBar()->addMenu(QString());
    m_new = m_fileMenu->addAction(QString(), this, [this]() {
        if (confirmDiscard())
            newPage();
    });
    m_new->setShortcut(QKeySequence::New);
    m_open = m_fileMenu->addAction(QString(), this, &BoardWindow::openInteractive);
    m_open->setShortcut(QKeySequence::Open);
    m_save = m_fileMenu->addAction(QString(), this, [this]() { saveInteractive(false); });
    m_save->setShortcut(QKeySequence::Save);
    m_saveAs = m_fileMenu->addAction(QString(), this, [this]() { saveInteractive(true); });
    // Not every platform binds a key to Save As; the board always does.
    m_saveAs->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S));
    m_recentMenu = m_fileMenu->addMenu(QString());
    m_recentMenu->setObjectName(QStringLiteral("recentMenu"));
    m_fileMenu->addSeparator();
    m_exportPage = m_fileMenu->addAction(QString(), this, [this]() { exportInteractive(false); });
    m_exportItem = m_fileMenu->addAction(QString(), this, [this]() { exportInteractive(true); });
    m_print = m_fileMenu->addAction(QString(), this, &BoardWindow::printInteractive);
    m_print->setShortcut(QKeySequence::Print);
    m_fileMenu->addSeparator();
    m_quit = m_fileMenu->addAction(QString(), this, &QWidget::close);
    m_quit->setShortcut(QKeySequence::Quit);

    m_editMenu = menuBar()->addMenu(QString());
    m_undo = m_editMenu->addAction(QString(), this, &BoardWindow::undo);
    m_undo->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Z));
    m_redo = m_editMenu->addAction(QString(), this, &BoardWindow::redo);
    m_redo->setShortcuts({QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z), QKeySequence(Qt::CTRL + Qt::Key_Y)});
    m_editMenu->addSeparator();
    m_cut = m_editMenu->addAction(QString(), this, &BoardWindow::cutSelection);
    m_cut->setShortcut(QKeySequence::Cut);
    m_copy = m_editMenu->addAction(QString(), this, &BoardWindow::copySelection);
    m_copy->setShortcut(QKeySequence::Copy);
    m_paste = m_editMenu->addAction(QString(), this, &BoardWindow::paste);
    m_paste->setShortcut(QKeySequence::Paste);
    m_duplicate = m_editMenu->addAction(QString(), this, &BoardWindow::duplicateSelection);
    m_duplicate->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_D));
    m_delete = m_editMenu->addAction(QString(), this, &BoardWindow::deleteSelected);
    m_selectAll = m_editMenu->addAction(QString(), m_view, &BoardView::selectAll);
    m_selectAll->setShortcut(QKeySequence::SelectAll);
    m_editMenu->addSeparator();
    m_front = m_editMenu->addAction(QString(), this, &BoardWindow::bringToFront);
    m_front->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_BracketRight));
    m_back = m_editMenu->addAction(QString(), this, &BoardWindow::sendToBack);
    m_back->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_BracketLeft));
    m_resetTransform = m_editMenu->addAction(QString(), this, [this]() {
        CWBPhysicalObject *obj = m_view->selected();
        if (!obj)
            return;
        const ItemPlacement from = ItemPlacement::of(obj);
        const QPointF centre = obj->mapToScene(obj->itemRect().center());
        ItemPlacement to{centre - obj->itemRect().center(), 0, 1};
        if (to == from)
            return;
        to.applyTo(obj);
        m_view->commitPlacement({{obj, from, to}}, T("BOARD_CMD_SCALE").arg(Strings::typeName(obj->typeId())));
    });

    m_editMenu->addSeparator();
    m_capture = m_editMenu->addAction(QString(), this, &BoardWindow::captureSelected);
    m_restore = m_editMenu->addAction(QString(), this, &BoardWindow::restoreSelected);

    buildViewMenus();

    m_playMenu = menuBar()->addMenu(QString());
    m_record = m_playMenu->addAction(QString(), this, &BoardWindow::startRecording);
    m_stopRecord = m_playMenu->addAction(QString(), this, &BoardWindow::stopRecording);
    m_play = m_playMenu->addAction(QString(), this, [this]() {
        if (confirmDiscard())
            playBack(600);
    });

    m_langMenu = menuBar()->addMenu(QString());
    auto *group = new QActionGroup(this);
    m_english = m_langMenu->addAction(QString(), this, [this]() { setLanguage(Strings::English); });
    m_chinese = m_langMenu->addAction(QString(), this, [this]() { setLanguage(Strings::Chinese); });
    for (QAction *a : {m_english, m_chinese}) {
        a->setCheckable(true);
        group->addAction(a);
    }
    m_english->setChecked(Strings::language() == Strings::English);
    m_chinese->setChecked(Strings::language() == Strings::Chinese);
}

void BoardWindow::retranslate()
{
    m_fileMenu->setTitle(T("BOARD_MENU_FILE"));
    m_editMenu->setTitle(T("BOARD_MENU_EDIT"));
    m_langMenu->setTitle(T("BOARD_MENU_LANGUAGE"));
    m_playMenu->setTitle(T("BOARD_MENU_PLAYBACK"));
    m_record->setText(T("BOARD_RECORD"));
    m_stopRecord->setText(T("BOARD_STOP_RECORD"));
    m_play->setText(T("BOARD_PLAY"));
    m_new->setText(T("BOARD_NEW"));
    m_open->setText(T("BOARD_OPEN"));
    m_save->setText(T("BOARD_SAVE"));
    m_saveAs->setText(T("BOARD_SAVE_AS"));
    m_exportPage->setText(T("BOARD_EXPORT_PAGE"));
    m_exportItem->setText(T("BOARD_EXPORT_ITEM"));
    m_print->setText(T("BOARD_PRINT"));
    m_recentMenu->setTitle(T("BOARD_RECENT"));
    rebuildRecentMenu();
    m_cut->setText(T("BOARD_CUT"));
    m_copy->setText(T("BOARD_COPY"));
    m_paste->setText(T("BOARD_PASTE"));
    m_duplicate->setText(T("BOARD_DUPLICATE"));
    m_selectAll->setText(T("BOARD_SELECT_ALL"));
    m_front->setText(T("BOARD_FRONT"));
    m_back->setText(T("BOARD_BACK"));
    m_viewMenu->setTitle(T("BOARD_MENU_VIEW"));
    m_zoomIn->setText(T("BOARD_ZOOM_IN"));
    m_zoomOut->setText(T("BOARD_ZOOM_OUT"));
    m_zoomFit->setText(T("BOARD_ZOOM_FIT"));
    m_zoom100->setText(T("BOARD_ZOOM_100"));
    m_present->setText(T("BOARD_PRESENT"));
    m_toolMenu->setTitle(T("BOARD_MENU_TOOLS"));
    const char *toolKeys[4] = {"BOARD_TOOL_SELECT", "BOARD_TOOL_PEN", "BOARD_TOOL_TEXT", "BOARD_TOOL_ARROW"};
    for (int i = 0; i < 4; ++i)
        m_tools[i]->setText(T(toolKeys[i]));
    m_quit->setText(T("BOARD_QUIT"));
    m_undo->setText(T("BOARD_UNDO"));
    m_redo->setText(T("BOARD_REDO"));
    m_delete->setText(T("BOARD_DELETE"));
    m_resetTransform->setText(T("BOARD_RESET_TRANSFORM"));
    m_capture->setText(T("BOARD_CAPTURE"));
    m_restore->setText(T("BOARD_RESTORE"));
    m_english->setText(T("BOARD_ENGLISH"));
    m_chinese->setText(T("BOARD_CHINESE"));
    m_toolDock->setWindowTitle(T("BOARD_TOOLBOX"));
    m_panelDock->setWindowTitle(T("BOARD_PROPERTIES"));
    m_toolbox->retranslate();
    m_panel->retranslate();
    statusBar()->showMessage(T("BOARD_HINT"));
    updateTitle();
}

void BoardWindow::setLanguage(int language)
{
    Strings::setLanguage(language == Strings::Chinese ? Strings::Chinese : Strings::English);
    m_english->setChecked(Strings::language() == Strings::English);
    m_chinese->setChecked(Strings::language() == Strings::Chinese);
    retranslate();
    saveSettings();
}

void BoardWindow::updateTitle()
{
    const QString name = m_file.isEmpty() ? T("BOARD_UNTITLED") : QFileInfo(m_file).fileName();
    setWindowTitle(QStringLiteral("%1%2 — %3").arg(name, isModified() ? QStringLiteral("*") : QString(), T("BOARD_TITLE")));
}

bool BoardWindow::isModified() const { return !undoStack()->isClean() || m_recordingChanged; }

void BoardWindow::undo()
{
    // A value still being typed is an edit too: it is made first, then undone.
    m_panel->commitEditing();
    undoStack()->undo();
}

void BoardWindow::redo()
{
    m_panel->commitEditing();
    undoStack()->redo();
}

void BoardWindow::onSelectionChanged(CWBPhysicalObject *obj)
{
    QGraphicsItem *primary = m_view->primary();
    if (!obj && m_view->selection().size() == 1 && primary && primary->type() == Annotation::Type)
        m_panel->setMark(static_cast<Annotation *>(primary));
    else
        m_panel->setObject(obj);
    m_panel->setSelectionCount(m_view->selection().size());
    updateEditActions();
    m_capture->setEnabled(obj);
    m_restore->setEnabled(obj && obj->content() && m_captured.contains(obj->content()->serial()));
}

bool BoardWindow::captureSelected()
{
    CWBPhysicalObject *obj = m_view->selected();
    if (!obj || !obj->content())
        return false;
    QByteArray none;
    QDataStream in(&none, QIODevice::ReadOnly);
    obj->content()->SetAttribute(CSVGBase::ATTR_CAPTURE, in, false, false);
    m_captured.insert(obj->content()->serial());
    m_restore->setEnabled(true);
    return true;
}

bool BoardWindow::restoreSelected()
{
    CWBPhysicalObject *obj = m_view->selected();
    if (!obj || !obj->content() || !m_captured.contains(obj->content()->serial()))
        return false;
    nameNewStep([obj]() { obj->content()->editRestore(); }, T("BOARD_RESTORE"));
    obj->update();
    m_panel->refreshValues();
    return true;
}

void BoardWindow::nameNewStep(const std::function<void()> &change, const QString &text)
{
    QUndoStack *s = undoStack();
    auto top = [s]() { return s->index() > 0 ? s->command(s->index() - 1) : nullptr; };
    const QUndoCommand *before = top();
    change();
    if (top() && top() != before)
        const_cast<QUndoCommand *>(top())->setText(text);
}

void BoardWindow::updatePlaybackActions()
{
    m_record->setEnabled(!m_recorder->isRecording() && !m_recorder->isPlaying());
    m_stopRecord->setEnabled(m_recorder->isRecording());
    m_play->setEnabled(m_recorder->hasRecording() && !m_recorder->isPlaying());
}

void BoardWindow::setPlaying(bool on)
{
    // A replay owns the page: nothing else may add, pick or edit meanwhile.
    m_view->setEnabled(!on);
    m_panel->setEnabled(!on);
    m_toolbox->setEnabled(!on);
}

void BoardWindow::closeEvent(QCloseEvent *event)
{
    if (confirmDiscard()) {
        saveSettings();
        event->accept();
    } else {
        event->ignore();
    }
}

void BoardWindow::startRecording()
{
    m_recorder->start();
    statusBar()->showMessage(T("BOARD_RECORDING"));
    updatePlaybackActions();
}

void BoardWindow::stopRecording()
{
    m_recorder->stop();
    // The recording belongs to the page: it is saved with it, so the page has changed.
    m_recordingChanged = true;
    statusBar()->clearMessage();
    updatePlaybackActions();
    updateTitle();
}

bool BoardWindow::playBack(int intervalMs)
{
    if (!m_recorder->hasRecording() || m_recorder->isPlaying())
        return false;
    // The replay starts from the recorded page: nothing of the present one stays to undo.
    m_view->select(nullptr);
    undoStack()->clear();
    setPlaying(true);
    const bool ok = m_recorder->play(intervalMs);
    if (!ok)
        setPlaying(false);
    undoStack()->setClean();
    updatePlaybackActions();
    return ok;
}

void BoardWindow::afterUndoRedo()
{
    m_recorder->noteChange();
    m_view->pruneSelection();
    m_panel->refreshValues();
    growPage();
    m_view->refreshOverlay();
    updateEditActions();
    updateTitle();
}

void BoardWindow::growPage()
{
    // The page reaches past whatever is on it, so that everything can be scrolled to.
    const QRectF least = BoardPage::pageRect();
    const QRectF content = m_page->contentBounds();
    m_view->setSceneRect(content.isNull() ? least : least.united(content.adjusted(-100, -100, 100, 100)));
}

CWBPhysicalObject *BoardWindow::place(int typeId, const QPointF &scenePos)
{
    return placeMade(typeId, [&scenePos](CWBPhysicalObject *obj) { return scenePos - obj->itemRect().center(); });
}

CWBPhysicalObject *BoardWindow::placeAtFreeSpot(int typeId)
{
    return placeMade(typeId, [this](CWBPhysicalObject *obj) { return freeSpot(obj->itemRect().size()); });
}

CWBPhysicalObject *BoardWindow::placeMade(int typeId, const std::function<QPointF(CWBPhysicalObject *)> &where)
{
    if (m_recorder->isPlaying())
        return nullptr;
    if (m_page->objects().size() >= BoardPage::kMaxObjects) {
        fail(T("BOARD_PAGE_FULL").arg(BoardPage::kMaxObjects));
        return nullptr;
    }
    CWBPhysicalObject *obj = BoardPage::create(typeId, true);
    if (!obj)
        return nullptr;
    // Its size is known once it is made: the place follows from it.
    obj->setPos(where(obj));
    obj->setZValue(m_page->topZ() + 1);
    GetFramework()->pushUndo(new AddItemsCmd(m_page, {obj}, T("BOARD_CMD_ADD").arg(Strings::typeName(typeId))));
    if (m_view->presenting())
        obj->setHandlesVisible(false);
    m_view->select(obj);
    m_view->setFocus();
    return obj;
}

QPointF BoardWindow::freeSpot(const QSizeF &size) const
{
    // Rings of candidate spots around the view's centre, nearest first; the first that
    // overlaps nothing (with a little air) wins.
    const QPointF centre = m_view->mapToScene(m_view->viewport()->rect().center());
    QVector<QRectF> taken;
    for (QGraphicsItem *i : m_page->pageItems())
        taken.append(BoardPage::boundsOf({i}).adjusted(-12, -12, 12, 12));
    const double step = qMax(24.0, qMin(size.width(), size.height()) / 2);
    for (int ring = 0; ring <= 40; ++ring) {
        const int n = ring == 0 ? 1 : 8 * ring;
        for (int k = 0; k < n; ++k) {
            const double a = 2 * M_PI * k / n;
            const QPointF c = centre + QPointF(std::cos(a), std::sin(a)) * (ring * step);
            const QRectF r(c - QPointF(size.width() / 2, size.height() / 2), size);
            bool free = r.left() >= 0 && r.top() >= 0;
            for (int t = 0; free && t < taken.size(); ++t)
                free = !taken[t].intersects(r);
            if (free)
                return r.topLeft();
        }
    }
    return centre - QPointF(size.width() / 2, size.height() / 2);
}

void BoardWindow::deleteSelected()
{
    const QList<QGraphicsItem *> items = m_view->selection();
    if (items.isEmpty() || m_view->presenting())
        return;
    m_view->setSelection({});
    const QString text = items.size() == 1 ? T("BOARD_CMD_DELETE").arg(BoardPage::nameOf(items.first()))
                                           : T("BOARD_CMD_MANY").arg(T("BOARD_CMD_DELETE").arg(QString()).trimmed()).arg(items.size());
    const QVector<WireLink> links = m_page->links();
    GetFramework()->undoStack()->beginMacro(text);
    GetFramework()->pushUndo(new RemoveItemsCmd(m_page, items, text));
    // The links that went with the items come back with them.
    if (m_page->links() != links)
        GetFramework()->pushUndo(new LinkCmd(m_page, links, m_page->links(), text));
    GetFramework()->undoStack()->endMacro();
}

void BoardWindow::applyEdit(const QString &id, const QString &value)
{
    CWBPhysicalObject *obj = m_panel->object();
    if (!obj || !obj->content() || obj->scene() != m_page)
        return;
    const bool refresh = m_panel->wantsRefresh(id);
    // One step and one playback record, or none when nothing changed.
    nameNewStep([&]() { obj->content()->editSettings({{id, value}}); },
                T("BOARD_CMD_EDIT").arg(Strings::typeName(obj->typeId())));
    obj->update();
    if (refresh)
        m_panel->rebuild();
    else
        m_panel->refreshValues();
}

void BoardWindow::applyPlacement(int field, double value)
{
    CWBPhysicalObject *obj = m_panel->object();
    if (!obj || obj->scene() != m_page || !std::isfinite(value))
        return;
    const ItemPlacement from = ItemPlacement::of(obj);
    ItemPlacement to = from;
    const char *key = "BOARD_CMD_MOVE";
    switch (field) {
    // Left and top stay on the page.
    case PropertyPanel::PlaceX: to.pos.setX(qBound(0.0, value, BoardPage::pageRect().right())); break;
    case PropertyPanel::PlaceY: to.pos.setY(qBound(0.0, value, BoardPage::pageRect().bottom())); break;
    case PropertyPanel::PlaceRotation:
    case PropertyPanel::PlaceScale: {
        // Turned and scaled about the centre, as with the knobs.
        if (field == PropertyPanel::PlaceRotation) {
            to.rotation = std::fmod(value, 360.0);
            key = "BOARD_CMD_ROTATE";
        } else {
            to.scale = qBound(0.1, value / 100, 10.0);
            key = "BOARD_CMD_SCALE";
        }
        const QPointF c = obj->itemRect().center();
        QTransform t;
        t.rotate(to.rotation);
        t.scale(to.scale, to.scale);
        to.pos = obj->mapToScene(c) - t.map(c);
        break;
    }
    default:
        return;
    }
    if (to == from)
        return;
    to.applyTo(obj);
    m_view->commitPlacement({{obj, from, to}}, T(key).arg(Strings::typeName(obj->typeId())));
}

void BoardWindow::fail(const QString &message)
{
    m_lastError = message;
    statusBar()->showMessage(message);
}

void BoardWindow::newPage()
{
    m_recorder->cancel();
    m_recorder->stop();
    updatePlaybackActions();
    m_view->select(nullptr);
    undoStack()->clear();
    m_page->clearPage();
    m_recorder->clear();
    m_recordingChanged = false;
    m_file.clear();
    m_pasteCount = 0;
    undoStack()->setClean();
    updateTitle();
}

bool BoardWindow::savePage(const QString &path)
{
    QString err;
    if (!m_page->saveTo(path, &err, m_recorder->save())) {
        fail(err);
        return false;
    }
    m_file = path;
    m_lastError.clear();
    m_recordingChanged = false;
    undoStack()->setClean();
    addRecent(path);
    statusBar()->showMessage(T("BOARD_SAVED").arg(QFileInfo(path).fileName()));
    updateTitle();
    return true;
}

bool BoardWindow::openPage(const QString &path)
{
    PageContent loaded;
    QString err;
    if (!BoardPage::readFile(path, &loaded, &err) || !Recorder::valid(loaded.recording)) {
        loaded.release();
        fail(err.isEmpty() ? T("BOARD_ERR_DAMAGED").arg(QFileInfo(path).fileName()) : err);
        return false;
    }
    m_recorder->cancel();
    m_recorder->stop();
    m_recorder->load(loaded.recording);
    m_recordingChanged = false;
    updatePlaybackActions();
    m_view->select(nullptr);
    undoStack()->clear();
    m_page->replaceAll(loaded);
    if (m_view->presenting())
        for (CWBPhysicalObject *o : m_page->objects())
            o->setHandlesVisible(false);
    growPage();
    m_file = path;
    m_lastError.clear();
    undoStack()->setClean();
    addRecent(path);
    statusBar()->showMessage(T("BOARD_OPENED").arg(QFileInfo(path).fileName()));
    updateTitle();
    return true;
}

bool BoardWindow::exportPage(const QString &path)
{
    const int n = m_page->pageItems().size();
    QString err;
    bool ok = false;
    if (n >= kProgressThreshold) {
        QProgressDialog progress(T("BOARD_EXPORTING"), T("BOARD_CANCEL"), 0, n, this);
        progress.setObjectName(QStringLiteral("exportProgress"));
        progress.setWindowModality(Qt::WindowModal);
        progress.setMinimumDuration(0);
        ok = m_page->exportPage(path, &err, [&progress](int done, int total) {
            progress.setMaximum(total);
            progress.setValue(done);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            return !progress.wasCanceled();
        });
    } else {
        ok = m_page->exportPage(path, &err);
    }
    if (!ok) {
        if (!err.isEmpty())
            fail(err);
        return false;
    }
    statusBar()->showMessage(T("BOARD_EXPORTED").arg(QFileInfo(path).fileName()));
    return true;
}

bool BoardWindow::exportSelected(const QString &path)
{
    QString err;
    if (!BoardPage::exportItems(m_view->selection(), path, &err)) {
        fail(err);
        return false;
    }
    statusBar()->showMessage(T("BOARD_EXPORTED").arg(QFileInfo(path).fileName()));
    return true;
}

QMessageBox *BoardWindow::makeDiscardPrompt()
{
    auto *box = new QMessageBox(QMessageBox::Question, Strings::plain(QStringLiteral("BOARD_TITLE")), T("BOARD_DISCARD"),
                                QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box->setObjectName(QStringLiteral("discardPrompt"));
    box->button(QMessageBox::Save)->setText(T("BOARD_SAVE_BUTTON"));
    box->button(QMessageBox::Discard)->setText(T("BOARD_DISCARD_BUTTON"));
    box->button(QMessageBox::Cancel)->setText(T("BOARD_CANCEL"));
    // Keeping the work is what an accidental Enter should do.
    box->setDefaultButton(QMessageBox::Save);
    box->setEscapeButton(QMessageBox::Cancel);
    return box;
}

bool BoardWindow::confirmDiscard()
{
    if (!isModified())
        return true;
    QMessageBox *box = makeDiscardPrompt();
    const int answer = box->exec();
    delete box;
    if (answer == QMessageBox::Discard)
        return true;
    if (answer != QMessageBox::Save)
        return false;
    saveInteractive(false);
    return !isModified();
}

void BoardWindow::openInteractive()
{
    if (!confirmDiscard())
        return;
    const QString path = QFileDialog::getOpenFileName(this, Strings::plain(QStringLiteral("BOARD_OPEN")), folder(), T("BOARD_PAGE_FILES"));
    if (path.isEmpty())
        return;
    m_lastFolder = QFileInfo(path).absolutePath();
    if (!openPage(path))
        QMessageBox::warning(this, Strings::plain(QStringLiteral("BOARD_ERROR")), m_lastError);
}

void BoardWindow::saveInteractive(bool askName)
{
    QString path = m_file;
    if (askName || path.isEmpty())
        path = QFileDialog::getSaveFileName(this, Strings::plain(QStringLiteral("BOARD_SAVE_AS")),
                                            path.isEmpty() ? folder() : path, T("BOARD_PAGE_FILES"));
    if (path.isEmpty())
        return;
    m_lastFolder = QFileInfo(path).absolutePath();
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".phb");
    if (!savePage(path))
        QMessageBox::warning(this, Strings::plain(QStringLiteral("BOARD_ERROR")), m_lastError);
}

void BoardWindow::exportInteractive(bool selectedOnly)
{
    if (selectedOnly && m_view->selection().isEmpty())
        return;
    QString filter;
    QString path = QFileDialog::getSaveFileName(this, Strings::plain(selectedOnly ? QStringLiteral("BOARD_EXPORT_ITEM") : QStringLiteral("BOARD_EXPORT_PAGE")),
                                                folder(), T("BOARD_EXPORT_FILES"), &filter);
    if (path.isEmpty())
        return;
    m_lastFolder = QFileInfo(path).absolutePath();
    if (QFileInfo(path).suffix().isEmpty())
        path += filter.contains(QLatin1String("png")) ? QStringLiteral(".png")
                : filter.contains(QLatin1String("svg")) ? QStringLiteral(".svg") : QStringLiteral(".pdf");
    const bool ok = selectedOnly ? exportSelected(path) : exportPage(path);
    if (!ok && !m_lastError.isEmpty())
        QMessageBox::warning(this, Strings::plain(QStringLiteral("BOARD_ERROR")), m_lastError);
}

void BoardWindow::fillDemoPage()
{
    struct Spot {
        int type;
        QPointF at;
        double rotation;
        const char *setting;
    };
    const Spot spots[] = {
        {109, {300, 50}, 0, "idPosValue=30"},
        {403, {120, 200}, 0, "idMeterValue=0.36"},
        {400, {360, 200}, 0, "idSwitchIsConnected=true"},
        {600, {560, 200}, 0, nullptr},
        {607, {660, 210}, 0, nullptr},
        {107, {110, 470}, -25, nullptr},
        {202, {250, 470}, 0, nullptr},
        {500, {390, 470}, 0, nullptr},
        {700, {530, 430}, 0, nullptr},
        {710, {650, 430}, 0, nullptr},
        {704, {590, 510}, 0, nullptr},
    };
    CWBPhysicalObject *last = nullptr;
    for (const Spot &s : spots) {
        CWBPhysicalObject *obj = BoardPage::create(s.type, true);
        if (!obj)
            continue;
        if (s.setting) {
            const QStringList kv = QString::fromLatin1(s.setting).split(QLatin1Char('='));
            QMap<QString, QString> values{{kv[0], kv[1]}};
            obj->content()->SetSettingArray(values, false, false);
        }
        obj->setRotation(s.rotation);
        QTransform t;
        t.rotate(s.rotation);
        obj->setPos(s.at - t.map(obj->boundingRect().center()));
        obj->setZValue(m_page->topZ() + 1);
        m_page->insertObject(obj);
        if (s.type == 202)
            last = obj;
    }
    undoStack()->clear();
    undoStack()->setClean();
    m_view->select(last);
    updateTitle();
}
