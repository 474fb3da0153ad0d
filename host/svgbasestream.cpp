// The host's part of a saved object: reading and writing it, its JSON form and playback.
#include "framework.h"
#include "svgbase_p.h"
#include "svgbase.h"
#include "svgobj.h"
#include <QBuffer>
#include <QJsonDocument>
#include <cmath>
#include <cstring>
// ------------------------------------------------------------- persistence

QDataStream &readColor(QDataStream &in, QColor &color)
{
    color = QColor();
    if (in.version() < QDataStream::Qt_4_0) { // an RGB value then, nothing to check
        in >> color;
        return in;
    }
    // colour kind, alpha, red, green, blue, padding
    constexpr int kSize = 1 + 5 * 2;
    char raw[kSize];
    if (in.readRawData(raw, kSize) != kSize) {
        in.setStatus(QDataStream::ReadPastEnd);
        return in;
    }
    const qint8 kind = qint8(raw[0]);
    if (kind < QColor::Invalid || kind > QColor::ExtendedRgb) {
        in.setStatus(QDataStream::ReadCorruptData);
        return in;
    }
    QDataStream part(QByteArray::fromRawData(raw, kSize));
    part.setVersion(in.version());
    part.setByteOrder(in.byteOrder());
    part >> color;
    return in;
}

namespace {

bool finite(const QRectF &r)
{
    return std::isfinite(r.x()) && std::isfinite(r.y()) && std::isfinite(r.width()) && std::isfinite(r.height());
}

bool within(double v, double bound) { return std::isfinite(v) && std::fabs(v) <= bound; }

// An empty size (as Qt makes one: -1 by -1) or a drawable one.
bool sane(const QSizeF &s, double bound)
{
    if (s == QSizeF())
        return true;
    return within(s.width(), bound) && within(s.height(), bound) && s.width() >= 0 && s.height() >= 0;
}

// FNV-1a: a stream whose bytes changed anywhere is refused before anything is applied.
quint64 fnv(const QByteArray &bytes, quint64 h = 14695981039346656037ull)
{
    for (const char c : bytes) {
        h ^= quint8(c);
        h *= 1099511628211ull;
    }
    return h;
}

constexpr quint32 kStreamMagic = 0x50485953; // the host part of an object's stream
constexpr quint16 kStreamVersion = 2;
constexpr double kMaxSize = 1e7;             // item and document sizes

int gLegacyStreams = 0;

QByteArray emptyPatchBytes(const QDataStream &like)
{
    QByteArray b;
    QDataStream t(&b, QIODevice::WriteOnly);
    t.setVersion(like.version());
    t.setByteOrder(like.byteOrder());
    t << QByteArray();
    return b;
}

} // namespace

