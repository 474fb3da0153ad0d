#include "PanelCache.h"
#include "Attribute.h"

void PanelCache::append(QJsonArray &array, int i, const QJsonValue &value, const std::function<QJsonObject()> &build,
                        const QString &shape)
{
    if (i < 0)
        return;
    if (m_items.size() <= i)
        m_items.resize(i + 1);
    Item &item = m_items[i];
    if (!item.built || item.shape != shape) {
        item.fresh = build();
        item.current = item.fresh;
        item.value = item.fresh.value(QStringLiteral("value"));
        item.shape = shape;
        item.built = true;
    }
    if (value != item.value) {
        item.current = item.fresh;
        item.current.insert(QStringLiteral("value"), value);
        item.value = value;
    }
    array.append(item.current);
}

void PanelCache::append(CSVGBase &obj, QJsonArray &array, int first, HandlePos::Slots all)
{
    for (int i = 0; i < all.count; ++i) {
        const HandlePos::Slot &s = all.first[i];
        append(array, first + i, QString::number(HandlePos::percent(obj, s)), [&obj, &s] {
            QJsonArray item;
            HandlePos::appendInput(obj, item, s);
            return item.first().toObject();
        });
    }
}

void PanelCache::append(CAttribute &obj, QJsonArray &array, int first, std::initializer_list<PanelItems::Item> items)
{
    int i = first;
    for (const PanelItems::Item &item : items) {
        const auto it = obj.attributes().constFind(item.attribute);
        if (it == obj.attributes().cend())
            continue;
        const QJsonValue value = it->dataType == 3 ? QJsonValue(it->color.name())
                                 : it->dataType == 0 ? QJsonValue(it->boolValue)
                                                     : QJsonValue(it->intValue);
        append(array, i++, value, [&obj, &item] { return obj.attributeItem(item.attribute, QLatin1String(item.key)); });
    }
}
