#include "svgbase.h"
#include "framework.h"
#include "svgbaseundocmd.h"
#include "svgobj.h"
#include "svgpathdata.h"
#include <QBuffer>
#include <QJsonDocument>
#include <QPainter>
#include <QtEndian>
#include <cmath>
#include <limits>

namespace {
// Travel for a bound the template leaves open: as far as any drawing may reach.
constexpr double kOpenBound = CSVGBase::kMaxExtent;

bool isShape(const QSvgNode *n)
{
    switch (n->type()) {
    case QSvgNode::Rect: case QSvgNode::Path: case QSvgNode::Polygon: case QSvgNode::Ellipse:
    case QSvgNode::Circle: case QSvgNode::Polyline: case QSvgNode::Line:
        return true;
    default:
        return false;
    }
}

template <typename F>
void forEachNode(QSvgNode *n, F f)
{
    f(n);
    for (const auto &c : n->children())
        forEachNode(c.get(), f);
}
} // namespace

CSVGBase::CSVGBase(CSVGObj *owner)
    : m_pOwner(owner), m_pOutlinePath(new QPainterPath), m_serial(GetFramework()->registerObject(this))
{
}

CSVGBase::~CSVGBase()
{
    GetFramework()->unregisterObject(m_serial);
    clearPropItems();
    delete m_pOutlinePath;
    delete m_pDocument;
}

void CSVGBase::clearPropItems()
{
    for (CSVGPropItem *p : m_propItems)
        delete p;
    m_propItems.clear();
}

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

void writeNodeState(QDataStream &out, const QSvgNodeState &n)
{
    const QVector<QSvgNode::Attr> attrs = n.merged();
    out << n.flags << n.text << n.savedFill << n.savedStroke << quint32(attrs.size());
    for (const QSvgNode::Attr &a : attrs) {
        const bool number = a.value.isNull() && a.numberState == 1;
        out << a.name << quint8(number);
        if (number)
            out << a.number;
        else
            out << a.value;
    }
}

bool readNodeState(QDataStream &in, QSvgNodeState &n)
{
    quint32 count = 0;
    in >> n.flags >> n.text >> n.savedFill >> n.savedStroke;
    if (!readCount(in, count, 5))
        return false;
    n.attrs.clear();
    n.attrs.reserve(int(count));
    for (quint32 i = 0; i < count; ++i) {
        QString name;
        quint8 number = 0;
        in >> name >> number;
        QSvgNode::Attr a{QSvgNode::internName(name), QString()};
        if (number == 1) {
            in >> a.number;
            a.numberState = 1;
        } else if (number == 0) {
            in >> a.value;
            if (a.value.isNull())
                a.value = QStringLiteral("");
        } else {
            in.setStatus(QDataStream::ReadCorruptData);
        }
        if (in.status() != QDataStream::Ok || !SvgXml::isName(name))
            return false;
        n.attrs.append(a);
    }
    return in.status() == QDataStream::Ok && n.flags < 16;
}

constexpr quint32 kStreamMagic = 0x50485953; // the host part of an object's stream
constexpr quint16 kStreamVersion = 2;
constexpr quint32 kRecordMagic = 0x50485243; // a record: stream and kept values
constexpr double kMaxSize = 1e7;             // item and document sizes

// The keys a JSON form carries besides the host's, which the drawing patch depends on.
quint64 jsonContext(const QJsonObject &json)
{
    QJsonObject own;
    for (auto it = json.begin(); it != json.end(); ++it)
        if (!it.key().startsWith(QLatin1String("svgbase_")))
            own.insert(it.key(), it.value());
    return own.isEmpty() ? 0 : fnv(QJsonDocument(own).toJson(QJsonDocument::Compact));
}

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

