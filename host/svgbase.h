#pragma once
// The host's content class: every apparatus derives from it. The virtual operations
// are declared in the host's table order; do not reorder them.
#include "hostglobal.h"
#include "svgpropitem.h"
#include "svgtinydocument.h"
#include <QBrush>
#include <QColor>
#include <QDataStream>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QPainterPath>
#include <QSizeF>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

class CSVGObj;
class CSVGBaseUndoCmd;
class QPainter;
class QGraphicsSceneMouseEvent;
class QKeyEvent;
class QUndoCommand;
struct PlaybackRecord;

// Reads a colour the way QDataStream writes one, but refuses a colour kind
// Qt does not know (Qt would keep it as is, and later use it as an enum): the stream is
// then marked corrupt and the colour left invalid. Use it for every colour read from a
// page file or another untrusted stream.
HOST_EXPORT QDataStream &readColor(QDataStream &in, QColor &color);

// What an undo step puts back: the object's record, its exact drawing and where its
// item stood. Shared between the steps on either side of it.
struct HOST_EXPORT SvgUndoState {
    QByteArray record;
    std::shared_ptr<const SvgDocumentState> drawing;
    QPointF itemPos;
    qint64 cost() const;
};

class HOST_EXPORT CSVGBase
{
public:
    // Host-level property ids.
    enum { PROP_COLOR = 5002, PROP_LAMP_COLOR = 5005, ATTR_CAPTURE = 2804, ATTR_RESTORE = 2805 };
    // Playback records the host makes itself: the object's whole record after an edit
    // that the apparatus records no value of.
    enum { ACTION_STATE = 2900 };
    // A label or other text an apparatus keeps is cut to this many characters by default.
    static constexpr int kDefaultMaxText = 1000;
    // No handle or drawing reaches further from the origin than this, in document units:
    // a page can always be drawn and exported, and an apparatus never grows without bound.
    static constexpr double kMaxExtent = 100000;

    explicit CSVGBase(CSVGObj *owner);

