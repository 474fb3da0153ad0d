#include "Page.h"
#include "Annotations.h"
#include "Strings.h"
#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStyleOptionGraphicsItem>
#include <algorithm>
#include <cmath>
#include <PhysicalPlugin.h>
#include <svgbase.h>

namespace {

constexpr double kExportMargin = 8;
constexpr double kPngResolution = 2; // pixels per page unit

bool isFinite(double v) { return std::isfinite(v); }
QString T(const char *key) { return Strings::text(QLatin1String(key)); }
constexpr quint8 kApparatusTag = 0;

// The item's drawing as a group placed by the item's transform. The root element's
// children are moved into the group (nested <svg> viewports are not drawn alike by
// every renderer), with the view box turned into a transform.
QByteArray objectSvgElement(CWBPhysicalObject *obj, const QPointF &origin, const QString &idPrefix)
{
    CSVGBase *c = obj->content();
    if (!c || !c->document())
        return QByteArray();
    QSvgTinyDocument::WriteOptions o;
    o.handles = false;
    const QString svg = QString::fromUtf8(c->document()->toSvg(o));
    static const QRegularExpression rootTag(QStringLiteral("<svg[\\s>][^>]*>"));
    const QRegularExpressionMatch root = rootTag.match(svg);
    if (!root.hasMatch() || root.captured().endsWith(QLatin1String("/>")))
        return QByteArray();
    const int end = svg.lastIndexOf(QLatin1String("</svg>"));
    if (end < root.capturedEnd())
        return QByteArray();
    // Paint the root may hand down to its children.
    QString inherited;
    static const QRegularExpression paint(
        QStringLiteral("\\s((?:fill|stroke|stroke-width|opacity|style|font-family|font-size|font-weight)=\"[^\"]*\")"));
    for (auto it = paint.globalMatch(root.captured()); it.hasNext();)
        inherited += QLatin1Char(' ') + it.next().captured(1);

    const QRectF vb = c->document()->viewBox();
    const QSizeF item = obj->itemSize();
    const double sx = vb.width() > 0 ? item.width() / vb.width() : 1;
    const double sy = vb.height() > 0 ? item.height() / vb.height() : 1;
    const QTransform t = obj->sceneTransform() * QTransform::fromTranslate(-origin.x(), -origin.y());
    const QString g = QStringLiteral("<g transform=\"matrix(%1 %2 %3 %4 %5 %6) scale(%7 %8) translate(%9 %10)\"%11>")
                          .arg(t.m11()).arg(t.m12()).arg(t.m21()).arg(t.m22()).arg(t.dx()).arg(t.dy())
                          .arg(sx).arg(sy).arg(-vb.x()).arg(-vb.y()).arg(inherited);
    // Every apparatus names its nodes alike; on one page each gets its own prefix, and
    // its references follow.
    QString body = svg.mid(root.capturedEnd(), end - root.capturedEnd());
    static const QRegularExpression ids(QStringLiteral("(\\bid=\"|url\\(#|href=\"#)([^\")]+)"));
    body.replace(ids, QStringLiteral("\\1%1\\2").arg(idPrefix));
    return (g + body + QStringLiteral("</g>\n")).toUtf8();
}

bool writeFile(const QString &path, const QByteArray &bytes, QString *error)
{
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size() || !f.commit()) {
        if (error)
            *error = Strings::text(QStringLiteral("BOARD_ERR_WRITE")).arg(QFileInfo(path).fileName(), f.errorString());
        return false;
    }
    return true;
}

} // namespace
namespace {

bool finitePlacement(const QPointF &pos, double rotation, double scale, double z)
{
    return isFinite(pos.x()) && isFinite(pos.y()) && isFinite(rotation) && isFinite(scale) && isFinite(z) &&
           scale >= 0.01 && scale <= 100 && std::fabs(pos.x()) <= 1e7 && std::fabs(pos.y()) <= 1e7;
}

void place(QGraphicsItem *item, const QPointF &pos, double rotation, double scale, double z)
{
    item->setPos(pos);
    item->setRotation(std::fmod(rotation, 360.0));
    item->setScale(scale);
    item->setZValue(z);
}

int terminalCount(const CWBPhysicalObject *obj)
{
    if (!obj)
        return 0;
    if (obj->typeId() == BoardPage::kWireType)
        return 2;
    int n = 0;
    PhysicalPlugin::terminals(obj->typeId(), &n);
    return n;
}

} // namespace