bool CSVGBase::readPatch(const QByteArray &bytes, DrawingPatch &patch)
{
    patch = DrawingPatch();
    if (bytes.isEmpty())
        return true;
    QDataStream in(bytes);
    in >> patch.kind >> patch.context;
    quint32 count = 0;
    if (patch.kind == 1) {
        in >> patch.nodeCount;
        if (!readCount(in, count, 16))
            return false;
        for (quint32 i = 0; i < count; ++i) {
            quint32 index = 0;
            QString tag;
            QSvgNodeState state;
            in >> index >> tag;
            if (in.status() != QDataStream::Ok || index >= patch.nodeCount || !SvgXml::isName(tag) ||
                !readNodeState(in, state))
                return false;
            patch.index.append(index);
            patch.tags.append(tag);
            patch.states.append(state);
        }
    } else if (patch.kind == 2) {
        if (!readCount(in, count, 20) || count == 0)
            return false;
        int previous = -1;
        for (quint32 i = 0; i < count; ++i) {
            QString tag;
            qint32 depth = 0;
            QSvgNodeState state;
            in >> tag >> depth;
            // A tree in document order: the root alone at 0, each node at most one deeper.
            if (in.status() != QDataStream::Ok || !SvgXml::isName(tag) || depth > previous + 1 ||
                (i == 0) != (depth == 0) || depth < 0 || depth > 256 || !readNodeState(in, state))
                return false;
            previous = depth;
            patch.tags.append(tag);
            patch.depths.append(depth);
            patch.states.append(state);
        }
    } else {
        return false;
    }
    return in.status() == QDataStream::Ok && in.atEnd();
}

// What a load of the bare stream gives, against what the drawing is: the drawing
// patch. Empty for apparatus whose drawing follows from what the stream holds.
QByteArray CSVGBase::drawingPatch(const QByteArray &bare)
{
    if (!m_pDocument)
        return QByteArray();
    if (bare == m_patchBare && m_pDocument->revision() == m_patchRevision)
        return m_patch;
    const SvgDocumentState now = m_pDocument->capture();
    SvgDocumentState loaded;
    bool probed = false;
    GetFramework()->mute(true);
    if (CSVGObj *probe = GetFramework()->createObject(getSVGType())) {
        if (CSVGBase *c = probe->content()) {
            if (m_pJsonSave) {
                QJsonObject json = *m_pJsonSave;
                json.insert(QStringLiteral("svgbase_stream"), QString::fromLatin1(bare.toBase64()));
                c->loadJson(json);
            } else {
                QDataStream in(bare);
                in.setVersion(QDataStream::Qt_5_15);
                c->load(in);
            }
            if (c->lastLoadOk() && c->m_pDocument) {
                loaded = c->m_pDocument->capture();
                probed = true;
            }
        }
        probe->Release();
    }
    GetFramework()->mute(false);
    QByteArray patch;
    QDataStream out(&patch, QIODevice::WriteOnly);
    const quint64 context = m_pJsonSave ? jsonContext(*m_pJsonSave) : 0;
    if (probed && now.sameShape(loaded)) {
        QVector<int> differ;
        for (int i = 0; i < now.nodes.size(); ++i)
            if (now.nodes[i] != loaded.nodes[i])
                differ.append(i);
        if (!differ.isEmpty()) {
            out << quint8(1) << context << quint32(now.nodes.size()) << quint32(differ.size());
            for (int i : differ) {
                out << quint32(i) << now.tags[i];
                writeNodeState(out, now.nodes[i]);
            }
        }
    } else {
        // A load would build another tree: the whole drawing goes with the stream.
        out << quint8(2) << context << quint32(now.nodes.size());
        for (int i = 0; i < now.nodes.size(); ++i) {
            out << now.tags[i] << qint32(now.depths[i]);
            writeNodeState(out, now.nodes[i]);
        }
    }
    m_patchBare = bare;
    m_patchRevision = m_pDocument->revision();
    m_patch = patch;
    return patch;
}

