#pragma once
// Records what happens on a page and plays it back. Property changes travel as the
// apparatus's own playback records; whatever they do not cover (moves, handle drags,
// placing, undo) is kept as a whole-page key frame.
#include <QByteArray>
#include <QList>
#include <QObject>
#include <QTimer>
#include <QVector>

class BoardPage;
class CWBPhysicalObject;

class Recorder : public QObject
{
    Q_OBJECT
public:
    struct Entry {
        enum Kind { Record, KeyFrame } kind = Record;
        int object = -1;   // index on the page, bottom first (records)
        int actionId = 0;  // the property the apparatus recorded under
        QByteArray data;   // the recorded value, or the whole page (key frames)
    };

    explicit Recorder(BoardPage *page, QObject *parent = nullptr);
    ~Recorder() override;

    bool isRecording() const { return m_recording; }
    bool isPlaying() const { return m_playing; }
    bool hasRecording() const { return !m_recording && !m_start.isEmpty(); }
    const QVector<Entry> &entries() const { return m_entries; }

    void start();
    void stop();
    // Forgets the recording.
    void clear();

    // The recording as a page keeps it (empty when there is none), and back. load takes
    // only a whole, sound recording; anything else leaves the recorder empty.
    QByteArray save() const;
    bool load(const QByteArray &bytes);
    static bool valid(const QByteArray &bytes);
    // After every finished change of the page while recording.
    void noteChange();

    // Puts the recorded start on the page; step() then replays one entry at a time.
    bool beginPlayback();
    bool step();
    // Steps every intervalMs until done; 0 replays everything at once.
    bool play(int intervalMs);
    void cancel();

signals:
    void progress(int done, int total);
    void finished();

private:
    static bool parse(const QByteArray &bytes, QByteArray *start, QVector<Entry> *entries);
    void setShadow(const QByteArray &page);
    void clearShadow();

    BoardPage *m_page;
    bool m_recording = false;
    bool m_playing = false;
    QByteArray m_start;
    QByteArray m_lastPage;                // the page at the last change noted
    QVector<Entry> m_entries;
    int m_seen = 0;                       // framework records already taken
    QList<CWBPhysicalObject *> m_shadow;  // what a replay so far would show
    int m_next = 0;
    QTimer m_timer;
};
