#include "Page.h"
#include "Strings.h"
#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSaveFile>
#include <cmath>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

namespace {

constexpr double kExportMargin = 8;
constexpr double kPngResolution = 2; // pixels per page unit

bool isFinite(double v) { return std::isfinite(v); }

// The item's drawing as a group placed by the item's transform. The root element's
// children are moved into the group (nested <svg> viewports are not drawn alike by
// every renderer), with the view box turned into a transform.
QByteArray objectSvgElement(CWBPhysicalObject *obj, const QPointF &origin)
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
    return (g + svg.mid(root.capturedEnd(), end - root.capturedEnd()) + QStringLiteral("</g>\n")).toUtf8();
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

BoardPage::BoardPage(QObject *parent) : QGraphicsScene(parent)
{
    setItemIndexMethod(QGraphicsScene::NoIndex); // items change shape during every drag
    setBackgroundBrush(Qt::white);
}

BoardPage::~BoardPage() { clearPage(); }

CWBPhysicalObject *BoardPage::create(int typeId, bool defaultSize)
{
    CWBPhysicalObject *obj = createObject_physical(0, typeId, defaultSize);
    if (obj && (!obj->content() || !obj->content()->document())) {
        obj->Release();
        return nullptr;
    }
    return obj;
}

CWBPhysicalObject *BoardPage::asObject(QGraphicsItem *item)
{
    while (item && item->type() != CWBPhysicalObject::Type)
        item = item->parentItem();
    return item ? static_cast<CWBPhysicalObject *>(item) : nullptr;
}

QList<CWBPhysicalObject *> BoardPage::objects() const
{
    QList<CWBPhysicalObject *> out;
    const QList<QGraphicsItem *> all = items(Qt::AscendingOrder);
    for (QGraphicsItem *i : all)
        if (i->type() == CWBPhysicalObject::Type && !i->parentItem())
            out.append(static_cast<CWBPhysicalObject *>(i));
    return out;
}

void BoardPage::insertObject(CWBPhysicalObject *obj)
{
    if (obj && obj->scene() != this)
        addItem(obj);
}

void BoardPage::takeObject(CWBPhysicalObject *obj)
{
    if (obj && obj->scene() == this)
        removeItem(obj);
}

void BoardPage::clearPage()
{
    const QList<CWBPhysicalObject *> all = objects();
    for (CWBPhysicalObject *o : all) {
        removeItem(o);
        o->Release();
    }
}

qreal BoardPage::topZ() const
{
    qreal z = 0;
    for (CWBPhysicalObject *o : objects())
        z = qMax(z, o->zValue());
    return z;
}

QRectF BoardPage::contentBounds() const
{
    QRectF r;
    for (CWBPhysicalObject *o : objects())
        r |= o->sceneBoundingRect();
    return r;
}

QByteArray BoardPage::serialize(const QList<CWBPhysicalObject *> &objects, const QByteArray &recording)
{
    QByteArray body;
    {
        QDataStream out(&body, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_5_15);
        out << quint32(objects.size());
        for (CWBPhysicalObject *o : objects) {
            // The record: the apparatus's stream and what the host keeps beside it (a
            // meter's range), so that every apparatus reopens exactly as it was.
            const QByteArray record = o->content() ? o->content()->record() : QByteArray();
            out << qint32(o->typeId()) << o->pos() << double(o->rotation()) << double(o->scale()) << double(o->zValue())
                << record;
        }
        out << recording;
    }
    QByteArray file;
    QDataStream out(&file, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << kMagic << kVersion << body << QCryptographicHash::hash(body, QCryptographicHash::Sha1);
    return file;
}

bool BoardPage::deserialize(const QByteArray &bytes, QList<CWBPhysicalObject *> *out, QString *error, QByteArray *recording)
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
        return fail(Strings::text(QStringLiteral("BOARD_ERR_NOT_PAGE")));
    in >> version;
    if (in.status() != QDataStream::Ok)
        return fail(Strings::text(QStringLiteral("BOARD_ERR_DAMAGED")));
    if (version > kVersion || version == 0)
        return fail(Strings::text(QStringLiteral("BOARD_ERR_NEWER")).arg(QStringLiteral("%1"), QString::number(version), QString::number(kVersion)));
    QByteArray body, hash;
    in >> body >> hash;
    if (in.status() != QDataStream::Ok || !in.atEnd() || hash != QCryptographicHash::hash(body, QCryptographicHash::Sha1))
        return fail(Strings::text(QStringLiteral("BOARD_ERR_DAMAGED")));

    QList<CWBPhysicalObject *> made;
    auto failAll = [&](const QString &msg) {
        for (CWBPhysicalObject *o : made)
            o->Release();
        return fail(msg);
    };
    QDataStream b(body);
    b.setVersion(QDataStream::Qt_5_15);
    quint32 count = 0;
    b >> count;
    if (b.status() != QDataStream::Ok)
        return failAll(Strings::text(QStringLiteral("BOARD_ERR_DAMAGED")));
    // Checked before a single object is made.
    if (count > quint32(kMaxObjects))
        return failAll(Strings::text(QStringLiteral("BOARD_ERR_TOO_MANY")).arg(QStringLiteral("%1"), QString::number(count),
                                                                                 QString::number(kMaxObjects)));
    // Pages of the first format hold streams of the host's first format; they still open.
    CSVGBase::LegacyStreams legacy(version == 1);
    for (quint32 i = 0; i < count; ++i) {
        qint32 type = 0;
        QPointF pos;
        double rotation = 0, scale = 1, z = 0;
        QByteArray state;
        b >> type >> pos >> rotation >> scale >> z >> state;
        if (b.status() != QDataStream::Ok || !isFinite(pos.x()) || !isFinite(pos.y()) || !isFinite(rotation) ||
            !isFinite(scale) || !isFinite(z) || !(scale >= 0.01) || scale > 100 || std::fabs(pos.x()) > 1e7 || std::fabs(pos.y()) > 1e7)
            return failAll(Strings::text(QStringLiteral("BOARD_ERR_DAMAGED")));
        CWBPhysicalObject *obj = create(type, false);
        if (!obj)
            return failAll(Strings::text(QStringLiteral("BOARD_ERR_UNKNOWN_TYPE")).arg(QStringLiteral("%1"), QString::number(type)));
        made.append(obj);
        bool loaded = false;
        if (version == 1) {
            QDataStream s(state);
            loaded = obj->content()->load(s) && s.status() == QDataStream::Ok;
        } else {
            loaded = obj->content()->restoreRecord(state);
        }
        if (!loaded)
            return failAll(Strings::text(QStringLiteral("BOARD_ERR_BAD_OBJECT")).arg(QStringLiteral("%1"), QString::number(i + 1), QString::number(type)));
        obj->setPos(pos);
        obj->setRotation(std::fmod(rotation, 360.0));
        obj->setScale(scale);
        obj->setZValue(z);
    }
    QByteArray rec;
    if (version >= 2)
        b >> rec;
    if (b.status() != QDataStream::Ok || !b.atEnd())
        return failAll(Strings::text(QStringLiteral("BOARD_ERR_DAMAGED")));
    if (recording)
        *recording = rec;
    *out = made;
    return true;
}

bool BoardPage::saveTo(const QString &path, QString *error, const QByteArray &recording) const
{
    return writeFile(path, serialize(objects(), recording), error);
}

bool BoardPage::readFile(const QString &path, QList<CWBPhysicalObject *> *out, QString *error, QByteArray *recording)
{
    const QString name = QFileInfo(path).fileName();
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        if (error)
            *error = Strings::text(QStringLiteral("BOARD_ERR_OPEN")).arg(name, f.errorString());
        return false;
    }
    if (f.size() > kMaxFileSize) {
        if (error)
            *error = Strings::text(QStringLiteral("BOARD_ERR_TOO_BIG")).arg(name, QString::number(f.size() >> 20),
                                                                          QString::number(kMaxFileSize >> 20));
        return false;
    }
    QString msg;
    if (!deserialize(f.readAll(), out, &msg, recording)) {
        if (error)
            *error = msg.arg(name);
        return false;
    }
    return true;
}