void CSVGBase::applyPatch(const DrawingPatch &patch)
{
    if (!m_pDocument || patch.kind == 0)
        return;
    if (patch.kind == 2) {
        SvgDocumentState state = m_pDocument->capture();
        state.tags = patch.tags;
        state.depths = patch.depths;
        state.nodes = patch.states;
        m_pDocument->restore(state);
        findControlNodes();
        return;
    }
    QVector<QSvgNode *> nodes;
    forEachNode(m_pDocument, [&](QSvgNode *n) { nodes.append(n); });
    // Only a stream made by another build could miss; its drawing then stays as loaded.
    if (quint32(nodes.size()) != patch.nodeCount)
        return;
    for (int i = 0; i < patch.index.size(); ++i) {
        QSvgNode *n = nodes[int(patch.index[i])];
        if (n->tagName() == patch.tags[i])
            n->setState(patch.states[i]);
    }
    findControlNodes();
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

void CSVGBase::getAllAttributes(QMap<QString, QVariant> &attrs)
{
    attrs.insert(QStringLiteral("color"), m_hostColor);
    attrs.insert(QStringLiteral("penColor"), m_penColor);
    attrs.insert(QStringLiteral("penWidth"), m_penWidth);
}

void CSVGBase::setAllAttributes(const QMap<QString, QVariant> &attrs, bool)
{
    if (attrs.contains(QStringLiteral("color")))
        m_hostColor = attrs.value(QStringLiteral("color")).value<QColor>();
    if (attrs.contains(QStringLiteral("penColor")))
        m_penColor = attrs.value(QStringLiteral("penColor")).value<QColor>();
    if (attrs.contains(QStringLiteral("penWidth")))
        m_penWidth = qBound(0, attrs.value(QStringLiteral("penWidth")).toInt(), 1000);
    applyHostColors();
}

bool CSVGBase::GetAttribute(int id, QDataStream &out) { return getInnerProperty(id, out); }

bool CSVGBase::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    if (id == ATTR_CAPTURE) {
        m_capturedHostColor = m_hostColor;
        m_bCaptured = true;
        return true;
    }
    if (id == ATTR_RESTORE) {
        // Nothing captured: nothing to put back, and nothing changes.
        if (!m_bCaptured)
            return false;
        m_hostColor = m_capturedHostColor;
        applyHostColors();
        return true;
    }
    return setInnerProperty(id, in, bRecord, bUndo);
}

// ------------------------------------------------------------- records

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

// ------------------------------------------------------------- the edit path

struct CSVGBase::Edit {
    std::shared_ptr<const SvgUndoState> before;
    std::vector<std::unique_ptr<QUndoCommand>> commands;
    QVector<PlaybackRecord> records;
    bool drag = false;
};

namespace {
int gMaxText = CSVGBase::kDefaultMaxText;
}

int CSVGBase::maxTextLength() { return gMaxText; }
void CSVGBase::setMaxTextLength(int n) { gMaxText = qMax(1, n); }

void CSVGBase::beginEdit()
{
    m_edit = std::make_unique<Edit>();
    m_edit->before = undoState();
}

bool CSVGBase::commitEdit(const QString &text)
{
    std::unique_ptr<Edit> e = std::move(m_edit);
    if (!e)
        return false;
    const std::shared_ptr<const SvgUndoState> after = undoState();
    if (after->record == e->before->record)
        return false; // nothing changed: no step, no record
    GetFramework()->pushUndo(new CSVGEditCmd(this, e->before, after, text, std::move(e->commands)));
    if (e->records.isEmpty()) {
        QByteArray data;
        QDataStream out(&data, QIODevice::WriteOnly);
        out << after->record;
        GetFramework()->record(PlaybackRecord{m_serial, ACTION_STATE, PlaybackRecord::KindRecord, data});
    } else {
        for (const PlaybackRecord &r : e->records)
            GetFramework()->record(r);
    }
    return true;
}

bool CSVGBase::edit(const std::function<void()> &change, const QString &text)
{
    if (m_edit) { // part of the edit already open (a drag, or an edit inside an edit)
        change();
        return true;
    }
    beginEdit();
    change();
    return commitEdit(text.isEmpty() ? QStringLiteral("edit") : text);
}

bool CSVGBase::editSettings(const QMap<QString, QString> &values)
{
    QMap<QString, QString> v = values;
    return edit([&]() { SetSettingArray(v, true, true); }, QStringLiteral("settings"));
}

bool CSVGBase::editAttribute(int id, const QByteArray &value)
{
    return edit(
        [&]() {
            QDataStream in(value);
            SetAttribute(id, in, true, true);
        },
        QStringLiteral("property %1").arg(id));
}

bool CSVGBase::editRestore()
{
    if (!m_bCaptured)
        return false;
    return edit(
        [&]() {
            QByteArray none;
            QDataStream in(&none, QIODevice::ReadOnly);
            SetAttribute(ATTR_RESTORE, in, false, false);
        },
        QStringLiteral("restore"));
}

bool CSVGBase::GetSpecialProperty(int, QDataStream &) { return false; }
bool CSVGBase::SetSpecialProperty(int, QDataStream &, bool) { return false; }
void CSVGBase::PopupObjectMenu(void *) {}

// ------------------------------------------------------------- drawing

void CSVGBase::paint(QPainter *painter)
{
    if (!m_pDocument || !m_pOwner)
        return;
    m_pDocument->render(painter, QRectF(QPointF(0, 0), m_pOwner->itemSize()), true);
}