QList<CWBPhysicalObject *> PageContent::objects() const
{
    QList<CWBPhysicalObject *> out;
    for (QGraphicsItem *i : items)
        if (CWBPhysicalObject *o = BoardPage::asObject(i))
            out.append(o);
    return out;
}

void PageContent::release()
{
    for (QGraphicsItem *i : items)
        BoardPage::releaseItem(i);
    items.clear();
    links.clear();
}

BoardPage::BoardPage(QObject *parent) : QGraphicsScene(parent)
{
    // Items change shape during every drag; a flat list is cheaper than keeping a tree
    // up to date for a few hundred items.
    setItemIndexMethod(QGraphicsScene::NoIndex);
    setBackgroundBrush(Qt::white);
}

BoardPage::~BoardPage() { clearPage(); }

CWBPhysicalObject *BoardPage::create(int typeId, bool defaultSize)
{
    CWBPhysicalObject *obj = PhysicalPlugin::createObject(typeId, defaultSize);
    if (obj && (!obj->content() || !obj->content()->document())) {
        obj->Release();
        return nullptr;
    }
    return obj;
}

CWBPhysicalObject *BoardPage::asObject(QGraphicsItem *item)
{
    return item && item->type() == CWBPhysicalObject::Type ? static_cast<CWBPhysicalObject *>(item) : nullptr;
}

bool BoardPage::isPageItem(const QGraphicsItem *item)
{
    return item && !item->parentItem() && (item->type() == CWBPhysicalObject::Type || item->type() == Annotation::Type);
}

void BoardPage::releaseItem(QGraphicsItem *item)
{
    if (!item)
        return;
    if (item->scene())
        item->scene()->removeItem(item);
    if (CWBPhysicalObject *o = asObject(item))
        o->Release();
    else
        delete item;
}

QString BoardPage::nameOf(QGraphicsItem *item)
{
    if (CWBPhysicalObject *o = asObject(item))
        return Strings::typeName(o->typeId());
    if (item && item->type() == Annotation::Type) {
        switch (static_cast<Annotation *>(item)->kind()) {
        case Annotation::Ink: return T("BOARD_MARK_INK");
        case Annotation::Text: return T("BOARD_MARK_TEXT");
        case Annotation::Arrow: return T("BOARD_MARK_ARROW");
        }
    }
    return QString();
}

QList<QGraphicsItem *> BoardPage::pageItems() const
{
    // The scene's flat index keeps items in the order they arrived; the page's order
    // is by stacking value, then arrival.
    QList<QGraphicsItem *> out;
    const QList<QGraphicsItem *> all = items(Qt::AscendingOrder);
    for (QGraphicsItem *i : all)
        if (isPageItem(i))
            out.append(i);
    std::stable_sort(out.begin(), out.end(), [](QGraphicsItem *a, QGraphicsItem *b) { return a->zValue() < b->zValue(); });
    return out;
}

QList<CWBPhysicalObject *> BoardPage::objects() const
{
    QList<CWBPhysicalObject *> out;
    for (QGraphicsItem *i : pageItems())
        if (CWBPhysicalObject *o = asObject(i))
            out.append(o);
    return out;
}

void BoardPage::insertObject(CWBPhysicalObject *obj) { insertItem(obj); }

void BoardPage::insertItem(QGraphicsItem *item)
{
    if (item && item->scene() != this)
        addItem(item);
}

void BoardPage::takeItem(QGraphicsItem *item)
{
    if (!item || item->scene() != this)
        return;
    removeItem(item);
    QVector<WireLink> kept;
    for (const WireLink &l : m_links)
        if (l.wire != item && l.to != item)
            kept.append(l);
    if (kept.size() != m_links.size()) {
        m_links = kept;
        emit linksChanged();
    }
}

