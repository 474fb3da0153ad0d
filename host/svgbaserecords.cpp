// Records and undo states: an object's stream with the values it keeps outside it.
#include "svgbase_p.h"
#include "svgobj.h"
#include "svgtinydocument.h"
#include <QBuffer>
#include <cmath>

namespace {
constexpr quint32 kRecordMagic = 0x50485243; // a record: stream and kept values
} // namespace

void CSVGBase::keepValue(const QString &key, int *value, int lo, int hi)
{
    Kept k;
    k.key = key;
    k.i = value;
    k.lo = lo;
    k.hi = hi;
    m_kept.push_back(k);
}

void CSVGBase::keepValue(const QString &key, double *value)
{
    Kept k;
    k.key = key;
    k.d = value;
    m_kept.push_back(k);
}

QByteArray CSVGBase::keptBytes() const
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out << quint32(m_kept.size());
    for (const Kept &k : m_kept) {
        out << k.key;
        if (k.i)
            out << quint8(0) << qint32(*k.i);
        else
            out << quint8(1) << *k.d;
    }
    return b;
}

bool CSVGBase::readKept(const QByteArray &bytes, QVector<QVariant> &values)
{
    values.clear();
    if (bytes.isEmpty())
        return true;
    QDataStream in(bytes);
    quint32 n = 0;
    in >> n;
    if (in.status() != QDataStream::Ok || n != m_kept.size())
        return false;
    for (const Kept &k : m_kept) {
        QString key;
        quint8 kind = 0;
        in >> key >> kind;
        if (key != k.key || kind != (k.i ? 0 : 1))
            return false;
        if (k.i) {
            qint32 v = 0;
            in >> v;
            if (v < k.lo || v > k.hi)
                return false;
            values.append(int(v));
        } else {
            double v = 0;
            in >> v;
            if (!std::isfinite(v))
                return false;
            values.append(v);
        }
    }
    return in.status() == QDataStream::Ok && in.atEnd();
}

void CSVGBase::applyKept(const QVector<QVariant> &values)
{
    for (int i = 0; i < values.size() && i < int(m_kept.size()); ++i) {
        if (m_kept[size_t(i)].i)
            *m_kept[size_t(i)].i = values[i].toInt();
        else
            *m_kept[size_t(i)].d = values[i].toDouble();
    }
}

QByteArray CSVGBase::record()
{
    QByteArray stream;
    {
        QDataStream out(&stream, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_5_15);
        save(out);
    }
    QByteArray r;
    QDataStream out(&r, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << kRecordMagic << stream << keptBytes();
    return r;
}

bool CSVGBase::restoreRecord(const QByteArray &r)
{
    QDataStream in(r);
    in.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0;
    QByteArray stream, kept;
    in >> magic >> stream >> kept;
    if (in.status() != QDataStream::Ok || magic != kRecordMagic || !in.atEnd())
        return refuseLoad(nullptr, QStringLiteral("not a record of an apparatus"));
    QVector<QVariant> values;
    if (!readKept(kept, values))
        return refuseLoad(nullptr, QStringLiteral("damaged kept values"));
    QDataStream s(stream);
    s.setVersion(QDataStream::Qt_5_15);
    if (!load(s) || !s.atEnd() || !lastLoadOk()) {
        if (lastLoadOk())
            m_loadError = QStringLiteral("damaged");
        return false;
    }
    applyKept(values);
    return true;
}

qint64 SvgUndoState::cost() const
{
    return qint64(sizeof(*this)) + record.size() + (drawing ? drawing->cost() : 0);
}

std::shared_ptr<const SvgUndoState> CSVGBase::undoState()
{
    const QByteArray r = record();
    const quint64 revision = m_pDocument ? m_pDocument->revision() : 0;
    const QPointF pos = m_pOwner ? m_pOwner->pos() : QPointF();
    if (std::shared_ptr<const SvgUndoState> last = m_lastUndo.lock())
        if (last->record == r && m_lastUndoRevision == revision && last->itemPos.x() == pos.x() && last->itemPos.y() == pos.y())
            return last;
    auto s = std::make_shared<SvgUndoState>();
    s->record = r;
    if (m_pDocument)
        s->drawing = std::make_shared<const SvgDocumentState>(m_pDocument->capture());
    s->itemPos = pos;
    m_lastUndo = s;
    m_lastUndoRevision = revision;
    return s;
}

void CSVGBase::restoreUndoState(const std::shared_ptr<const SvgUndoState> &state)
{
    if (!state)
        return;
    restoreRecord(state->record);
    if (m_pDocument && state->drawing) {
        m_pDocument->restore(*state->drawing);
        findControlNodes();
    }
    if (m_pOwner) {
        m_pOwner->setPos(state->itemPos);
        m_pOwner->update();
    }
    // The state as restored is the state now: the next step can share it.
    m_lastUndo = state;
    m_lastUndoRevision = m_pDocument ? m_pDocument->revision() : 0;
}