void CSVGBase::paintEx(QPainter *painter, float) { paint(painter); }
void CSVGBase::mousePressEvent(QGraphicsSceneMouseEvent *) {}
void CSVGBase::mouseMoveEvent(QGraphicsSceneMouseEvent *) {}
void CSVGBase::mouseReleaseEvent(QGraphicsSceneMouseEvent *) {}
void CSVGBase::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *) {}
void CSVGBase::keyPressEvent(QKeyEvent *) {}

bool CSVGBase::loadSVG(bool)
{
    m_dragHandle = -1;
    clearPropItems();
    // Content classes without a loader of their own (the fixed symbols) get their template here.
    if (!m_pDocument)
        m_pDocument = QSvgTinyDocument::fromTemplate(getSVG());
    findControlNodes();
    if (!m_pDocument)
        return false;
    initPropItems();
    initSpecialPropItems();
    initGlobalPropValues();
    return true;
}

QString CSVGBase::getSVG() { return QString(); }
int CSVGBase::getSVGType() { return 0; }
void CSVGBase::updateAllControlPoints(bool, bool) {}

QSizeF CSVGBase::getDefaultSVGSize() { return m_pDocument ? m_pDocument->size() : QSizeF(); }

void CSVGBase::updateOutlineRegion()
{
    delete m_pOutlinePath;
    m_pOutlinePath = new QPainterPath;
    if (m_pOwner)
        m_pOutlinePath->addRect(m_pOwner->boundingRect());
}

void CSVGBase::setSize(QSizeF, QSizeF) {}
QSizeF CSVGBase::getMinimizeSize() { return QSizeF(8, 8); }
int CSVGBase::getMaxPenWidth() { return 20; }
void CSVGBase::notifyObjectCreated() {}

QPointF CSVGBase::itemToDocument(const QPointF &p) const
{
    if (!m_pDocument || !m_pOwner)
        return p;
    const QRectF vb = m_pDocument->viewBox();
    const QSizeF s = m_pOwner->itemSize();
    if (vb.isEmpty() || s.isEmpty())
        return p;
    return QPointF(vb.x() + p.x() * vb.width() / s.width(), vb.y() + p.y() * vb.height() / s.height());
}

bool CSVGBase::CheckHitTestHandlers(const QPointF &localPoint)
{
    m_pHitHandle = nullptr;
    const QPointF d = itemToDocument(localPoint);
    for (QSvgNode *h : m_controlNodes) {
        if (h->isVisible() && h->documentBounds().adjusted(-2, -2, 2, 2).contains(d)) {
            m_pHitHandle = h;
            return true;
        }
    }
    return false;
}

void CSVGBase::setFillBrush(const QBrush &brush, bool, bool) { m_fillBrush = brush; }

void CSVGBase::GetSettingArray(QJsonArray &) {}

bool CSVGBase::SetSettingArray(QMap<QString, QString> &, bool, bool) { return false; }

void CSVGBase::GetSettingJson(QString &json)
{
    QJsonArray a;
    GetSettingArray(a);
    json = QString::fromUtf8(QJsonDocument(a).toJson(QJsonDocument::Compact));
}

bool CSVGBase::SetSettingJson(const QString &json, bool bRecord, bool bUndo)
{
    const QJsonDocument doc = QJsonDocument::fromJson(json.toUtf8());
    QMap<QString, QString> values;
    auto take = [&](const QString &key, const QJsonValue &v) {
        if (v.isBool())
            values.insert(key, v.toBool() ? QStringLiteral("true") : QStringLiteral("false"));
        else if (v.isDouble())
            values.insert(key, QString::number(v.toDouble()));
        else
            values.insert(key, v.toString());
    };
    if (doc.isObject()) {
        const QJsonObject o = doc.object();
        for (auto it = o.begin(); it != o.end(); ++it)
            take(it.key(), it.value());
    } else if (doc.isArray()) {
        for (const QJsonValue &v : doc.array())
            take(v.toObject().value(QStringLiteral("id")).toString(), v.toObject().value(QStringLiteral("value")));
    } else {
        return false;
    }
    return SetSettingArray(values, bRecord, bUndo);
}

void CSVGBase::setExternalFilled(bool on) { m_bExternalFilled = on; }
bool CSVGBase::updateSVG(QSvgNode *, QPointF, bool) { return false; }
bool CSVGBase::updateSVG(bool) { return false; }

