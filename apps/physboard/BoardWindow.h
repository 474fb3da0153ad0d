#pragma once
// The board's main window: toolbox, page, property panel, menus and files.
#include <QMainWindow>
#include <QSet>
#include <functional>

class BoardPage;
class BoardView;
class CWBPhysicalObject;
class PropertyPanel;
class Recorder;
class Toolbox;
class QAction;
class QMenu;

class BoardWindow : public QMainWindow
{
    Q_OBJECT
public:
    // Exports of at least this many objects show a progress dialog.
    static constexpr int kProgressThreshold = 8;
    // Steps of undo history the board keeps.
    static constexpr int kUndoLimit = 1000;

    explicit BoardWindow(QWidget *parent = nullptr);
    ~BoardWindow() override;

    BoardPage *page() const { return m_page; }
    BoardView *view() const { return m_view; }
    Toolbox *toolbox() const { return m_toolbox; }
    PropertyPanel *panel() const { return m_panel; }

    // Places a new apparatus centred on scenePos (one undo step); null for an id
    // the library does not make.
    CWBPhysicalObject *place(int typeId, const QPointF &scenePos);
    // Places it where it covers nothing, as near the view's centre as can be.
    CWBPhysicalObject *placeAtFreeSpot(int typeId);
    // Where an item of this size goes: a page point for its top-left corner.
    QPointF freeSpot(const QSizeF &size) const;
    // The selection, as one undo step each.
    void deleteSelected();
    void cutSelection();
    bool copySelection();
    // Pastes the board's own items from the clipboard, offset from their originals.
    bool paste();
    bool duplicateSelection();
    void bringToFront();
    void sendToBack();
    // What the clipboard carries: the items (and links among them) as a page, and
    // the picture of them as PNG and SVG.
    static constexpr const char *kItemsMime = "application/x-physboard-items";
    static class QMimeData *mimeFor(const QList<class QGraphicsItem *> &items, const class QVector<struct WireLink> &links);
    // A panel edit of the selected apparatus, as one undo step.
    void applyEdit(const QString &id, const QString &value);
    // A placement field of the panel: x, y, turn (about the centre) or scale in per cent.
    void applyPlacement(int field, double value);

    // File work without dialogs; on failure lastError() says why and nothing changed.
    bool savePage(const QString &path);
    bool openPage(const QString &path);
    bool exportPage(const QString &path);
    bool exportSelected(const QString &path);
    bool printPage(class QPrinter *printer);
    void newPage();
    // Full screen without toolbox, panel and menus; handles on demand.
    void setPresenting(bool on);
    bool presenting() const;
    // Language, layout, last folder and recent files, kept between runs.
    void restoreSettings();
    void saveSettings() const;
    QStringList recentFiles() const { return m_recent; }
    // The unsaved-changes question; Save is its default answer.
    class QMessageBox *makeDiscardPrompt();
    // The apparatus's own capture and re-application of its state; a restore is one undo step.
    bool captureSelected();
    bool restoreSelected();
    // Unsaved changes: undo steps since the last save, or a new recording.
    bool isModified() const;
    void undo();
    void redo();
    QString lastError() const { return m_lastError; }
    QString currentFile() const { return m_file; }

    Recorder *recorder() const { return m_recorder; }
    void startRecording();
    void stopRecording();
    // Replays the recording on the page (which it replaces); 0 ms replays at once.
    bool playBack(int intervalMs);

    void setLanguage(int language);
    // A page with several apparatus, for a first look and the README picture.
    void fillDemoPage();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildMenus();
    void retranslate();
    void updateTitle();
    void afterUndoRedo();
    void onSelectionChanged(CWBPhysicalObject *obj);
    QString folder() const;
    bool confirmDiscard();
    void fail(const QString &message);
    void openInteractive();
    void saveInteractive(bool askName);
    void exportInteractive(bool selectedOnly);

    BoardPage *m_page;
    BoardView *m_view;
    Toolbox *m_toolbox;
    PropertyPanel *m_panel;
    class QDockWidget *m_toolDock;
    class QDockWidget *m_panelDock;
    QMenu *m_fileMenu = nullptr, *m_editMenu = nullptr, *m_langMenu = nullptr, *m_viewMenu = nullptr;
    QMenu *m_toolMenu = nullptr, *m_recentMenu = nullptr;
    QAction *m_new, *m_open, *m_save, *m_saveAs, *m_exportPage, *m_exportItem, *m_print, *m_quit;
    QAction *m_undo, *m_redo, *m_delete, *m_resetTransform, *m_english, *m_chinese;
    QAction *m_cut, *m_copy, *m_paste, *m_duplicate, *m_selectAll, *m_front, *m_back;
    QAction *m_zoomIn, *m_zoomOut, *m_zoomFit, *m_zoom100, *m_present;
    QAction *m_tools[4];
    void buildViewMenus();
    // Makes an apparatus and puts it where `where` says (its top-left, given the made item),
    // as one undo step.
    CWBPhysicalObject *placeMade(int typeId, const std::function<QPointF(CWBPhysicalObject *)> &where);
    void rebuildRecentMenu();
    void addRecent(const QString &path);
    void updateEditActions();
    // Puts content's items on the page, moved by offset, above everything, as one step.
    bool pasteContent(struct PageContent &content, const QPointF &offset, const QString &text);
    void printInteractive();
    QStringList m_recent;
    QString m_lastFolder;
    int m_pasteCount = 0;
    QByteArray m_lastCopy;
    QAction *m_capture, *m_restore;
    QMenu *m_playMenu = nullptr;
    QAction *m_record, *m_stopRecord, *m_play;
    Recorder *m_recorder;
    void updatePlaybackActions();
    void setPlaying(bool on);
    void growPage();
    // Makes a change and gives the undo step it left (if any) a name the user reads.
    void nameNewStep(const std::function<void()> &change, const QString &text);
    QSet<quint64> m_captured; // content serials that hold a captured state
    bool m_recordingChanged = false;
    QString m_file;
    QString m_lastError;
    int m_observer = 0;
};
