#include "PanelItems.h"
#include "AttrValue.h"
#include "Attribute.h"
#include <QJsonArray>
#include <svgobj.h>

namespace PanelItems {

void append(CAttribute &obj, QJsonArray &array, std::initializer_list<Item> items)
{
    for (const Item &item : items) {
        const QJsonObject o = obj.attributeItem(item.attribute, QLatin1String(item.key));
        if (!o.isEmpty())
            array.append(o);
    }
}

void apply(CAttribute &obj, const QMap<QString, QString> &values, std::initializer_list<Item> items, bool bRecord,
           bool bUndo)
{
    QVector<QPair<QString, int>> pairs;
    for (const Item &item : items)
        pairs.append({QLatin1String(item.key), item.attribute});
    obj.applyAttributeItems(values, pairs, bRecord, bUndo);
}

void append(CSVGBase &obj, QJsonArray &array, std::initializer_list<Travel> items)
{
    for (const Travel &t : items)
        HandlePos::appendInput(obj, array, QLatin1String(t.key), QLatin1String(t.label),
                               HandlePos::percent(obj, t.handle, t.axis, HandlePos::get(obj, t.handle, t.axis)));
}

void apply(CSVGBase &obj, const QMap<QString, QString> &values, std::initializer_list<Travel> items, bool &guard)
{
    for (const Travel &t : items) {
        double pos = 0;
        if (HandlePos::target(obj, values, QLatin1String(t.key), t.handle, t.axis, false, pos, HandlePos::Decimal))
            HandlePos::set(obj, t.handle, t.axis, pos, guard);
    }
}

QVector<QPair<QString, QString>> texts(CSVGBase &obj, std::initializer_list<Travel> items)
{
    QVector<QPair<QString, QString>> out;
    out.reserve(int(items.size()));
    for (const Travel &t : items)
        out.append({QLatin1String(t.key),
                    QString::number(HandlePos::percent(obj, t.handle, t.axis, HandlePos::get(obj, t.handle, t.axis)))});
    return out;
}

void appendAngle(CSVGBase &obj, QJsonArray &array, int degrees)
{
    if (CSVGObj *owner = obj.owner())
        array.append(owner->GetSettingJsonInput(QStringLiteral("idAngle"), QStringLiteral("IDS_PHYSICSOBJ_ANGLE"),
                                                QString::number(degrees), QStringLiteral("int"), QStringLiteral("-180"),
                                                QStringLiteral("180"), QStringLiteral("\u00B0")));
}

} // namespace PanelItems