// A handle's bound: its own attribute, else open when only the other bound is given,
// else the handle's current place (the axis is locked).
static double handleBound(QSvgNode *node, const QString &own, const QString &other, double open, bool vertical)
{
    if (!node)
        return 0;
    double v = 0;
    if (node->findNumAttribute(own, &v))
        return v;
    if (node->hasAttribute(other))
        return open;
    return vertical ? node->rect().y() : node->rect().x();
}

double CSVGBase::getXMin(QSvgNode *node)
{
    return handleBound(node, QStringLiteral("x_from"), QStringLiteral("x_to"), -kOpenBound, false);
}

double CSVGBase::getXMax(QSvgNode *node)
{
    return handleBound(node, QStringLiteral("x_to"), QStringLiteral("x_from"), kOpenBound, false);
}

double CSVGBase::getYMin(QSvgNode *node)
{
    return handleBound(node, QStringLiteral("y_from"), QStringLiteral("y_to"), -kOpenBound, true);
}

double CSVGBase::getYMax(QSvgNode *node)
{
    return handleBound(node, QStringLiteral("y_to"), QStringLiteral("y_from"), kOpenBound, true);
}

QBrush CSVGBase::getFillBrush() { return m_fillBrush; }
QColor CSVGBase::getPenColor() { return m_penColor; }
void CSVGBase::setPenColor(QColor color, bool) { m_penColor = color; }
Qt::PenStyle CSVGBase::getPenStyle() { return m_penStyle; }
void CSVGBase::setPenStyle(Qt::PenStyle style, bool) { m_penStyle = style; }
int CSVGBase::getPenWidth() { return m_penWidth; }

void CSVGBase::setPenWidth(int width, bool)
{
    m_penWidth = qBound(0, width, getMaxPenWidth());
    updateAfterPenWidthChanged(m_penWidth);
}

bool CSVGBase::getInnerProperty(int id, QDataStream &out)
{
    if (id == PROP_COLOR) {
        out << m_hostColor;
        return true;
    }
    if (id == PROP_LAMP_COLOR) {
        out << m_lampColor;
        return true;
    }
    return false;
}

bool CSVGBase::setHostColor(int id, QColor &slot, QDataStream &in, bool bRecord, bool bUndo)
{
    QColor c;
    readColor(in, c);
    if (bUndo) {
        auto *cmd = new CSVGBaseUndoCmd(this, id, nullptr, true);
        cmd->setColor(slot, c);
        addUndoRedo(cmd);
    }
    if (bRecord)
        RecordColor(c, id);
    slot = c;
    applyHostColors();
    return true;
}

bool CSVGBase::setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    if (id == PROP_COLOR)
        return setHostColor(id, m_hostColor, in, bRecord, bUndo);
    if (id == PROP_LAMP_COLOR)
        return setHostColor(id, m_lampColor, in, bRecord, bUndo);
    return false;
}

void CSVGBase::initPropItems()
{
    for (int id : {int(PROP_COLOR), int(PROP_LAMP_COLOR)}) {
        const QString name = getPropName(id);
        if (!name.isEmpty())
            m_propItems.push_back(new CSVGPropItem(id, name, id, DATA_TYPE_COLOR, nullptr, true));
    }
}

void CSVGBase::initSpecialPropItems() {}

QString CSVGBase::getPropName(int id)
{
    return id == PROP_COLOR ? QStringLiteral("IDS_SVG_COLOR") : QString();
}

void CSVGBase::initGlobalPropValues() {}
void CSVGBase::updateAfterPenWidthChanged(int) {}
bool CSVGBase::CanMoveControlPoint(QSvgNode *, QPointF) { return true; }
int CSVGBase::actionIdToPropId(int actionId) { return actionId; }

void CSVGBase::getOutlinePath(QPainterPath *path)
{
    if (path && m_pOutlinePath)
        *path = *m_pOutlinePath;
}