    /* 0-1 */ virtual ~CSVGBase();
    /* 2 */ virtual bool save(QDataStream &out);
    /* 3 */ virtual bool load(QDataStream &in);
    /* 4 */ virtual void saveJson(QJsonObject &json);
    /* 5 */ virtual void loadJson(QJsonObject &json);
    /* 6 */ virtual void SavePropertyForPlayback(QDataStream &out);
    /* 7 */ virtual void LoadPropertyForPlayback(QDataStream &in);
    /* 8 */ virtual bool DoPlaybackActionEx(int actionId, QDataStream &in);
    /* 9 */ virtual void getAllAttributes(QMap<QString, QVariant> &attrs);
    /* 10 */ virtual void setAllAttributes(const QMap<QString, QVariant> &attrs, bool bRecord);
    /* 11 */ virtual bool GetAttribute(int id, QDataStream &out);
    /* 12 */ virtual bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo);
    /* 13 */ virtual bool GetSpecialProperty(int id, QDataStream &out);
    /* 14 */ virtual bool SetSpecialProperty(int id, QDataStream &in, bool bRecord);
    /* 15 */ virtual void PopupObjectMenu(void *menu);
    /* 16 */ virtual void paint(QPainter *painter);
    /* 17 */ virtual void paintEx(QPainter *painter, float scale);
    /* 18 */ virtual void mousePressEvent(QGraphicsSceneMouseEvent *event);
    /* 19 */ virtual void mouseMoveEvent(QGraphicsSceneMouseEvent *event);
    /* 20 */ virtual void mouseReleaseEvent(QGraphicsSceneMouseEvent *event);
    /* 21 */ virtual void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event);
    /* 22 */ virtual void keyPressEvent(QKeyEvent *event);
    /* 23 */ virtual bool loadSVG(bool bLoad);
    /* 24 */ virtual QString getSVG();
    /* 25 */ virtual int getSVGType();
    /* 26 */ virtual void updateAllControlPoints(bool, bool);
    /* 27 */ virtual QSizeF getDefaultSVGSize();
    /* 28 */ virtual void updateOutlineRegion();
    /* 29 */ virtual void setSize(QSizeF oldSize, QSizeF newSize);
    /* 30 */ virtual QSizeF getMinimizeSize();
    /* 31 */ virtual int getMaxPenWidth();
    /* 32 */ virtual void notifyObjectCreated();
    /* 33 */ virtual bool CheckHitTestHandlers(const QPointF &localPoint);
    /* 34 */ virtual void setFillBrush(const QBrush &brush, bool bRecord, bool bUndo);
    /* 35 */ virtual void GetSettingArray(QJsonArray &array);
    /* 36 */ virtual bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo);
    /* 37 */ virtual void GetSettingJson(QString &json);
    /* 38 */ virtual bool SetSettingJson(const QString &json, bool bRecord, bool bUndo);
    /* 39 */ virtual void setExternalFilled(bool on);
    /* 40 */ virtual bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal);
    /* 41 */ virtual bool updateSVG(bool bFinal);
    /* 42 */ virtual double getXMin(QSvgNode *node);
    /* 43 */ virtual double getXMax(QSvgNode *node);
    /* 44 */ virtual double getYMin(QSvgNode *node);
    /* 45 */ virtual double getYMax(QSvgNode *node);
    /* 46 */ virtual QBrush getFillBrush();
    /* 47 */ virtual QColor getPenColor();
    /* 48 */ virtual void setPenColor(QColor color, bool bRecord);
    /* 49 */ virtual Qt::PenStyle getPenStyle();
    /* 50 */ virtual void setPenStyle(Qt::PenStyle style, bool bRecord);
    /* 51 */ virtual int getPenWidth();
    /* 52 */ virtual void setPenWidth(int width, bool bRecord);
    /* 53 */ virtual bool getInnerProperty(int id, QDataStream &out);
    /* 54 */ virtual bool setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo);
    /* 55 */ virtual void initPropItems();
    /* 56 */ virtual void initSpecialPropItems();
    /* 57 */ virtual QString getPropName(int id);
    /* 58 */ virtual void initGlobalPropValues();
    /* 59 */ virtual void updateAfterPenWidthChanged(int width);
    /* 60 */ virtual bool CanMoveControlPoint(QSvgNode *node, QPointF offset);
    /* 61 */ virtual int actionIdToPropId(int actionId);
    /* 62 */ virtual void getOutlinePath(QPainterPath *path);

    // --- services for apparatus code ---------------------------------------
    void addNode(QSvgNode *node, const QString &id);
    void removeNode(QSvgNode *node);
    void resizeSVG(double dw, double dh, bool bFinal);
    void adjustSvgPosition(QPointF offset, double dw, double dh, bool bFinal);
    // Path data with its start point moved by (dx, dy).
    QString changePathBeginPoint(const QString &pathData, double dx, double dy);
    // Path data scaled vertically about its top so that its height becomes h.
    QString changePathHeight(const QString &pathData, double h, int);
    QString numbersToString(const QVector<double> &numbers);
    QVector<double> parseNumbersList(const QChar *&str);
    void addAllItemsRegion(QPainterPath *path);
    void addAllControlPointsRegion(QPainterPath *path);
    void addUndoRedo(CSVGBaseUndoCmd *cmd);
    void RecordInt(int value, int propId);
    void RecordBool(bool value, int propId);
    void RecordColor(QColor value, int propId);
    void RecordData(int kind, const QByteArray &data, int propId);
    // Posts the panel refresh {"settings":[{"id": key, "value": value}, ...]} (message 100),
    // all pairs in one message.
    static void postSettings(const QVector<QPair<QString, QString>> &settings);
    static void postSetting(const QString &key, const QString &value) { postSettings({{key, value}}); }
    // Tells the panel a value was not taken as given: {"settings": [...], "notice": key}.
    static void postNotice(const QString &key, const QString &value, const QString &notice);

    // --- host side ---------------------------------------------------------
    // Ties the drawing to the owner item, which then repaints as it changes.
    void watchDocument();
    CSVGObj *owner() const { return m_pOwner; }
    QSvgTinyDocument *document() const { return m_pDocument; }
    quint64 serial() const { return m_serial; }
    const QList<QSvgNode *> &controlNodes() const { return m_controlNodes; }
    const std::vector<CSVGPropItem *> &propItems() const { return m_propItems; }
    const CSVGPropItem *propItemByAttribute(int attributeId) const;
    const CSVGPropItem *propItemByPropId(int propId) const;
    QSvgNode *hitHandle() const { return m_pHitHandle; }
    // The host's drag: moves the handle within its bounds, then calls updateSVG.
    // Returns the displacement actually applied. The first step opens an edit and a
    // final one closes it: one undo step and one playback record per drag.
    QPointF moveControlPoint(QSvgNode *handle, QPointF delta, bool bFinal, bool bUndo = true,
                             bool *handled = nullptr);
    // Maps a point in the owner item's coordinates to document units.
    QPointF itemToDocument(const QPointF &p) const;
    // And back: a point or a rectangle of the drawing in the owner item's coordinates.
    QPointF documentToItem(const QPointF &p) const;
    QRectF documentToItem(const QRectF &r) const;
    bool isLoading() const { return m_loading; }

    // --- state ---------------------------------------------------------------
    // The object's record: its stream and what it keeps outside the stream (keepValue).
    // An undo step, a page and the clipboard hold this.
    QByteArray record();
    // Loads a record; all or nothing, like load.
    bool restoreRecord(const QByteArray &record);
    // What the last field of a saved stream holds: the checksum of every byte before it.
    // (Fuzzers use it to make mutated streams reach past the check.)
    static quint64 streamChecksum(const QByteArray &bytesBefore);
    // While one exists, streams of the host's first format load too. That format does
    // not name the type, so only a reader that knows it (a page of that format) may.
    class HOST_EXPORT LegacyStreams
    {
    public:
        explicit LegacyStreams(bool on);
        ~LegacyStreams();
        LegacyStreams(const LegacyStreams &) = delete;
        LegacyStreams &operator=(const LegacyStreams &) = delete;
    private:
        bool m_on;
    };
    // The last load, loadJson or restoreRecord: whether it was taken, and why not.
    bool lastLoadOk() const { return m_loadError.isEmpty(); }
    QString lastLoadError() const { return m_loadError; }
    // Whether a state was captured (2804) that a restore (2805) could put back.
    bool hasCapture() const { return m_bCaptured; }
    // What an undo step needs to put the object back exactly as it is now.
    // Neighbouring steps share one state; none is kept once no step holds it.
    std::shared_ptr<const SvgUndoState> undoState();
    void restoreUndoState(const std::shared_ptr<const SvgUndoState> &state);

    // --- the edit path -------------------------------------------------------
    // Every change a user makes goes through here: panel values, attributes, a restore,
    // or any change the function makes. It applies the change, makes exactly one undo
    // step (the apparatus's own commands inside it, or the host's from the record before
    // and after), and one playback record (the apparatus's own, or the host's of the
    // record after). Nothing changed: no step, no record, false.
    bool edit(const std::function<void()> &change, const QString &text = QString());
    bool editSettings(const QMap<QString, QString> &values);
    bool editAttribute(int id, const QByteArray &value);
    bool editRestore();
    bool editing() const { return m_edit != nullptr; }
    // The longest text an apparatus keeps (labels); longer texts are cut with a notice.
    static int maxTextLength();
    static void setMaxTextLength(int n);
    // A text an apparatus is given to keep: characters XML cannot carry mended, and cut
    // to maxTextLength() (never inside a pair) with a notice to the panel item panelKey.
    static QString fitText(const QString &text, const QString &panelKey);

