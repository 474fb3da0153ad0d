#include "Recorder.h"
#include "Page.h"
#include <framework.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

void applyRecord(CWBPhysicalObject *obj, const Recorder::Entry &e)
{
    if (!obj || !obj->content())
        return;
    QDataStream in(e.data);
    obj->content()->DoPlaybackActionEx(e.actionId, in);
    obj->update();
}

} // namespace

Recorder::Recorder(BoardPage *page, QObject *parent) : QObject(parent), m_page(page)
{
    connect(&m_timer, &QTimer::timeout, this, [this]() {
        if (!step())
            m_timer.stop();
    });
}

Recorder::~Recorder() { clearShadow(); }

void Recorder::clearShadow()
{
    for (CWBPhysicalObject *o : m_shadow)
        o->Release();
    m_shadow.clear();
}

void Recorder::setShadow(const QByteArray &page)
{
    clearShadow();
    GetFramework()->mute(true);
    BoardPage::deserialize(page, &m_shadow, nullptr);
    GetFramework()->mute(false);
}

namespace {
constexpr quint32 kMagic = 0x50485245; // "PHRE"
constexpr quint16 kVersion = 1;
} // namespace

void Recorder::clear()
{
    cancel();
    m_recording = false;
    m_entries.clear();
    m_start.clear();
    clearShadow();
}

QByteArray Recorder::save() const
{
    if (!hasRecording())
        return QByteArray();
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << kMagic << kVersion << m_start << quint32(m_entries.size());
    for (const Entry &e : m_entries)
        out << quint8(e.kind) << qint32(e.object) << qint32(e.actionId) << e.data;
    return b;
}

bool Recorder::parse(const QByteArray &bytes, QByteArray *start, QVector<Entry> *entries)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0, n = 0;
    quint16 version = 0;
    in >> magic >> version >> *start >> n;
    // Each entry takes at least 13 bytes: a damaged count must not become an allocation.
    if (in.status() != QDataStream::Ok || magic != kMagic || version != kVersion || qint64(n) * 13 > bytes.size())
        return false;
    // The start must be a page that opens.
    QList<CWBPhysicalObject *> objs;
    GetFramework()->mute(true);
    const bool startOk = BoardPage::deserialize(*start, &objs, nullptr);
    GetFramework()->mute(false);
    for (CWBPhysicalObject *o : objs)
        o->Release();
    if (!startOk)
        return false;
    for (quint32 i = 0; i < n; ++i) {
        quint8 kind = 0;
        qint32 object = -1, action = 0;
        Entry e;
        in >> kind >> object >> action >> e.data;
        if (in.status() != QDataStream::Ok || kind > Entry::KeyFrame || object < -1 || object >= BoardPage::kMaxObjects)
            return false;
        e.kind = Entry::Kind(kind);
        e.object = object;
        e.actionId = action;
        entries->append(e);
    }
    return in.atEnd();
}

bool Recorder::valid(const QByteArray &bytes)
{
    QByteArray start;
    QVector<Entry> entries;
    return bytes.isEmpty() || parse(bytes, &start, &entries);
}

bool Recorder::load(const QByteArray &bytes)
{
    clear();
    if (bytes.isEmpty())
        return true;
    QByteArray start;
    QVector<Entry> entries;
    if (!parse(bytes, &start, &entries))
        return false;
    m_start = start;
    m_entries = entries;
    return true;
}

void Recorder::start()
{
    cancel();
    m_entries.clear();
    m_start = BoardPage::serialize(m_page->objects());
    m_lastPage = m_start;
    setShadow(m_start);
    m_seen = GetFramework()->records().size();
    m_recording = true;
}

void Recorder::stop()
{
    if (!m_recording)
        return;
    noteChange();
    m_recording = false;
    clearShadow();
}

void Recorder::noteChange()
{
    if (!m_recording)
        return;
    const QList<CWBPhysicalObject *> onPage = m_page->objects();
    const QVector<PlaybackRecord> &records = GetFramework()->records();
    bool replayed = false;
    for (; m_seen < records.size(); ++m_seen) {
        const PlaybackRecord &r = records[m_seen];
        CSVGBase *c = GetFramework()->object(r.object);
        const int index = c ? onPage.indexOf(static_cast<CWBPhysicalObject *>(c->owner())) : -1;
        if (index < 0 || index >= m_shadow.size())
            continue; // an object no longer on the page: the key frame below covers it
        Entry e;
        e.kind = Entry::Record;
        e.object = index;
        e.actionId = r.actionId;
        e.data = r.data;
        m_entries.append(e);
        GetFramework()->mute(true);
        applyRecord(m_shadow[index], e);
        GetFramework()->mute(false);
        replayed = true;
    }
    const QByteArray now = BoardPage::serialize(onPage);
    const bool same = replayed ? now == BoardPage::serialize(m_shadow) : now == m_lastPage;
    m_lastPage = now;
    if (!same) {
        Entry e;
        e.kind = Entry::KeyFrame;
        e.data = now;
        m_entries.append(e);
        setShadow(now);
    }
}

bool Recorder::beginPlayback()
{
    if (!hasRecording())
        return false;
    QList<CWBPhysicalObject *> objs;
    if (!BoardPage::deserialize(m_start, &objs, nullptr))
        return false;
    m_page->replaceWith(objs);
    m_next = 0;
    m_playing = true;
    emit progress(0, m_entries.size());
    if (m_entries.isEmpty()) {
        m_playing = false;
        emit finished();
    }
    return true;
}

bool Recorder::step()
{
    if (!m_playing)
        return false;
    if (m_next < m_entries.size()) {
        const Entry &e = m_entries[m_next++];
        if (e.kind == Entry::KeyFrame) {
            QList<CWBPhysicalObject *> objs;
            if (BoardPage::deserialize(e.data, &objs, nullptr))
                m_page->replaceWith(objs);
        } else {
            applyRecord(m_page->objects().value(e.object), e);
        }
        emit progress(m_next, m_entries.size());
    }
    if (m_next >= m_entries.size()) {
        m_playing = false;
        emit finished();
        return false;
    }
    return true;
}

bool Recorder::play(int intervalMs)
{
    if (!beginPlayback())
        return false;
    if (intervalMs <= 0) {
        while (step()) {
        }
    } else if (m_playing) {
        m_timer.start(intervalMs);
    }
    return true;
}

void Recorder::cancel()
{
    m_timer.stop();
    if (m_playing) {
        m_playing = false;
        emit finished();
    }
}