// The host colours recolour the drawing's own shapes, never the handles. 5002 is the
// drawing's colour: it paints the fill of filled shapes and the stroke of shapes drawn
// by their outline alone. 5005 is the light colour: it fills the shapes the template
// marks host_color="light" (a lamp's bulb), whose outline keeps following 5002. Nodes
// an apparatus colours itself opt out with setFillEnabled/setStrokeEnabled(false).
// The replaced paint stays on the node, so clearing a colour gives the template's back.
void CSVGBase::applyHostColors()
{
    if (!m_pDocument)
        return;
    // Paint as the template gave it, inheritance and SVG defaults included.
    auto templatePaint = [](const QSvgNode *n, bool stroke) {
        const QString prop = stroke ? QStringLiteral("stroke") : QStringLiteral("fill");
        for (const QSvgNode *p = n; p; p = p->parent()) {
            const QString &saved = p->hostSavedPaint(stroke);
            const QString v = !saved.isNull() ? saved : p->styleProperty(prop);
            if (!v.isEmpty() && v != QLatin1String("inherit"))
                return v;
        }
        return stroke ? QStringLiteral("none") : QStringLiteral("black");
    };
    auto painted = [](const QString &v) { return v != QLatin1String("none") && !v.startsWith(QLatin1String("url(")); };
    forEachNode(m_pDocument, [&](QSvgNode *n) {
        if (!isShape(n) || n->nodeId().startsWith(QLatin1String("control_")))
            return;
        auto apply = [n](bool stroke, const QColor &c) {
            const QString prop = stroke ? QStringLiteral("stroke") : QStringLiteral("fill");
            const QString saved = n->hostSavedPaint(stroke);
            if (c.isValid()) {
                if (saved.isNull())
                    n->setHostSavedPaint(stroke, n->styleProperty(prop).isNull() ? QStringLiteral("") : n->styleProperty(prop));
                n->setStyleProperty(prop, c.name());
            } else if (!saved.isNull()) {
                if (saved.isEmpty())
                    n->removeAttribute(prop);
                else
                    n->setStyleProperty(prop, saved);
                n->setHostSavedPaint(stroke, QString());
            }
        };
        const bool filled = n->type() != QSvgNode::Line && painted(templatePaint(n, false));
        const bool outlined = painted(templatePaint(n, true));
        if (n->attribute(QStringLiteral("host_color")) == QLatin1String("light")) {
            if (filled && n->fillEnabled())
                apply(false, m_lampColor);
            if (outlined && n->strokeEnabled())
                apply(true, m_hostColor);
        } else if (filled) {
            if (n->fillEnabled())
                apply(false, m_hostColor);
        } else if (outlined && n->strokeEnabled()) {
            apply(true, m_hostColor);
        }
    });
}

// ------------------------------------------------------------- services

void CSVGBase::addNode(QSvgNode *node, const QString &id)
{
    if (!node || !m_pDocument)
        return;
    std::unique_ptr<QSvgNode> owned(node);
    if (node->parent()) { // already placed somewhere: nothing to take over
        owned.release();
        return;
    }
    if (node->nodeId() != id)
        node->setAttribute(QStringLiteral("id"), id);
    // Generated nodes go right after the node they were cloned from, so that
    // drawing order follows the series.
    QSvgNode *source = node->cloneSource();
    if (source && source->document() == m_pDocument && source->parent()) {
        QSvgNode *parent = source->parent();
        parent->insertChild(parent->indexOf(source) + 1, std::move(owned));
    } else {
        m_pDocument->appendChild(std::move(owned));
    }
}

void CSVGBase::removeNode(QSvgNode *node)
{
    if (!node || !m_pDocument || node == m_pDocument || node->document() != m_pDocument)
        return;
    if (m_controlNodes.contains(node))
        m_controlNodes.removeAll(node);
    if (m_pHitHandle == node)
        m_pHitHandle = nullptr;
    node->parent()->takeChild(node); // the returned owner deletes it
}

void CSVGBase::resizeSVG(double dw, double dh, bool bFinal)
{
    adjustSvgPosition(QPointF(0, 0), dw, dh, bFinal);
}

void CSVGBase::adjustSvgPosition(QPointF offset, double dw, double dh, bool)
{
    if (!m_pDocument || !std::isfinite(offset.x()) || !std::isfinite(offset.y()) || !std::isfinite(dw) || !std::isfinite(dh))
        return;
    const QRectF old = m_pDocument->viewBox();
    QRectF vb(old.x() + offset.x(), old.y() + offset.y(), old.width() + dw, old.height() + dh);
    // A drawing never collapses to nothing: keep at least a sliver to map through.
    vb.setWidth(qMax(vb.width(), 1e-3));
    vb.setHeight(qMax(vb.height(), 1e-3));
    const QSizeF size = m_pDocument->size();
    const double sx = old.width() > 0 ? size.width() / old.width() : 1;
    const double sy = old.height() > 0 ? size.height() / old.height() : 1;
    if (m_pOwner) // before the document changes: the item may still take its size from it
        m_pOwner->followViewBox(old, vb);
    m_pDocument->setViewBox(vb);
    m_pDocument->setSize(QSizeF(vb.width() * sx, vb.height() * sy));
}