void BoardPage::clearPage()
{
    m_links.clear();
    for (QGraphicsItem *i : pageItems())
        releaseItem(i);
}

qreal BoardPage::topZ() const
{
    qreal z = 0;
    for (QGraphicsItem *i : pageItems())
        z = qMax(z, i->zValue());
    return z;
}

qreal BoardPage::bottomZ() const
{
    qreal z = 0;
    for (QGraphicsItem *i : pageItems())
        z = qMin(z, i->zValue());
    return z;
}

QRectF BoardPage::boundsOf(const QList<QGraphicsItem *> &items)
{
    QRectF r;
    for (QGraphicsItem *i : items) {
        const CWBPhysicalObject *o = asObject(i);
        // An apparatus covers its drawing; the reach of its handles is the screen's.
        r |= o ? o->mapRectToScene(o->itemRect()) : i->sceneBoundingRect();
    }
    return r;
}

QRectF BoardPage::contentBounds() const { return boundsOf(pageItems()); }

void BoardPage::setLinks(const QVector<WireLink> &links)
{
    QVector<WireLink> valid;
    for (const WireLink &l : links)
        if (l.wire && l.to && l.wire != l.to && l.wire->scene() == this && l.to->scene() == this && !valid.contains(l))
            valid.append(l);
    if (valid == m_links)
        return;
    m_links = valid;
    emit linksChanged();
}

QVector<WireLink> BoardPage::linksOf(const QList<QGraphicsItem *> &items) const
{
    QVector<WireLink> out;
    for (const WireLink &l : m_links)
        if (items.contains(l.wire) && items.contains(l.to))
            out.append(l);
    return out;
}

PageContent BoardPage::content(const QByteArray &recording) const
{
    PageContent c;
    c.items = pageItems();
    c.links = m_links;
    c.recording = recording;
    return c;
}

QByteArray BoardPage::serialize(const QList<CWBPhysicalObject *> &objects, const QByteArray &recording)
{
    PageContent c;
    for (CWBPhysicalObject *o : objects)
        c.items.append(o);
    c.recording = recording;
    return serialize(c);
}

