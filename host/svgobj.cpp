#include "svgobj.h"
#include "svgbase.h"
#include <QPainter>

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
}

CSVGObj::~CSVGObj()
{
    delete m_pContent;
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

QRectF CSVGObj::boundingRect() const { return QRectF(QPointF(0, 0), itemSize()); }

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
    prepareGeometryChange();
    m_size = size;
    if (m_pContent)
        m_pContent->setSize(old, size);
}

void CSVGObj::followViewBox(const QRectF &oldVb, const QRectF &newVb)
{
    const QSizeF s = itemSize();
    const double sx = oldVb.width() > 0 ? s.width() / oldVb.width() : 1;
    const double sy = oldVb.height() > 0 ? s.height() / oldVb.height() : 1;
    const QPointF shift((newVb.x() - oldVb.x()) * sx, (newVb.y() - oldVb.y()) * sy);
    prepareGeometryChange();
    setPos(mapToParent(shift));
    m_size = QSizeF(newVb.width() * sx, newVb.height() * sy);
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