protected:
    // The host's part of a stream, read and checked in full before anything is applied.
    struct DrawingPatch {
        quint8 kind = 0;                 // 0 none, 1 some nodes, 2 the whole drawing
        quint64 context = 0;             // what it was made against besides the stream (JSON keys)
        quint32 nodeCount = 0;           // nodes the drawing has before the patch (kind 1)
        QVector<quint32> index;          // kind 1: which nodes
        QVector<QString> tags;           // kind 1: their tags; kind 2: every tag
        QVector<int> depths;             // kind 2
        QVector<QSvgNodeState> states;
    };
    struct HostPart {
        QColor host, lamp, pen, fill;
        qint32 penStyle = 0, penWidth = 0, fillOn = 0;
        bool external = false;
        QSizeF itemSize;
        QVector<QPointF> handles;
        QRectF viewBox, cachedBounds;
        QSizeF docSize;
        DrawingPatch patch;
        QVector<QVariant> kept;          // what keepValue members hold, in their order
        quint64 context = 0;             // the JSON keys it came with, to match the patch
        bool legacy = false;             // the first format: no document size or cached bounds
    };
    // Reads the host's part; false (and the reason in lastLoadError) when it is short,
    // damaged, or of another type. Nothing is applied.
    bool readHostPart(QDataStream &in, HostPart &part);
    // The host's part of a JSON form whose stream holds the host's part alone.
    bool readHostJson(const QJsonObject &json, HostPart &part);
    // The stream and kept values of a JSON form, checked to be of this apparatus.
    bool readJson(const QJsonObject &json, QByteArray &stream, QVector<QVariant> &kept);
    // Applies a read host part: own() puts the apparatus's own part in place first, then
    // the handles are replayed through updateSVG, then after() runs the apparatus's hooks,
    // and last the drawing is put back exactly as it was saved.
    void applyLoaded(const HostPart &part, const std::function<void()> &own, const std::function<void()> &after);
    // Records why a load was refused; returns false.
    bool refuseLoad(QDataStream *in, const QString &why);
    void acceptLoad() { m_loadError.clear(); }

    // 2804 was seen and 2805 may put a state back: apparatus test these in SetAttribute.
    bool isCapture(int id) const { return id == ATTR_CAPTURE; }
    bool isRestore(int id) const { return id == ATTR_RESTORE && m_bCaptured; }
    // A member the host keeps in the object's record (not its stream), for state the
    // Part's stream leaves out. Values read back are held to [lo, hi].
    void keepValue(const QString &key, int *value, int lo, int hi);
    void keepValue(const QString &key, double *value);
    // After each step of a drag the host posts the panel values whose text the step
    // changed, each once, in one message; a step that changes none posts nothing. For
    // apparatus that leave what a drag posts to the host.
    void setPostsChangedSettings(bool on) { m_bPostChanged = on; }
    // The panel values a drag can change, as (key, text) pairs: the host then compares
    // these alone before and after each step, not the whole panel built twice.
    void setDragSettingTexts(std::function<QVector<QPair<QString, QString>>()> texts) { m_dragTexts = std::move(texts); }

    CSVGObj *m_pOwner;
    QSvgTinyDocument *m_pDocument = nullptr;
    QList<QSvgNode *> m_controlNodes;
    std::vector<CSVGPropItem *> m_propItems;
    bool m_bHostOption = false;
    bool m_bHostOption2 = false;   // second host flag (wire sets it, lenses clear it)
    QPainterPath *m_pOutlinePath;

