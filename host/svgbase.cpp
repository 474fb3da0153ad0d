#include "svgbase.h"
#include "svgbase_p.h"
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

// ------------------------------------------------------------- drawing

void CSVGBase::paint(QPainter *painter)
{
    if (!m_pDocument || !m_pOwner)
        return;
    watchDocument();
    QSvgTinyDocument::RenderOptions o;
    o.handles = m_pOwner->handlesVisible();
    o.minHandlePixels = CSVGObj::minHandlePixels();
    m_pDocument->render(painter, QRectF(QPointF(0, 0), m_pOwner->itemSize()), o);
}

void CSVGBase::watchDocument()
{
    if (m_pDocument && m_pOwner && m_pDocument->watcherContext() != m_pOwner)
        m_pDocument->setWatcher(&CSVGObj::contentChanged, m_pOwner);
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
    watchDocument(); // the item showing the drawing repaints whatever changes it
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

namespace {

// The view box and the item size it is stretched over; false without either, when item
// and document units are the same.
bool itemFrame(const QSvgTinyDocument *doc, const CSVGObj *owner, QRectF &vb, QSizeF &size)
{
    if (!doc || !owner)
        return false;
    vb = doc->viewBox();
    size = owner->itemSize();
    return !vb.isEmpty() && !size.isEmpty();
}

} // namespace

QPointF CSVGBase::itemToDocument(const QPointF &p) const
{
    QRectF vb;
    QSizeF s;
    if (!itemFrame(m_pDocument, m_pOwner, vb, s))
        return p;
    return QPointF(vb.x() + p.x() * vb.width() / s.width(), vb.y() + p.y() * vb.height() / s.height());
}

QPointF CSVGBase::documentToItem(const QPointF &p) const
{
    QRectF vb;
    QSizeF s;
    if (!itemFrame(m_pDocument, m_pOwner, vb, s))
        return p;
    return QPointF((p.x() - vb.x()) * s.width() / vb.width(), (p.y() - vb.y()) * s.height() / vb.height());
}

QRectF CSVGBase::documentToItem(const QRectF &r) const
{
    return QRectF(documentToItem(r.topLeft()), documentToItem(r.bottomRight()));
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
    SvgTree::forEach(m_pDocument, [&](QSvgNode *n) {
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
    SvgTree::forEach(m_pDocument, [path](QSvgNode *n) {
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

QVector<QPair<QString, QString>> CSVGBase::settingTexts()
{
    if (m_dragTexts)
        return m_dragTexts();
    QJsonArray items;
    GetSettingArray(items);
    QVector<QPair<QString, QString>> out;
    for (const QJsonValue &v : items) {
        const QJsonObject o = v.toObject();
        const QJsonValue value = o.value(QStringLiteral("value"));
        // As the panel shows it: numbers and switches as text.
        const QString text = value.isBool() ? (value.toBool() ? QStringLiteral("true") : QStringLiteral("false"))
                             : value.isDouble() ? QString::number(value.toDouble())
                                                : value.toString();
        out.append({o.value(QStringLiteral("id")).toString(), text});
    }
    return out;
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
    const bool post = m_bPostChanged && !m_loading;
    const QVector<QPair<QString, QString>> shown = post ? settingTexts() : QVector<QPair<QString, QString>>();
    if (applied.x() != 0 || applied.y() != 0)
        handle->translate(applied.x(), applied.y());
    const bool r = updateSVG(handle, applied, bFinal);
    if (post) {
        QVector<QPair<QString, QString>> changed;
        for (const auto &now : settingTexts())
            if (!shown.contains(now))
                changed.append(now);
        if (!changed.isEmpty())
            postSettings(changed);
    }
    if (handled)
        *handled = r;
    if (bFinal) {
        if (m_edit && m_edit->drag)
            commitEdit(QStringLiteral("move control_%1").arg(index + 1));
        m_dragHandle = -1;
    }
    return applied;
}
