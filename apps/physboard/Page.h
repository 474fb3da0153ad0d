#pragma once
// One page of the board: the apparatus and marks on it, the wires joined to terminals,
// its file and its exports.
#include <QGraphicsScene>
#include <QList>
#include <QString>
#include <QVector>
#include <functional>

class CWBPhysicalObject;
class QImage;
class QPainter;

// A wire end held on a terminal of an apparatus, or on another wire's end.
struct WireLink {
    CWBPhysicalObject *wire = nullptr;
    int end = 0;                      // 0: the wire's first end, 1: its last
    CWBPhysicalObject *to = nullptr;
    int terminal = 0;                 // the terminal's index, or the other wire's end
    bool operator==(const WireLink &o) const { return wire == o.wire && end == o.end && to == o.to && terminal == o.terminal; }
};

// What a page file, a clipboard or a key frame holds: items bottom first, and the links
// among them.
struct PageContent {
    QList<QGraphicsItem *> items;
    QVector<WireLink> links;
    QByteArray recording;
    QList<CWBPhysicalObject *> objects() const;
    // Gives back every item (after a failure, or when nobody took them).
    void release();
};

class BoardPage : public QGraphicsScene
{
    Q_OBJECT
public:
    // Page file: magic, format version, body, SHA-1 of the body.
    static constexpr quint32 kMagic = 0x50484250; // "PHBP"
    // 2: each apparatus as its record (stream and kept values), then the recording.
    // 3: apparatus and marks, each tagged with its kind, then wire links, then the recording.
    static constexpr quint16 kVersion = 3;
    // What a page may hold, checked before anything is made: a page fits in memory and
    // opens in a moment, and a damaged file cannot exhaust either.
    static constexpr qint64 kMaxFileSize = 256 * 1024 * 1024;
    static constexpr int kMaxObjects = 5000;
    static constexpr int kMaxItems = 20000;
    // The apparatus whose ends join terminals.
    static constexpr int kWireType = 500;
    // The sheet a teacher writes on; the view shows its edge.
    static QRectF pageRect() { return QRectF(0, 0, 1600, 1000); }

    // progress(done, total) returns false to cancel.
    using Progress = std::function<bool(int done, int total)>;

    explicit BoardPage(QObject *parent = nullptr);
    ~BoardPage() override;

    // A new container from the library's factory; null when the id makes no apparatus.
    static CWBPhysicalObject *create(int typeId, bool defaultSize = true);
    static CWBPhysicalObject *asObject(QGraphicsItem *item);
    // An apparatus or a mark; null for anything else.
    static bool isPageItem(const QGraphicsItem *item);
    static void releaseItem(QGraphicsItem *item);
    // What a user calls the item: the apparatus's name, or the kind of mark.
    static QString nameOf(QGraphicsItem *item);

    // The apparatus on the page, bottom first.
    QList<CWBPhysicalObject *> objects() const;
    // Apparatus and marks, bottom first.
    QList<QGraphicsItem *> pageItems() const;
    void insertObject(CWBPhysicalObject *obj);
    void insertItem(QGraphicsItem *item);
    // Takes an item off the page; the caller owns it afterwards. Its links go with it.
    void takeItem(QGraphicsItem *item);
    // Releases everything on the page.
    void clearPage();
    qreal topZ() const;
    qreal bottomZ() const;
    QRectF contentBounds() const;
    static QRectF boundsOf(const QList<QGraphicsItem *> &items);

    // Wire links. A link holds only while both items are on the page.
    const QVector<WireLink> &links() const { return m_links; }
    void setLinks(const QVector<WireLink> &links);
    QVector<WireLink> linksOf(const QList<QGraphicsItem *> &items) const;

    // The page as bytes and back, with a playback recording (Recorder::save) if there is
    // one. Loading is all or nothing: on failure nothing made survives and error holds a
    // message with %1 standing for the file name.
    static QByteArray serialize(const PageContent &content);
    static QByteArray serialize(const QList<CWBPhysicalObject *> &objects, const QByteArray &recording = QByteArray());
    static bool deserialize(const QByteArray &bytes, PageContent *out, QString *error);
    // Apparatus only (marks in the bytes are left out).
    static bool deserialize(const QByteArray &bytes, QList<CWBPhysicalObject *> *out, QString *error,
                            QByteArray *recording = nullptr);
    PageContent content(const QByteArray &recording = QByteArray()) const;

    // Reads a whole page file into new items that belong to no page yet.
    static bool readFile(const QString &path, PageContent *out, QString *error);
    // Releases the apparatus on the page and puts these instead; marks stay (a replay
    // redraws the apparatus under the teacher's notes).
    void replaceWith(const QList<CWBPhysicalObject *> &objects);
    // Releases everything and puts this content on the page.
    void replaceAll(const PageContent &content);

    bool saveTo(const QString &path, QString *error, const QByteArray &recording = QByteArray()) const;
    // Replaces the page only when the whole file reads.
    bool loadFrom(const QString &path, QString *error);

    // SVG, PNG or PDF by the file's suffix, without handles.
    bool exportPage(const QString &path, QString *error, const Progress &progress = Progress()) const;
    static bool exportItems(const QList<QGraphicsItem *> &items, const QString &path, QString *error,
                            const Progress &progress = Progress());
    // The page as an SVG text.
    QByteArray pageSvg(const Progress &progress = Progress()) const;
    static QByteArray itemsSvg(const QList<QGraphicsItem *> &items, const Progress &progress = Progress());
    static QImage itemsImage(const QList<QGraphicsItem *> &items, double pixelsPerUnit, const Progress &progress = Progress());
    // Paints items, without handles, with source (page units) mapped onto target.
    static bool paintItems(QPainter *p, const QList<QGraphicsItem *> &items, const QRectF &source, const QRectF &target,
                           const Progress &progress = Progress());
    // The area an export covers: the items and a margin.
    static QRectF exportRect(const QList<QGraphicsItem *> &items);

signals:
    void linksChanged();

private:
    QVector<WireLink> m_links;
};
