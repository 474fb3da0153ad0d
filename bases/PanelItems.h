#pragma once
// Panel items built from the attribute table: an attribute's item takes its label
// from the attribute's ("IDS_SVG_PHYSICAL_X" shows as "IDS_PHYSICSOBJ_X"), and a
// combo box its options the same way (options that are numbers show as written). Also
// the percentage inputs of handles and the angle input of a turning handle.
#include "HandlePos.h"
#include <QMap>
#include <QPair>
#include <QString>
#include <QVector>
#include <initializer_list>

class CAttribute;
class CSVGBase;
class QJsonArray;

namespace PanelItems {

// A panel key and the attribute it edits; its kind follows the attribute's data type.
struct Item {
    const char *key;
    int attribute;
};

// A panel key for a handle's place along one axis, as a percentage of its travel.
struct Travel {
    const char *key;
    const char *label;
    int handle;
    HandlePos::Axis axis;
};

void append(CAttribute &obj, QJsonArray &array, std::initializer_list<Item> items);
// Each present key through SetAttribute (CAttribute::applyAttributeItems).
void apply(CAttribute &obj, const QMap<QString, QString> &values, std::initializer_list<Item> items, bool bRecord,
           bool bUndo);

void append(CSVGBase &obj, QJsonArray &array, std::initializer_list<Travel> items);
// Each present key moves its handle (typed decimals rounded and held to 0..100), with
// `guard` set meanwhile so that the move does not echo to the panel.
void apply(CSVGBase &obj, const QMap<QString, QString> &values, std::initializer_list<Travel> items, bool &guard);

// The texts those inputs show, for CSVGBase::setDragSettingTexts.
QVector<QPair<QString, QString>> texts(CSVGBase &obj, std::initializer_list<Travel> items);

// "idAngle": whole degrees, -180 to 180, unit "°".
void appendAngle(CSVGBase &obj, QJsonArray &array, int degrees);

} // namespace PanelItems