QByteArray BoardPage::serialize(const PageContent &content)
{
    QByteArray body;
    {
        QDataStream out(&body, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_5_15);
        out << quint32(content.items.size());
        for (QGraphicsItem *i : content.items) {
            if (CWBPhysicalObject *o = asObject(i)) {
                // The record: the apparatus's stream and what the host keeps beside it (a
                // meter's range), so that every apparatus reopens exactly as it was.
                const QByteArray record = o->content() ? o->content()->record() : QByteArray();
                out << kApparatusTag << qint32(o->typeId()) << o->pos() << double(o->rotation()) << double(o->scale())
                    << double(o->zValue()) << record;
            } else {
                const auto *a = static_cast<const Annotation *>(i);
                out << quint8(a->kind()) << a->pos() << double(a->rotation()) << double(a->scale()) << double(a->zValue())
                    << a->data();
            }
        }
        QVector<WireLink> links;
        for (const WireLink &l : content.links)
            if (content.items.contains(l.wire) && content.items.contains(l.to))
                links.append(l);
        out << quint32(links.size());
        for (const WireLink &l : links)
            out << quint32(content.items.indexOf(l.wire)) << quint8(l.end) << quint32(content.items.indexOf(l.to))
                << quint16(l.terminal);
        out << content.recording;
    }
    QByteArray file;
    QDataStream out(&file, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << kMagic << kVersion << body << QCryptographicHash::hash(body, QCryptographicHash::Sha1);
    return file;
}

bool BoardPage::deserialize(const QByteArray &bytes, QList<CWBPhysicalObject *> *out, QString *error, QByteArray *recording)
{
    PageContent c;
    if (!deserialize(bytes, &c, error))
        return false;
    QList<CWBPhysicalObject *> objs;
    for (QGraphicsItem *i : c.items) {
        if (CWBPhysicalObject *o = asObject(i))
            objs.append(o);
        else
            releaseItem(i);
    }
    if (recording)
        *recording = c.recording;
    *out = objs;
    return true;
}

bool BoardPage::deserialize(const QByteArray &bytes, PageContent *out, QString *error)
{
    auto fail = [&](const QString &msg) {
        if (error)
            *error = msg;
        return false;
    };
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0;
    quint16 version = 0;
    in >> magic;
    if (in.status() != QDataStream::Ok || magic != kMagic)
        return fail(T("BOARD_ERR_NOT_PAGE"));
    in >> version;
    if (in.status() != QDataStream::Ok)
        return fail(T("BOARD_ERR_DAMAGED"));
    if (version > kVersion || version == 0)
        return fail(T("BOARD_ERR_NEWER").arg(QStringLiteral("%1"), QString::number(version), QString::number(kVersion)));
    QByteArray body, hash;
    in >> body >> hash;
    if (in.status() != QDataStream::Ok || !in.atEnd() || hash != QCryptographicHash::hash(body, QCryptographicHash::Sha1))
        return fail(T("BOARD_ERR_DAMAGED"));

    PageContent made;
    auto failAll = [&](const QString &msg) {
        made.release();
        return fail(msg);
    };
    const QString damaged = T("BOARD_ERR_DAMAGED");
    QDataStream b(body);
    b.setVersion(QDataStream::Qt_5_15);
    quint32 count = 0;
    b >> count;
    if (b.status() != QDataStream::Ok)
        return failAll(damaged);
    // Checked before a single item is made.
    if (count > quint32(version >= 3 ? kMaxItems : kMaxObjects))
        return failAll(T("BOARD_ERR_TOO_MANY").arg(QStringLiteral("%1"), QString::number(count), QString::number(kMaxObjects)));
    // Pages of the first format hold streams of the host's first format; they still open.
    CSVGBase::LegacyStreams legacy(version == 1);
    int apparatus = 0;
    for (quint32 i = 0; i < count; ++i) {
        quint8 tag = kApparatusTag;
        if (version >= 3)
            b >> tag;
        QPointF pos;
        double rotation = 0, scale = 1, z = 0;
        QByteArray state;
        if (tag != kApparatusTag) {
            b >> pos >> rotation >> scale >> z >> state;
            if (b.status() != QDataStream::Ok || !finitePlacement(pos, rotation, scale, z))
                return failAll(damaged);
            Annotation *a = Annotation::fromData(Annotation::Kind(tag), state);
            if (!a)
                return failAll(T("BOARD_ERR_BAD_ITEM").arg(QStringLiteral("%1"), QString::number(i + 1)));
            made.items.append(a);
            place(a, pos, rotation, scale, z);
            continue;
        }
        qint32 type = 0;
        b >> type >> pos >> rotation >> scale >> z >> state;
        if (b.status() != QDataStream::Ok || !finitePlacement(pos, rotation, scale, z))
            return failAll(damaged);
        if (++apparatus > kMaxObjects)
            return failAll(T("BOARD_ERR_TOO_MANY").arg(QStringLiteral("%1"), QString::number(apparatus), QString::number(kMaxObjects)));
        CWBPhysicalObject *obj = create(type, false);
        if (!obj)
            return failAll(T("BOARD_ERR_UNKNOWN_TYPE").arg(QStringLiteral("%1"), QString::number(type)));
        made.items.append(obj);
        bool loaded = false;
        if (version == 1) {
            QDataStream s(state);
            loaded = obj->content()->load(s) && s.status() == QDataStream::Ok;
        } else {
            loaded = obj->content()->restoreRecord(state);
        }
        if (!loaded)
            return failAll(T("BOARD_ERR_BAD_OBJECT").arg(QStringLiteral("%1"), QString::number(i + 1), QString::number(type)));
        place(obj, pos, rotation, scale, z);
    }
    if (version >= 3) {
        quint32 links = 0;
        b >> links;
        if (b.status() != QDataStream::Ok || links > 2 * count)
            return failAll(damaged);
        for (quint32 k = 0; k < links; ++k) {
            quint32 wire = 0, to = 0;
            quint8 end = 0;
            quint16 terminal = 0;
            b >> wire >> end >> to >> terminal;
            if (b.status() != QDataStream::Ok || wire >= count || to >= count || wire == to || end > 1)
                return failAll(damaged);
            CWBPhysicalObject *w = asObject(made.items.at(int(wire)));
            CWBPhysicalObject *t = asObject(made.items.at(int(to)));
            if (!w || w->typeId() != kWireType || !t || terminal >= terminalCount(t))
                return failAll(damaged);
            made.links.append(WireLink{w, end, t, terminal});
        }
    }
    if (version >= 2)
        b >> made.recording;
    if (b.status() != QDataStream::Ok || !b.atEnd())
        return failAll(damaged);
    *out = made;
    return true;
}

bool BoardPage::saveTo(const QString &path, QString *error, const QByteArray &recording) const
{
    return writeFile(path, serialize(content(recording)), error);
}

bool BoardPage::readFile(const QString &path, PageContent *out, QString *error)
{
    const QString name = QFileInfo(path).fileName();
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        if (error)
            *error = T("BOARD_ERR_OPEN").arg(name, f.errorString());
        return false;
    }
    if (f.size() > kMaxFileSize) {
        if (error)
            *error = T("BOARD_ERR_TOO_BIG").arg(name, QString::number(f.size() >> 20), QString::number(kMaxFileSize >> 20));
        return false;
    }
    QString msg;
    if (!deserialize(f.readAll(), out, &msg)) {
        if (error)
            *error = msg.arg(name);
        return false;
    }
    return true;
}

