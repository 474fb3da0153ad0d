#include "svgbase.h"
#include "framework.h"
#include "svgbaseundocmd.h"
#include "svgobj.h"
#include "svgpathdata.h"
#include <QJsonDocument>
#include <QPainter>
#include <QtEndian>
#include <cmath>
#include <limits>

namespace {
constexpr quint32 kStreamMagic = 0x50485953; // the host part of an object's stream
constexpr quint16 kStreamVersion = 1;
// Practical travel for a bound the template leaves open.
constexpr double kOpenBound = 1e6;

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

bool CSVGBase::save(QDataStream &out)
{
    out << kStreamMagic << kStreamVersion;
    out << m_hostColor << m_lampColor << m_penColor << qint32(m_penStyle) << qint32(m_penWidth)
        << m_fillBrush.color() << qint32(m_fillBrush.style() == Qt::NoBrush ? 0 : 1) << m_bExternalFilled;
    const QRectF vb = m_pDocument ? m_pDocument->viewBox() : QRectF();
    out << (m_pOwner ? m_pOwner->itemSize() : QSizeF()) << vb;
    out << quint32(m_controlNodes.size());
    for (QSvgNode *h : m_controlNodes) {
        const QRectF r = h->rect();
        out << r.x() << r.y();
    }
    return out.status() == QDataStream::Ok;
}

bool CSVGBase::load(QDataStream &in)
{
    quint32 magic = 0;
    quint16 version = 0;
    in >> magic >> version;
    if (in.status() != QDataStream::Ok || magic != kStreamMagic || version != kStreamVersion) {
        in.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    QColor host, lamp, pen, fill;
    qint32 penStyle = 0, penWidth = 0, fillOn = 0;
    bool external = false;
    QSizeF itemSize;
    QRectF vb;
    quint32 count = 0;
    readColor(in, host);
    readColor(in, lamp);
    readColor(in, pen);
    in >> penStyle >> penWidth;
    readColor(in, fill);
    in >> fillOn >> external >> itemSize >> vb >> count;
    // A stream is only trusted as far as it matches what this apparatus can be.
    if (in.status() != QDataStream::Ok || count != quint32(m_controlNodes.size()) || penStyle < 0 ||
        penStyle > Qt::CustomDashLine || penWidth < 0 || penWidth > 1000) {
        in.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    QVector<QPointF> handles;
    for (quint32 i = 0; i < count; ++i) {
        double x = 0, y = 0;
        in >> x >> y;
        if (!std::isfinite(x) || !std::isfinite(y))
            in.setStatus(QDataStream::ReadCorruptData);
        handles.append(QPointF(x, y));
    }
    if (in.status() != QDataStream::Ok)
        return false;

    m_hostColor = host;
    m_lampColor = lamp;
    m_penColor = pen;
    m_penStyle = Qt::PenStyle(penStyle);
    m_penWidth = penWidth;
    m_fillBrush = fillOn ? QBrush(fill) : QBrush();
    m_bExternalFilled = external;
    // Replaying the handles through the drag path lets each apparatus re-derive its
    // own members (tick counts, angles) exactly as a user's drag did.
    m_loading = true;
    GetFramework()->mute(true);
    for (int i = 0; i < m_controlNodes.size(); ++i) {
        QSvgNode *h = m_controlNodes.at(i);
        const QPointF delta = handles.at(i) - h->rect().topLeft();
        if (delta != QPointF(0, 0))
            moveControlPoint(h, delta, true, false);
    }
    // The replay gave back what drags derive; the view box is put back as saved too,
    // for apparatus that size themselves outside a drag (a label that fits its text).
    const bool vbUsable = std::isfinite(vb.x()) && std::isfinite(vb.y()) && vb.width() > 0 && vb.height() > 0 &&
                          vb.width() < 1e7 && vb.height() < 1e7 && std::fabs(vb.x()) < 1e7 && std::fabs(vb.y()) < 1e7;
    if (m_pDocument && vbUsable && vb != m_pDocument->viewBox()) {
        const QRectF now = m_pDocument->viewBox();
        adjustSvgPosition(vb.topLeft() - now.topLeft(), vb.width() - now.width(), vb.height() - now.height(), true);
    }
    GetFramework()->mute(false);
    m_loading = false;
    applyHostColors();
    if (m_pOwner && itemSize.width() > 0 && itemSize.height() > 0)
        m_pOwner->setSize2(itemSize, false);
    return true;
}

void CSVGBase::saveJson(QJsonObject &json)
{
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        save(out);
    }
    json.insert(QStringLiteral("svgbase_type"), getSVGType());
    json.insert(QStringLiteral("svgbase_stream"), QString::fromLatin1(bytes.toBase64()));
}

void CSVGBase::loadJson(QJsonObject &json)
{
    const QByteArray bytes = QByteArray::fromBase64(json.value(QStringLiteral("svgbase_stream")).toString().toLatin1());
    if (bytes.isEmpty())
        return;
    QDataStream in(bytes);
    load(in);
}

void CSVGBase::SavePropertyForPlayback(QDataStream &out) { save(out); }
void CSVGBase::LoadPropertyForPlayback(QDataStream &in) { load(in); }

bool CSVGBase::DoPlaybackActionEx(int actionId, QDataStream &in)
{
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
        return true;
    }
    if (id == ATTR_RESTORE) {
        m_hostColor = m_capturedHostColor;
        applyHostColors();
        return true;
    }
    return setInnerProperty(id, in, bRecord, bUndo);
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
    m_controlNodes.clear();
    m_pHitHandle = nullptr;
    m_dragHandle = -1;
    clearPropItems();
    // Content classes without a loader of their own (the fixed symbols) get their template here.
    if (!m_pDocument)
        m_pDocument = QSvgTinyDocument::load(getSVG().toUtf8());
    if (!m_pDocument)
        return false;
    for (int i = 1;; ++i) {
        QSvgNode *h = m_pDocument->namedNode(QStringLiteral("control_%1").arg(i));
        if (!h)
            break;
        m_controlNodes.append(h);
    }
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
    if (cmd)
        GetFramework()->undoStack()->push(cmd);
}

void CSVGBase::RecordData(int kind, const QByteArray &data, int propId)
{
    GetFramework()->record(PlaybackRecord{m_serial, propId, kind, data});
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

std::shared_ptr<const SvgDocumentState> CSVGBase::captureDocumentState() const
{
    auto state = std::make_shared<SvgDocumentState>();
    if (!m_pDocument)
        return state;
    state->viewBox = m_pDocument->viewBox();
    state->size = m_pDocument->size();
    forEachNode(m_pDocument, [&](QSvgNode *n) {
        state->nodes.append({n->tagName(), n->attributes(), n->text(), n->isVisible()});
    });
    return state;
}

bool CSVGBase::restoreDocumentState(const SvgDocumentState &state)
{
    if (!m_pDocument)
        return false;
    QVector<QSvgNode *> nodes;
    forEachNode(m_pDocument, [&](QSvgNode *n) { nodes.append(n); });
    if (nodes.size() != state.nodes.size())
        return false;
    for (int i = 0; i < nodes.size(); ++i)
        if (nodes[i]->tagName() != state.nodes[i].tag)
            return false;
    // Through the host's own service, so that the item keeps the drawing in place.
    const QRectF vb = m_pDocument->viewBox();
    if (vb != state.viewBox && state.viewBox.isValid())
        adjustSvgPosition(state.viewBox.topLeft() - vb.topLeft(), state.viewBox.width() - vb.width(),
                          state.viewBox.height() - vb.height(), true);
    m_pDocument->setViewBox(state.viewBox);
    m_pDocument->setSize(state.size);
    for (int i = 0; i < nodes.size(); ++i) {
        QSvgNode *n = nodes[i];
        const SvgDocumentState::Node &want = state.nodes[i];
        QStringList gone;
        for (const QSvgNode::Attr &a : n->attributes()) {
            bool kept = false;
            for (const QSvgNode::Attr &w : want.attrs)
                kept = kept || w.name == a.name;
            if (!kept)
                gone << a.name;
        }
        for (const QString &name : gone)
            n->removeAttribute(name);
        for (const QSvgNode::Attr &w : want.attrs)
            if (n->attribute(w.name) != w.value || !n->hasAttribute(w.name))
                n->setAttribute(w.name, w.value);
        n->setText(want.text);
        n->setVisible(want.visible);
    }
    if (m_pOwner)
        m_pOwner->update(QRectF());
    return true;
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
    const QPointF start = handle->rect().topLeft();
    if (m_dragHandle != index) {
        m_dragHandle = index;
        m_dragStart = start;
        m_dragBefore = bUndo && !m_loading ? captureDocumentState() : nullptr;
    }
    const double x = qBound(getXMin(handle), start.x() + delta.x(), getXMax(handle));
    const double y = qBound(getYMin(handle), start.y() + delta.y(), getYMax(handle));
    QPointF applied(x - start.x(), y - start.y());
    if (!CanMoveControlPoint(handle, applied))
        applied = QPointF();
    if (applied != QPointF())
        handle->translate(applied.x(), applied.y());
    const bool r = updateSVG(handle, applied, bFinal);
    if (handled)
        *handled = r;
    if (bFinal) {
        // The apparatus may have put the handle somewhere else (a snap-back).
        const QPointF end = m_controlNodes.value(index) ? m_controlNodes.at(index)->rect().topLeft() : start;
        if (bUndo && !m_loading && end != m_dragStart)
            GetFramework()->undoStack()->push(
                new CSVGHandleMoveCmd(this, index, m_dragStart, end, m_dragBefore, captureDocumentState()));
        m_dragHandle = -1;
        m_dragBefore.reset();
    }
    return applied;
}