QString CSVGBase::changePathBeginPoint(const QString &pathData, double dx, double dy)
{
    auto segs = SvgPathData::parse(pathData);
    if (!segs.isEmpty() && segs.first().args.size() >= 2) {
        segs.first().args[0] += dx;
        segs.first().args[1] += dy;
    }
    return SvgPathData::write(segs);
}

QString CSVGBase::changePathHeight(const QString &pathData, double h, int)
{
    auto segs = SvgPathData::parse(pathData);
    const QRectF b = SvgPathData::toPainterPath(segs).boundingRect();
    if (!(b.height() > 0) || !std::isfinite(h))
        return pathData;
    const double s = h / b.height();
    for (int i = 0; i < segs.size(); ++i) {
        SvgPathSegment &seg = segs[i];
        const QChar up = seg.cmd.toUpper();
        const bool rel = seg.cmd.isLower();
        auto scaleY = [&](double &y) { y = rel ? y * s : b.top() + (y - b.top()) * s; };
        if (up == QLatin1Char('V')) {
            for (double &v : seg.args) scaleY(v);
        } else if (up == QLatin1Char('A')) {
            for (int k = 0; k + 7 <= seg.args.size(); k += 7) { seg.args[k + 1] *= s; scaleY(seg.args[k + 6]); }
        } else if (up != QLatin1Char('H') && up != QLatin1Char('Z')) {
            for (int k = 1; k < seg.args.size(); k += 2) {
                if (i == 0 && k == 1 && rel) // a leading relative moveto is absolute
                    seg.args[k] = b.top() + (seg.args[k] - b.top()) * s;
                else
                    scaleY(seg.args[k]);
            }
        }
    }
    return SvgPathData::write(segs);
}

QString CSVGBase::numbersToString(const QVector<double> &numbers) { return SvgNumbers::join(numbers); }

QVector<double> CSVGBase::parseNumbersList(const QChar *&str) { return SvgNumbers::parseList(str); }

void CSVGBase::addAllItemsRegion(QPainterPath *path)
{
    if (!path || !m_pDocument)
        return;
    forEachNode(m_pDocument, [path](QSvgNode *n) {
        if (n->isVisible() && (isShape(n) || n->type() == QSvgNode::Text))
            path->addRect(n->documentBounds());
    });
}

void CSVGBase::addAllControlPointsRegion(QPainterPath *path)
{
    if (!path)
        return;
    for (QSvgNode *h : m_controlNodes)
        path->addRect(h->documentBounds());
}

void CSVGBase::addUndoRedo(CSVGBaseUndoCmd *cmd)
{
    if (!cmd)
        return;
    // Inside an edit the apparatus's command becomes part of the edit's one step.
    if (m_edit)
        m_edit->commands.emplace_back(cmd);
    else
        GetFramework()->pushUndo(cmd);
}

void CSVGBase::RecordData(int kind, const QByteArray &data, int propId)
{
    const PlaybackRecord r{m_serial, propId, kind, data};
    if (m_edit)
        m_edit->records.append(r);
    else
        GetFramework()->record(r);
}

namespace {
void appendJsonString(QByteArray &out, const QString &s)
{
    out += '"';
    int plain = 0; // start of the run not yet copied
    for (int i = 0; i < s.size(); ++i) {
        const ushort u = s.at(i).unicode();
        if (u != '"' && u != '\\' && u >= 0x20)
            continue;
        out += s.midRef(plain, i - plain).toUtf8();
        if (u < 0x20) {
            out += "\\u00";
            out += "0123456789abcdef"[u >> 4];
            out += "0123456789abcdef"[u & 15];
        } else {
            out += '\\';
            out += char(u);
        }
        plain = i + 1;
    }
    out += s.midRef(plain).toUtf8();
    out += '"';
}
} // namespace

