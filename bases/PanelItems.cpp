#include "PanelItems.h"
#include "AttrValue.h"
#include "Attribute.h"
#include <QJsonArray>
#include <svgobj.h>

namespace PanelItems {

namespace {

QStringList comboOptions(CAttribute &obj, int attribute)
{
    QStringList options;
    QByteArray data = obj.comboData(attribute);
    QDataStream in(data);
    int count = 0, reserved = 0;
    in >> count >> reserved;
    for (int i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        QString o;
        in >> o;
        options << panelKey(o);
    }
    return options;
}

} // namespace

QString panelKey(const QString &attributeKey)
{
    static const QString from = QStringLiteral("IDS_SVG_PHYSICAL_");
    if (!attributeKey.startsWith(from))
        return attributeKey;
    return QStringLiteral("IDS_PHYSICSOBJ_") + attributeKey.mid(from.size());
}

void append(CAttribute &obj, QJsonArray &array, std::initializer_list<Item> items)
{
    CSVGObj *owner = obj.owner();
    if (!owner)
        return;
    for (const Item &item : items) {
        const auto it = obj.attributes().constFind(item.attribute);
        if (it == obj.attributes().cend())
            continue;
        const QString key = QLatin1String(item.key), label = panelKey(it->name);
        switch (it->dataType) {
        case 0: array.append(owner->GetSettingJsonSwitch(key, label, it->boolValue)); break;
        case 1:
            array.append(owner->GetSettingJsonComboBox(key, label, it->intValue, QStringList(),
                                                       comboOptions(obj, item.attribute)));
            break;
        case 3: array.append(owner->GetSettingJsonColorPicker(key, label, it->color.name())); break;
        default: break;
        }
    }
}

void apply(CAttribute &obj, const QMap<QString, QString> &values, std::initializer_list<Item> items, bool bRecord,
           bool bUndo)
{
    for (const Item &item : items) {
        const auto value = values.constFind(QLatin1String(item.key));
        const auto it = obj.attributes().constFind(item.attribute);
        if (value == values.cend() || it == obj.attributes().cend())
            continue;
        switch (it->dataType) {
        case 0: AttrValue::apply(obj, item.attribute, *value == QLatin1String("true"), bRecord, bUndo); break;
        case 1: {
            bool ok = false;
            const int index = value->trimmed().toInt(&ok);
            if (ok)
                AttrValue::apply(obj, item.attribute, index, bRecord, bUndo);
            break;
        }
        case 3: {
            QColor c;
            c.setNamedColor(*value);
            if (c.isValid())
                AttrValue::apply(obj, item.attribute, c, bRecord, bUndo);
            break;
        }
        default: break;
        }
    }
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