namespace SvgStream {

// Reads a count of items of at least `least` bytes each, refusing one that the bytes
// left cannot hold: a damaged count must never become an allocation.
bool readCount(QDataStream &in, quint32 &n, int least)
{
    in >> n;
    if (in.status() != QDataStream::Ok)
        return false;
    const QIODevice *d = in.device();
    if (d && !d->isSequential() && qint64(n) * least > d->bytesAvailable()) {
        in.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    return true;
}

// The keys a JSON form carries besides the host's, which the drawing patch depends on.
quint64 jsonContext(const QJsonObject &json)
{
    QJsonObject own;
    for (auto it = json.begin(); it != json.end(); ++it)
        if (!it.key().startsWith(QLatin1String("svgbase_")))
            own.insert(it.key(), it.value());
    return own.isEmpty() ? 0 : fnv(QJsonDocument(own).toJson(QJsonDocument::Compact));
}

} // namespace SvgStream

using namespace SvgStream;

quint64 CSVGBase::streamChecksum(const QByteArray &bytesBefore) { return fnv(bytesBefore); }

void CSVGBase::readPaintAndSize(QDataStream &in, HostPart &part)
{
    readColor(in, part.host);
    readColor(in, part.lamp);
    readColor(in, part.pen);
    in >> part.penStyle >> part.penWidth;
    readColor(in, part.fill);
    in >> part.fillOn >> part.external >> part.itemSize;
}

// As many handle places as the apparatus has handles, each within the extent.
bool CSVGBase::readHandles(QDataStream &in, HostPart &part, int count)
{
    quint32 n = 0;
    if (!readCount(in, n, 16) || n != quint32(count))
        return false;
    for (quint32 i = 0; i < n; ++i) {
        double x = 0, y = 0;
        in >> x >> y;
        if (!within(x, kMaxExtent) || !within(y, kMaxExtent))
            in.setStatus(QDataStream::ReadCorruptData);
        part.handles.append(QPointF(x, y));
    }
    return in.status() == QDataStream::Ok;
}

bool CSVGBase::sanePart(const HostPart &part)
{
    const QRectF &vb = part.viewBox;
    return part.penStyle >= 0 && part.penStyle <= Qt::CustomDashLine && part.penWidth >= 0 && part.penWidth <= 1000 &&
           sane(part.itemSize, kMaxSize) && finite(vb) && within(vb.x(), kMaxSize) && within(vb.y(), kMaxSize) &&
           vb.width() >= 0 && vb.width() <= kMaxSize && vb.height() >= 0 && vb.height() <= kMaxSize;
}

bool CSVGBase::refuseLoad(QDataStream *in, const QString &why)
{
    if (in && in->status() == QDataStream::Ok)
        in->setStatus(QDataStream::ReadCorruptData);
    m_loadError = why;
    return false;
}

// The host's part: magic, version, type id, the length of the apparatus's own part
// before it, colours and pen, item size, handle places, view box, document size and
// cached bounds, the drawing patch, and a checksum of the whole stream.
bool CSVGBase::save(QDataStream &out)
{
    QIODevice *dev = out.device();
    if (m_bSavingBare) {
        // The stream as a load rebuilds it, without the patch: the probe reads this. It
        // is written into a buffer of ours, which holds the apparatus's part before it.
        auto *buffer = qobject_cast<QBuffer *>(dev);
        const QByteArray own = buffer ? buffer->data().left(int(buffer->pos())) : QByteArray();
        QByteArray host;
        {
            QDataStream h(&host, QIODevice::WriteOnly);
            h.setVersion(out.version());
            h.setByteOrder(out.byteOrder());
            h << kStreamMagic << kStreamVersion << qint32(getSVGType()) << quint32(own.size());
            h << m_hostColor << m_lampColor << m_penColor << qint32(m_penStyle) << qint32(m_penWidth)
              << m_fillBrush.color() << qint32(m_fillBrush.style() == Qt::NoBrush ? 0 : 1) << m_bExternalFilled;
            h << (m_pOwner ? m_pOwner->itemSize() : QSizeF()) << quint32(m_controlNodes.size());
            for (QSvgNode *c : m_controlNodes) {
                const QRectF r = c->rect();
                h << r.x() << r.y();
            }
            h << (m_pDocument ? m_pDocument->viewBox() : QRectF()) << (m_pDocument ? m_pDocument->givenSize() : QSizeF())
              << (m_pDocument ? m_pDocument->cachedBoundsAsIs() : QRectF());
        }
        m_nBareFieldsSize = host.size();
        QByteArray tail;
        {
            QDataStream t(&tail, QIODevice::WriteOnly);
            t.setVersion(out.version());
            t.setByteOrder(out.byteOrder());
            t << QByteArray() << fnv(own + host + emptyPatchBytes(out));
        }
        m_nBareHostSize = host.size() + tail.size();
        out.writeRawData(host.constData(), host.size());
        out.writeRawData(tail.constData(), tail.size());
        return out.status() == QDataStream::Ok;
    }
    QByteArray bare;
    {
        QDataStream b(&bare, QIODevice::WriteOnly);
        b.setVersion(out.version());
        b.setByteOrder(out.byteOrder());
        m_bSavingBare = true;
        save(b);
        m_bSavingBare = false;
    }
    const int ownLength = bare.size() - m_nBareHostSize;
    const QByteArray fields = bare.mid(ownLength, m_nBareFieldsSize);
    QByteArray patchBytes;
    {
        QDataStream t(&patchBytes, QIODevice::WriteOnly);
        t.setVersion(out.version());
        t.setByteOrder(out.byteOrder());
        t << drawingPatch(bare);
    }
    QByteArray sum;
    {
        QDataStream t(&sum, QIODevice::WriteOnly);
        t.setByteOrder(out.byteOrder());
        t << fnv(bare.left(ownLength) + fields + patchBytes);
    }
    const QByteArray host = fields + patchBytes + sum;
    out.writeRawData(host.constData(), host.size());
    return out.status() == QDataStream::Ok;
}

bool CSVGBase::readHostPart(QDataStream &in, HostPart &part)
{
    QIODevice *dev = in.device();
    const qint64 hostStart = dev ? dev->pos() : -1;
    quint32 magic = 0, own = 0;
    quint16 version = 0;
    qint32 type = 0;
    in >> magic >> version;
    if (in.status() != QDataStream::Ok || magic != kStreamMagic)
        return refuseLoad(&in, QStringLiteral("not a saved apparatus"));
    if (version == 1 && gLegacyStreams > 0)
        return readLegacyHostPart(in, part);
    if (version != kStreamVersion)
        return refuseLoad(&in, QStringLiteral("saved by another version (%1)").arg(version));
    in >> type >> own;
    if (in.status() != QDataStream::Ok)
        return refuseLoad(&in, QStringLiteral("cut short"));
    if (type != getSVGType())
        return refuseLoad(&in, QStringLiteral("an apparatus of type %1, not %2").arg(type).arg(getSVGType()));
    readPaintAndSize(in, part);
    if (!readHandles(in, part, m_controlNodes.size()))
        return refuseLoad(&in, QStringLiteral("cut short, damaged, or with other handles"));
    in >> part.viewBox >> part.docSize >> part.cachedBounds;
    QByteArray patch;
    in >> patch;
    const qint64 sumAt = dev ? dev->pos() : -1;
    quint64 sum = 0;
    in >> sum;
    if (in.status() != QDataStream::Ok)
        return refuseLoad(&in, QStringLiteral("cut short or damaged"));
    if (!sanePart(part) || !sane(part.docSize, kMaxSize) || !finite(part.cachedBounds))
        return refuseLoad(&in, QStringLiteral("damaged"));
    // The checksum covers the apparatus's own part too, read back from the device.
    if (dev && !dev->isSequential() && hostStart >= qint64(own)) {
        const qint64 resume = dev->pos();
        QByteArray whole;
        if (dev->seek(hostStart - own))
            whole = dev->read(sumAt - (hostStart - own));
        dev->seek(resume);
        if (whole.size() != sumAt - (hostStart - own) || fnv(whole) != sum)
            return refuseLoad(&in, QStringLiteral("damaged (checksum)"));
    } else if (dev && !dev->isSequential()) {
        return refuseLoad(&in, QStringLiteral("damaged"));
    }
    if (!readPatch(patch, part.patch))
        return refuseLoad(&in, QStringLiteral("damaged drawing"));
    part.context = m_nLoadContext;
    return true;
}

CSVGBase::LegacyStreams::LegacyStreams(bool on) : m_on(on)
{
    if (m_on)
        ++gLegacyStreams;
}

CSVGBase::LegacyStreams::~LegacyStreams()
{
    if (m_on)
        --gLegacyStreams;
}

// The first format: colours and pen, item size, view box, handle places.
bool CSVGBase::readLegacyHostPart(QDataStream &in, HostPart &part)
{
    part.legacy = true;
    readPaintAndSize(in, part);
    in >> part.viewBox;
    if (!readHandles(in, part, m_controlNodes.size()) || !sanePart(part) || part.viewBox.isEmpty())
        return refuseLoad(&in, QStringLiteral("cut short or damaged"));
    return true;
}

void CSVGBase::applyLoaded(const HostPart &part, const std::function<void()> &own, const std::function<void()> &after)
{
    m_loadError.clear();
    m_loading = true;
    GetFramework()->mute(true);
    if (own)
        own();
    m_hostColor = part.host;
    m_lampColor = part.lamp;
    m_penColor = part.pen;
    m_penStyle = Qt::PenStyle(part.penStyle);
    m_penWidth = part.penWidth;
    m_fillBrush = part.fillOn ? QBrush(part.fill) : QBrush();
    m_bExternalFilled = part.external;
    // Replaying the handles lets each apparatus re-derive what only a drag derives
    // (tick counts, angles) as a user's drag did. Handles go where they were, even
    // past their bounds (a typed value may put them there).
    for (int i = 0; i < m_controlNodes.size() && i < part.handles.size(); ++i) {
        QSvgNode *h = m_controlNodes.at(i);
        const QPointF delta = part.handles.at(i) - h->rect().topLeft();
        if (delta.x() != 0 || delta.y() != 0) {
            h->translate(delta.x(), delta.y());
            updateSVG(h, delta, true);
        }
    }
    applyHostColors();
    if (after)
        after();
    // What the drawing spans, as saved: the item moves with it so that the drawing
    // stays where it was on the page.
    if (m_pDocument) {
        const QRectF vb = part.viewBox, now = m_pDocument->viewBox();
        if (vb.topLeft() != now.topLeft() || vb.size() != now.size())
            adjustSvgPosition(vb.topLeft() - now.topLeft(), vb.width() - now.width(), vb.height() - now.height(), true);
        m_pDocument->setViewBox(vb);
        if (!part.legacy) {
            m_pDocument->setSize(part.docSize);
            m_pDocument->setCachedBounds(part.cachedBounds);
        }
    }
    // The patch puts back what the load does not rebuild, for the object as it was saved:
    // a JSON form whose own keys were changed since keeps what they now say.
    if (part.patch.context == part.context)
        applyPatch(part.patch);
    GetFramework()->mute(false);
    m_loading = false;
    if (m_pOwner && part.itemSize.width() > 0 && part.itemSize.height() > 0)
        m_pOwner->setSize2(part.itemSize, false);
    applyKept(part.kept);
    if (m_pOwner)
        m_pOwner->update();
}

bool CSVGBase::load(QDataStream &in)
{
    HostPart part;
    if (!readHostPart(in, part))
        return false;
    applyLoaded(part, nullptr, nullptr);
    return true;
}

void CSVGBase::saveJson(QJsonObject &json)
{
    json.insert(QStringLiteral("svgbase_type"), getSVGType());
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_5_15);
        const QJsonObject base = json;
        m_pJsonSave = &base;
        save(out);
        m_pJsonSave = nullptr;
    }
    json.insert(QStringLiteral("svgbase_stream"), QString::fromLatin1(bytes.toBase64()));
    if (!m_kept.empty())
        json.insert(QStringLiteral("svgbase_kept"), QString::fromLatin1(keptBytes().toBase64()));
}

