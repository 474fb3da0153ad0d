#include "svgobj.h"
#include "svgbase.h"
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <cmath>

namespace {
double g_minHandlePixels = 0;
}

CBaseObject::CBaseObject(QGraphicsItem *parent) : QGraphicsItem(parent) {}
CBaseObject::~CBaseObject() = default;

QString CBaseObject::getObjName() const { return m_strObjName; }

bool CBaseObject::CheckHitTestHandlers(const QPointF &scenePoint, CObjAction::ACT_Def &action)
{
    if (contains(mapFromScene(scenePoint))) {
        action = CObjAction::ACT_MOVE;
        return true;
    }
    return false;
}

CSVGObj::CSVGObj(int typeId, bool bDefaultSize, QGraphicsItem *parent)
    : CBaseObject(parent), m_nTypeId(typeId), m_bDefaultSize(bDefaultSize)
{
    setFlag(ItemSendsGeometryChanges); // a new scale changes the handles' reach
}

CSVGObj::~CSVGObj()
{
    // The drawing dies with the content: nothing of it may call back into a dying item.
    if (m_pContent && m_pContent->document())
        m_pContent->document()->setWatcher(nullptr, nullptr);
    delete m_pContent;
}

void CSVGObj::contentChanged(void *item)
{
    auto *self = static_cast<CSVGObj *>(item);
    self->refreshGeometry();
    self->update();
}

void CSVGObj::setMinHandlePixels(double pixels) { g_minHandlePixels = std::isfinite(pixels) ? qMax(0.0, pixels) : 0.0; }
double CSVGObj::minHandlePixels() { return g_minHandlePixels; }

void CSVGObj::setHandlesVisible(bool on)
{
    if (on == m_handlesVisible)
        return;
    m_handlesVisible = on;
    refreshGeometry();
    update();
}

QRectF CSVGObj::computeBounds() const
{
    const QRectF r = itemRect();
    if (!m_handlesVisible || g_minHandlePixels <= 0 || r.isEmpty())
        return r;
    // Half a handle beyond the drawing, in the item's units at the closest zoom it is seen.
    double pixelsPerUnit = std::fabs(scale());
    double zoom = 0;
    if (QGraphicsScene *s = scene())
        for (const QGraphicsView *v : s->views())
            zoom = qMax(zoom, std::hypot(v->transform().m11(), v->transform().m12()));
    pixelsPerUnit *= zoom > 0 ? zoom : 1;
    if (!(pixelsPerUnit > 1e-9))
        return r;
    const double reach = g_minHandlePixels / 2 / pixelsPerUnit;
    return r.adjusted(-reach, -reach, reach, reach);
}

void CSVGObj::refreshGeometry()
{
    const QRectF b = computeBounds();
    if (b == m_bounds)
        return;
    prepareGeometryChange();
    m_bounds = b;
}

QPainterPath CSVGObj::shape() const
{
    QPainterPath p;
    p.addRect(itemRect());
    return p;
}

QVariant CSVGObj::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemScaleHasChanged || change == ItemSceneHasChanged)
        refreshGeometry();
    return CBaseObject::itemChange(change, value);
}

int CSVGObj::type() const { return UserType + 1; }
QString CSVGObj::getObjName() const { return m_strObjName; }

bool CSVGObj::CheckHitTestHandlers(const QPointF &scenePoint, CObjAction::ACT_Def &action)
{
    return CBaseObject::CheckHitTestHandlers(scenePoint, action);
}

bool CSVGObj::createSVG(int, bool) { return false; }

void CSVGObj::Release() { delete this; }

QSizeF CSVGObj::itemSize() const
{
    if (m_size.width() > 0 && m_size.height() > 0)
        return m_size;
    if (m_pContent && m_pContent->document())
        return m_pContent->document()->size();
    return QSizeF();
}

void CSVGObj::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (m_pContent)
        m_pContent->paint(painter);
}

QSizeF CSVGObj::getDefaultSize() const
{
    return m_pContent ? m_pContent->getDefaultSVGSize() : QSizeF();
}

void CSVGObj::setSize2(const QSizeF &size, bool)
{
    if (!(size.width() > 0) || !(size.height() > 0) || size.width() > 1e7 || size.height() > 1e7)
        return;
    const QSizeF old = itemSize();
    m_size = size;
    if (m_pContent)
        m_pContent->setSize(old, size);
    refreshGeometry();
}

void CSVGObj::followViewBox(const QRectF &oldVb, const QRectF &newVb)
{
    const QSizeF s = itemSize();
    const double sx = oldVb.width() > 0 ? s.width() / oldVb.width() : 1;
    const double sy = oldVb.height() > 0 ? s.height() / oldVb.height() : 1;
    const QPointF shift((newVb.x() - oldVb.x()) * sx, (newVb.y() - oldVb.y()) * sy);
    setPos(mapToParent(shift));
    m_size = QSizeF(newVb.width() * sx, newVb.height() * sy);
    refreshGeometry();
    update();
}

QJsonObject CSVGObj::GetSettingJsonInput(const QString &id, const QString &label, const QString &value,
                                         const QString &valueType, const QString &min, const QString &max,
                                         const QString &unit) const
{
    return QJsonObject{{QStringLiteral("id"), id}, {QStringLiteral("type"), QStringLiteral("input")},
                       {QStringLiteral("label"), label}, {QStringLiteral("value"), value},
                       {QStringLiteral("valueType"), valueType}, {QStringLiteral("min"), min},
                       {QStringLiteral("max"), max}, {QStringLiteral("unit"), unit}};
}

QJsonObject CSVGObj::GetSettingJsonComboBox(const QString &id, const QString &label, int current,
                                            const QStringList &values, const QStringList &labels) const
{
    return QJsonObject{{QStringLiteral("id"), id}, {QStringLiteral("type"), QStringLiteral("combobox")},
                       {QStringLiteral("label"), label}, {QStringLiteral("value"), current},
                       {QStringLiteral("values"), QJsonArray::fromStringList(values)},
                       {QStringLiteral("options"), QJsonArray::fromStringList(labels)}};
}

QJsonObject CSVGObj::GetSettingJsonColorPicker(const QString &id, const QString &label, const QString &color) const
{
    return QJsonObject{{QStringLiteral("id"), id}, {QStringLiteral("type"), QStringLiteral("colorpicker")},
                       {QStringLiteral("label"), label}, {QStringLiteral("value"), color}};
}

QJsonObject CSVGObj::GetSettingJsonSwitch(const QString &id, const QString &label, bool on) const
{
    return QJsonObject{{QStringLiteral("id"), id}, {QStringLiteral("type"), QStringLiteral("switch")},
                       {QStringLiteral("label"), label}, {QStringLiteral("value"), on}};
}
