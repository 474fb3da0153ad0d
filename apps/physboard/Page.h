#pragma once
// One page of the board: the apparatus on it, its file and its exports.
#include <QGraphicsScene>
#include <QList>
#include <QString>
#include <functional>

class CWBPhysicalObject;

class BoardPage : public QGraphicsScene
{
    Q_OBJECT
public:
    // Page file: magic, format version, body, SHA-1 of the body.
    static constexpr quint32 kMagic = 0x50484250; // "PHBP"
    // 2: each apparatus as its record (stream and kept values), then the recording.
    static constexpr quint16 kVersion = 2;
    // What a page may hold, checked before anything is made: a page fits in memory and
    // opens in a moment, and a damaged file cannot exhaust either.
    static constexpr qint64 kMaxFileSize = 256 * 1024 * 1024;
    static constexpr int kMaxObjects = 5000;

    // progress(done, total) returns false to cancel.
    using Progress = std::function<bool(int done, int total)>;

    explicit BoardPage(QObject *parent = nullptr);
    ~BoardPage() override;

    // A new container from the library's factory; null when the id makes no apparatus.
    static CWBPhysicalObject *create(int typeId, bool defaultSize = true);
    static CWBPhysicalObject *asObject(QGraphicsItem *item);

    // The apparatus on the page, bottom first.
    QList<CWBPhysicalObject *> objects() const;
    void insertObject(CWBPhysicalObject *obj);
    // Takes the object off the page; the caller owns it afterwards.
    void takeObject(CWBPhysicalObject *obj);
    // Releases every object on the page.
    void clearPage();
    qreal topZ() const;
    QRectF contentBounds() const;

    // The page as bytes and back, with a playback recording (Recorder::save) if there is
    // one. Loading is all or nothing: on failure no object survives and error holds a
    // message with %1 standing for the file name.
    static QByteArray serialize(const QList<CWBPhysicalObject *> &objects, const QByteArray &recording = QByteArray());
    static bool deserialize(const QByteArray &bytes, QList<CWBPhysicalObject *> *out, QString *error,
                            QByteArray *recording = nullptr);

    // Reads a whole page file into new objects that belong to no page yet.
    static bool readFile(const QString &path, QList<CWBPhysicalObject *> *out, QString *error,
                         QByteArray *recording = nullptr);
    // Releases what is on the page and puts these objects on it instead.
    void replaceWith(const QList<CWBPhysicalObject *> &objects);

    bool saveTo(const QString &path, QString *error, const QByteArray &recording = QByteArray()) const;
    // Replaces the page only when the whole file reads.
    bool loadFrom(const QString &path, QString *error);

    // SVG or PNG by the file's suffix, without handles.
    bool exportPage(const QString &path, QString *error, const Progress &progress = Progress()) const;
    static bool exportObject(CWBPhysicalObject *obj, const QString &path, QString *error);
    // The page as an SVG text.
    QByteArray pageSvg(const Progress &progress = Progress()) const;
};