bool CSVGBase::readJson(const QJsonObject &json, QByteArray &stream, QVector<QVariant> &kept)
{
    const QJsonValue type = json.value(QStringLiteral("svgbase_type"));
    const QJsonValue text = json.value(QStringLiteral("svgbase_stream"));
    if (!type.isDouble() || !text.isString())
        return refuseLoad(nullptr, QStringLiteral("the JSON holds no saved apparatus"));
    if (type.toDouble() != getSVGType())
        return refuseLoad(nullptr, QStringLiteral("an apparatus of type %1, not %2").arg(type.toDouble()).arg(getSVGType()));
    const auto decoded = QByteArray::fromBase64Encoding(text.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return refuseLoad(nullptr, QStringLiteral("the saved stream is not base64"));
    stream = *decoded;
    const QJsonValue k = json.value(QStringLiteral("svgbase_kept"));
    if (!k.isUndefined()) {
        const auto bytes = QByteArray::fromBase64Encoding(k.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        if (!k.isString() || !bytes || !readKept(*bytes, kept))
            return refuseLoad(nullptr, QStringLiteral("damaged kept values"));
    }
    return true;
}

bool CSVGBase::readHostJson(const QJsonObject &json, HostPart &part)
{
    QByteArray stream;
    QVector<QVariant> kept;
    if (!readJson(json, stream, kept))
        return false;
    QDataStream in(stream);
    in.setVersion(QDataStream::Qt_5_15);
    m_nLoadContext = jsonContext(json);
    const bool ok = readHostPart(in, part);
    m_nLoadContext = 0;
    part.kept = kept;
    return ok;
}

void CSVGBase::loadJson(QJsonObject &json)
{
    QByteArray stream;
    QVector<QVariant> kept;
    if (!readJson(json, stream, kept))
        return;
    QDataStream in(stream);
    in.setVersion(QDataStream::Qt_5_15);
    m_nLoadContext = jsonContext(json);
    const bool ok = load(in);
    m_nLoadContext = 0;
    if (ok)
        applyKept(kept);
}

void CSVGBase::SavePropertyForPlayback(QDataStream &out) { out << record(); }

void CSVGBase::LoadPropertyForPlayback(QDataStream &in)
{
    QByteArray r;
    in >> r;
    if (in.status() == QDataStream::Ok)
        restoreRecord(r);
}

bool CSVGBase::DoPlaybackActionEx(int actionId, QDataStream &in)
{
    if (actionId == ACTION_STATE) {
        QByteArray r;
        in >> r;
        return in.status() == QDataStream::Ok && restoreRecord(r);
    }
    const int propId = actionIdToPropId(actionId);
    const CSVGPropItem *item = propItemByPropId(propId);
    return setInnerProperty(item ? item->attributeId() : propId, in, false, false);
}