bool BoardPage::loadFrom(const QString &path, QString *error)
{
    QList<CWBPhysicalObject *> loaded;
    if (!readFile(path, &loaded, error))
        return false;
    replaceWith(loaded);
    return true;
}

void BoardPage::replaceWith(const QList<CWBPhysicalObject *> &objects)
{
    clearPage();
    for (CWBPhysicalObject *o : objects)
        addItem(o);
}

QByteArray BoardPage::pageSvg(const Progress &progress) const
{
    const QList<CWBPhysicalObject *> all = objects();
    const QRectF r = contentBounds().adjusted(-kExportMargin, -kExportMargin, kExportMargin, kExportMargin);
    QByteArray svg = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%2\" viewBox=\"0 0 %1 %2\">\n"
                                    "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n")
                         .arg(std::ceil(r.width()))
                         .arg(std::ceil(r.height()))
                         .toUtf8();
    for (int i = 0; i < all.size(); ++i) {
        if (progress && !progress(i, all.size()))
            return QByteArray();
        svg += objectSvgElement(all[i], r.topLeft());
    }
    if (progress)
        progress(all.size(), all.size());
    return svg + "</svg>\n";
}

bool BoardPage::exportPage(const QString &path, QString *error, const Progress &progress) const
{
    const QString name = QFileInfo(path).fileName();
    const QList<CWBPhysicalObject *> all = objects();
    if (all.isEmpty()) {
        if (error)
            *error = Strings::text(QStringLiteral("BOARD_ERR_NOTHING"));
        return false;
    }
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("svg")) {
        const QByteArray svg = pageSvg(progress);
        if (svg.isEmpty())
            return false; // cancelled
        return writeFile(path, svg, error);
    }
    if (suffix != QLatin1String("png")) {
        if (error)
            *error = Strings::text(QStringLiteral("BOARD_ERR_EXPORT")).arg(name);
        return false;
    }
    const QRectF r = contentBounds().adjusted(-kExportMargin, -kExportMargin, kExportMargin, kExportMargin);
    const QSize px(qBound(1, int(std::ceil(r.width() * kPngResolution)), 16384),
                   qBound(1, int(std::ceil(r.height() * kPngResolution)), 16384));
    const double k = qMin(px.width() / r.width(), px.height() / r.height());
    QImage image(px, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        for (int i = 0; i < all.size(); ++i) {
            if (progress && !progress(i, all.size()))
                return false;
            CWBPhysicalObject *o = all[i];
            if (!o->content() || !o->content()->document())
                continue;
            p.setTransform(o->sceneTransform() * QTransform::fromTranslate(-r.x(), -r.y()) * QTransform::fromScale(k, k));
            o->content()->document()->render(&p, QRectF(QPointF(0, 0), o->itemSize()), false);
        }
        if (progress)
            progress(all.size(), all.size());
    }
    QByteArray png;
    {
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
    }
    return writeFile(path, png, error);
}

bool BoardPage::exportObject(CWBPhysicalObject *obj, const QString &path, QString *error)
{
    const QString name = QFileInfo(path).fileName();
    if (!obj || !obj->content() || !obj->content()->document()) {
        if (error)
            *error = Strings::text(QStringLiteral("BOARD_ERR_NOTHING"));
        return false;
    }
    BoardPage single;
    CWBPhysicalObject *copy = create(obj->typeId(), false);
    if (!copy)
        return false;
    copy->content()->restoreRecord(obj->content()->record());
    // Keeps its turn and size, not its place.
    copy->setRotation(obj->rotation());
    copy->setScale(obj->scale());
    single.addItem(copy);
    return single.exportPage(path, error);
}