bool BoardPage::loadFrom(const QString &path, QString *error)
{
    PageContent c;
    if (!readFile(path, &c, error))
        return false;
    replaceAll(c);
    return true;
}

void BoardPage::replaceWith(const QList<CWBPhysicalObject *> &objects)
{
    m_links.clear();
    for (CWBPhysicalObject *o : this->objects())
        releaseItem(o);
    for (CWBPhysicalObject *o : objects)
        addItem(o);
    emit linksChanged();
}

void BoardPage::replaceAll(const PageContent &content)
{
    clearPage();
    for (QGraphicsItem *i : content.items)
        addItem(i);
    m_links.clear();
    setLinks(content.links);
    emit linksChanged();
}

QRectF BoardPage::exportRect(const QList<QGraphicsItem *> &items)
{
    return boundsOf(items).adjusted(-kExportMargin, -kExportMargin, kExportMargin, kExportMargin);
}

bool BoardPage::paintItems(QPainter *p, const QList<QGraphicsItem *> &items, const QRectF &source, const QRectF &target,
                           const Progress &progress)
{
    if (source.isEmpty() || target.isEmpty())
        return false;
    const double k = qMin(target.width() / source.width(), target.height() / source.height());
    const QTransform page = QTransform::fromTranslate(-source.x(), -source.y()) * QTransform::fromScale(k, k) *
                            QTransform::fromTranslate(target.x(), target.y());
    const QTransform base = p->transform();
    QStyleOptionGraphicsItem option;
    for (int i = 0; i < items.size(); ++i) {
        if (progress && !progress(i, items.size()))
            return false;
        QGraphicsItem *item = items[i];
        p->setTransform(item->sceneTransform() * page * base);
        if (CWBPhysicalObject *o = asObject(item)) {
            if (o->content() && o->content()->document())
                o->content()->document()->render(p, QRectF(QPointF(0, 0), o->itemSize()), false);
        } else {
            option.exposedRect = item->boundingRect();
            item->paint(p, &option, nullptr);
        }
    }
    p->setTransform(base);
    if (progress)
        progress(items.size(), items.size());
    return true;
}