void CSVGBase::postSettings(const QVector<QPair<QString, QString>> &settings)
{
    // Written by hand: a drag posts on every step, and this is most of a step's cost.
    QByteArray json = "{\"settings\":[";
    for (int i = 0; i < settings.size(); ++i) {
        json += i ? ",{\"id\":" : "{\"id\":";
        appendJsonString(json, settings[i].first);
        json += ",\"value\":";
        appendJsonString(json, settings[i].second);
        json += '}';
    }
    json += "]}";
    GetFramework()->PostMessage(CFramework::MSG_SETTINGS_CHANGED, 0, &json, -1);
}

void CSVGBase::postNotice(const QString &key, const QString &value, const QString &notice)
{
    const QJsonArray items{QJsonObject{{QStringLiteral("id"), key}, {QStringLiteral("value"), value}}};
    const QByteArray json =
        QJsonDocument(QJsonObject{{QStringLiteral("settings"), items}, {QStringLiteral("notice"), notice}}).toJson(QJsonDocument::Compact);
    GetFramework()->PostMessage(CFramework::MSG_SETTINGS_CHANGED, 0, &json, -1);
}

void CSVGBase::RecordInt(int value, int propId)
{
    QByteArray b;
    {
        QDataStream out(&b, QIODevice::WriteOnly);
        out << value;
    }
    RecordData(DATA_TYPE_COMBOBOX, b, propId);
}

void CSVGBase::RecordBool(bool value, int propId)
{
    QByteArray b;
    {
        QDataStream out(&b, QIODevice::WriteOnly);
        out << value;
    }
    RecordData(DATA_TYPE_BOOL, b, propId);
}

void CSVGBase::RecordColor(QColor value, int propId)
{
    QByteArray b;
    {
        QDataStream out(&b, QIODevice::WriteOnly);
        out << value;
    }
    RecordData(DATA_TYPE_COLOR, b, propId);
}

const CSVGPropItem *CSVGBase::propItemByAttribute(int attributeId) const
{
    for (const CSVGPropItem *p : m_propItems)
        if (p->attributeId() == attributeId)
            return p;
    return nullptr;
}

const CSVGPropItem *CSVGBase::propItemByPropId(int propId) const
{
    for (const CSVGPropItem *p : m_propItems)
        if (p->propId() == propId)
            return p;
    return nullptr;
}

void CSVGBase::findControlNodes()
{
    m_controlNodes.clear();
    m_pHitHandle = nullptr;
    if (!m_pDocument)
        return;
    for (int i = 1;; ++i) {
        QSvgNode *h = m_pDocument->namedNode(QStringLiteral("control_%1").arg(i));
        if (!h)
            break;
        m_controlNodes.append(h);
    }
}

QPointF CSVGBase::moveControlPoint(QSvgNode *handle, QPointF delta, bool bFinal, bool bUndo, bool *handled)
{
    const int index = m_controlNodes.indexOf(handle);
    if (index < 0)
        return QPointF();
    if (!std::isfinite(delta.x()))
        delta.setX(0);
    if (!std::isfinite(delta.y()))
        delta.setY(0);
    if (m_dragHandle != index) {
        // A drag of another handle that was never finished ends here.
        if (m_edit && m_edit->drag)
            commitEdit(QStringLiteral("move control_%1").arg(m_dragHandle + 1));
        m_dragHandle = index;
        if (bUndo && !m_loading && !m_edit) {
            beginEdit();
            m_edit->drag = true;
        }
    }
    const QPointF start = handle->rect().topLeft();
    const double x = qBound(getXMin(handle), start.x() + delta.x(), getXMax(handle));
    const double y = qBound(getYMin(handle), start.y() + delta.y(), getYMax(handle));
    QPointF applied(x - start.x(), y - start.y());
    // Never past the extent every drawing stays within.
    if (!std::isfinite(applied.x()))
        applied.setX(0);
    if (!std::isfinite(applied.y()))
        applied.setY(0);
    applied.setX(qBound(-kMaxExtent, start.x() + applied.x(), kMaxExtent) - start.x());
    applied.setY(qBound(-kMaxExtent, start.y() + applied.y(), kMaxExtent) - start.y());
    if (!CanMoveControlPoint(handle, applied))
        applied = QPointF();
    if (applied.x() != 0 || applied.y() != 0)
        handle->translate(applied.x(), applied.y());
    const bool r = updateSVG(handle, applied, bFinal);
    if (handled)
        *handled = r;
    if (bFinal) {
        if (m_edit && m_edit->drag)
            commitEdit(QStringLiteral("move control_%1").arg(index + 1));
        m_dragHandle = -1;
    }
    return applied;
}