private:
    struct Edit;
    struct Kept {
        QString key;
        int *i = nullptr;
        double *d = nullptr;
        int lo = 0, hi = 0;
    };

    void clearPropItems();
    void applyHostColors();
    bool setHostColor(int id, QColor &slot, QDataStream &in, bool bRecord, bool bUndo);
    bool readLegacyHostPart(QDataStream &in, HostPart &part);
    static void readPaintAndSize(QDataStream &in, HostPart &part);
    static bool readHandles(QDataStream &in, HostPart &part, int count);
    static bool sanePart(const HostPart &part);
    bool readPatch(const QByteArray &bytes, DrawingPatch &patch);
    void applyPatch(const DrawingPatch &patch);
    QByteArray drawingPatch(const QByteArray &bare);
    QByteArray keptBytes() const;
    bool readKept(const QByteArray &bytes, QVector<QVariant> &values);
    void applyKept(const QVector<QVariant> &values);
    void findControlNodes();
    void beginEdit();
    bool commitEdit(const QString &text);
    // Every panel item's key and the text it shows.
    QVector<QPair<QString, QString>> settingTexts();

    quint64 m_serial;
    QSvgNode *m_pHitHandle = nullptr;
    QColor m_hostColor;             // 5002: the drawing's colour
    QColor m_lampColor;             // 5005: the light colour (a lamp's bulb)
    QColor m_capturedHostColor;
    bool m_bCaptured = false;
    bool m_bPostChanged = false;
    std::function<QVector<QPair<QString, QString>>()> m_dragTexts;
    QColor m_penColor = Qt::black;
    Qt::PenStyle m_penStyle = Qt::SolidLine;
    int m_penWidth = 1;
    QBrush m_fillBrush;
    bool m_bExternalFilled = false;
    bool m_loading = false;
    bool m_bSavingBare = false;     // save() without the drawing patch (to compute it)
    int m_nBareHostSize = 0;        // bytes of the host's part in the last bare save
    int m_nBareFieldsSize = 0;      // of which its fields, before the patch and checksum
    const QJsonObject *m_pJsonSave = nullptr;  // saveJson in progress: the probe loads JSON
    QString m_loadError;
    quint64 m_nLoadContext = 0;     // the JSON keys of a loadJson in progress
    std::vector<Kept> m_kept;
    // The patch of the last save, valid while the bare stream and the drawing are as then.
    QByteArray m_patchBare;
    quint64 m_patchRevision = 0;
    QByteArray m_patch;
    // The undo state of the last request, valid while record and drawing are as then.
    std::weak_ptr<const SvgUndoState> m_lastUndo;
    quint64 m_lastUndoRevision = 0;
    std::unique_ptr<Edit> m_edit;
    int m_dragHandle = -1;
};