QImage BoardPage::itemsImage(const QList<QGraphicsItem *> &items, double pixelsPerUnit, const Progress &progress)
{
    const QRectF r = exportRect(items);
    if (r.isEmpty())
        return QImage();
    // Bounded so that a huge page cannot ask for gigabytes.
    double k = pixelsPerUnit;
    const double maxSide = 16384, maxPixels = 64e6;
    k = qMin(k, maxSide / r.width());
    k = qMin(k, maxSide / r.height());
    k = qMin(k, std::sqrt(maxPixels / (r.width() * r.height())));
    const QSize px(qMax(1, int(std::ceil(r.width() * k))), qMax(1, int(std::ceil(r.height() * k))));
    QImage image(px, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    if (!paintItems(&p, items, r, QRectF(0, 0, r.width() * k, r.height() * k), progress))
        return QImage();
    return image;
}

QByteArray BoardPage::pageSvg(const Progress &progress) const { return itemsSvg(pageItems(), progress); }

QByteArray BoardPage::itemsSvg(const QList<QGraphicsItem *> &items, const Progress &progress)
{
    const QRectF r = exportRect(items);
    QByteArray svg = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%2\" viewBox=\"0 0 %1 %2\">\n"
                                    "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n")
                         .arg(std::ceil(r.width()))
                         .arg(std::ceil(r.height()))
                         .toUtf8();
    for (int i = 0; i < items.size(); ++i) {
        if (progress && !progress(i, items.size()))
            return QByteArray();
        if (CWBPhysicalObject *o = asObject(items[i])) {
            svg += objectSvgElement(o, r.topLeft(), QStringLiteral("i%1-").arg(i + 1));
        } else {
            const QTransform t = items[i]->sceneTransform() * QTransform::fromTranslate(-r.x(), -r.y());
            svg += QStringLiteral("<g transform=\"matrix(%1 %2 %3 %4 %5 %6)\">")
                       .arg(t.m11()).arg(t.m12()).arg(t.m21()).arg(t.m22()).arg(t.dx()).arg(t.dy())
                       .toUtf8();
            svg += static_cast<Annotation *>(items[i])->svgElement().toUtf8() + "</g>\n";
        }
    }
    if (progress)
        progress(items.size(), items.size());
    return svg + "</svg>\n";
}

bool BoardPage::exportPage(const QString &path, QString *error, const Progress &progress) const
{
    return exportItems(pageItems(), path, error, progress);
}

bool BoardPage::exportItems(const QList<QGraphicsItem *> &items, const QString &path, QString *error, const Progress &progress)
{
    const QString name = QFileInfo(path).fileName();
    if (items.isEmpty()) {
        if (error)
            *error = T("BOARD_ERR_NOTHING");
        return false;
    }
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("svg")) {
        const QByteArray svg = itemsSvg(items, progress);
        if (svg.isEmpty())
            return false; // cancelled
        return writeFile(path, svg, error);
    }
    const QRectF r = exportRect(items);
    if (suffix == QLatin1String("pdf")) {
        // Drawn through the painter, so the PDF holds paths and text, not a picture.
        QByteArray pdf;
        {
            QBuffer buffer(&pdf);
            buffer.open(QIODevice::WriteOnly);
            QPdfWriter writer(&buffer);
            writer.setCreator(QStringLiteral("physboard"));
            writer.setResolution(1200);
            // One page unit is a pixel at 96 per inch: 0.75 pt.
            writer.setPageSize(QPageSize(QSizeF(r.width() * 0.75, r.height() * 0.75), QPageSize::Point, QString(),
                                         QPageSize::ExactMatch));
            writer.setPageMargins(QMarginsF(0, 0, 0, 0));
            QPainter p;
            if (!p.begin(&writer)) {
                if (error)
                    *error = T("BOARD_ERR_EXPORT").arg(name);
                return false;
            }
            p.setRenderHint(QPainter::Antialiasing);
            const bool done = paintItems(&p, items, r, QRectF(0, 0, writer.width(), writer.height()), progress);
            p.end();
            if (!done)
                return false; // cancelled
        }
        return writeFile(path, pdf, error);
    }
    if (suffix != QLatin1String("png")) {
        if (error)
            *error = T("BOARD_ERR_EXPORT").arg(name);
        return false;
    }
    const QImage image = itemsImage(items, kPngResolution, progress);
    if (image.isNull() && progress)
        return false; // cancelled
    QByteArray png;
    {
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        if (image.isNull() || !image.save(&buffer, "PNG")) {
            if (error)
                *error = T("BOARD_ERR_EXPORT").arg(name);
            return false;
        }
    }
    return writeFile(path, png, error);
}
