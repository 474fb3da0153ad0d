#pragma once
// The panel items of an apparatus, kept between requests. A drag asks for them twice a
// step, to post the values it changed, and building the JSON costs more than the step:
// an item is built once, and a new value only rewrites that item's "value".
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVector>
#include <functional>
#include "HandlePos.h"
#include "PanelItems.h"
#include <initializer_list>

class CAttribute;
class CSVGBase;

class PanelCache
{
public:
    // Appends item i showing `value`. build() makes it the first time, and again when
    // `shape` (whatever else the item shows: its options, its range) differs from last time.
    void append(QJsonArray &array, int i, const QJsonValue &value, const std::function<QJsonObject()> &build,
                const QString &shape = QString());
    // Appends the attribute items (a colour, a switch, a combo box) as items first,
    // first + 1, ..., each showing its attribute's value.
    void append(CAttribute &obj, QJsonArray &array, int first, std::initializer_list<PanelItems::Item> items);
    // Appends the slots' percentage inputs as items first, first + 1, ...
    void append(CSVGBase &obj, QJsonArray &array, int first, HandlePos::Slots all);

private:
    struct Item {
        bool built = false;
        QString shape;
        QJsonObject fresh;   // as built: rewriting a value in place keeps the old text's bytes
        QJsonObject current;
        QJsonValue value;
    };
    QVector<Item> m_items;
};
