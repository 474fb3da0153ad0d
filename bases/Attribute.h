#pragma once
// Common base of most apparatus: template loading with its hooks, the attribute
// table with its stream, and property items for the table.
#include "bases/Export.h"
#include <QByteArray>
#include <QColor>
#include <QMap>
#include <QStringList>
#include <QJsonObject>
#include <QVector>
#include <functional>
#include <svgbase.h>

struct DATA_MAP_STRUCT {
    int propId = 0;
    int dataType = 0;  // DATA_TYPE: 0 switch, 1 combo box, 3 colour
    QString name;
    QColor color;
    bool boolValue = false;
    int intValue = 0;
};

class PHYSICALOBJECT_SHARED_EXPORT CAttribute : public CSVGBase
{
public:
    explicit CAttribute(CSVGObj *owner);
    ~CAttribute() override;

    bool save(QDataStream &out) override;
    bool load(QDataStream &in) override;
    bool loadSVG(bool bLoad) override;
    void updateOutlineRegion() override;
    bool getInnerProperty(int id, QDataStream &out) override;
    bool setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void initSpecialPropItems() override;

    /* 63 */ virtual void SVGInit(bool bLoad, bool bLoaded);
    /* 64 */ virtual void UpdateColor(bool b);
    /* 65 */ virtual void UpdateCheckBox(bool b);
    /* 66 */ virtual void UpdateCombobox(bool b);
    /* 67 */ virtual void ResetAtrribute();
    /* 68 */ virtual QByteArray GetComboboxData();

    const QMap<int, DATA_MAP_STRUCT> &attributes() const { return m_attributes; }
    // A label key of the attribute table as the panel names it: "IDS_SVG_PHYSICAL_HOOK"
    // reads "IDS_PHYSICSOBJ_HOOK".
    static QString panelKey(const QString &attributeKey);
    // Whether index is one of the choices GetComboboxData offers (any, without data).
    bool comboIndexValid(int index);
    // The same for one attribute: against its own number of choices where it has one (an
    // apparatus with two combo boxes), else against GetComboboxData's.
    bool choiceValid(int attr, int index);
    // The same for the combo box of attribute attr, which may have options of its own.
    bool comboIndexValid(int attr, int index);
    // The combo data of attribute attr: its own options (addCombo), else GetComboboxData().
    QByteArray comboData(int attr);
    // The panel item of one attribute: a colour picker, a switch or a combo box, keyed
    // `key`. Its label and a combo's options are the attribute's own keys (comboData) as the panel
    // names them, unless given.
    QJsonObject attributeItem(int attr, const QString &key, const QString &label = QString(),
                              const QStringList &options = QStringList());
    // Panel values of attribute items (key, attribute): each present key is read as its
    // item sends it (a colour, "true" or not, a choice's index) and handed to
    // SetAttribute. A colour that is none, or a choice that is no number, changes nothing.
    void applyAttributeItems(const QMap<QString, QString> &values, const QVector<QPair<QString, int>> &items,
                             bool bRecord, bool bUndo);

protected:
    // Adds one entry to the table with its default (an index for a combo box, a bool for a switch).
    void addAttribute(int attr, int propId, int dataType, const QString &name, int intValue = 0, bool boolValue = false);
    // A combo box with options of its own, for an apparatus with more than one: its
    // data and the choices it accepts come from these keys (or numbers shown as written).
    void addCombo(int attr, int propId, const QString &name, int intValue, const QStringList &options);
    // Adds a colour entry (data type 3) with its default.
    void addColour(int attr, int propId, const QString &name, const QColor &colour);
    // The combo data of GetComboboxData: the count, 0, then each option's label key.
    static QByteArray comboData(const QStringList &options);
    // Attribute ids 2804 and 2805 for one entry of the table: capture copies its value
    // into saved, restore replays saved through SetAttribute.
    void keepAttribute(int id, int attr, int &saved);
    void keepAttribute(int id, int attr, bool &saved);
    // Attribute ids 2804 and 2805 for everything the panel shows that the table and the
    // handles hold: capture copies every attribute and every handle's place; restore
    // puts the attributes back in key order, then moves each handle back (with `guard`
    // set, so that the move does not echo to the panel).
    void keepEverything(int id, bool &guard);
    // For an apparatus that saves something of its own before its attribute stream (a
    // force's name): read() takes it from the stream and says whether it is sound;
    // apply() puts it in place once the whole stream has been found sound.
    bool loadWith(QDataStream &in, const std::function<bool(QDataStream &)> &read, const std::function<void()> &apply);
    // The common case of it: one text (a name, a label) saved before the attribute
    // stream; a stream holding a text longer than maxTextLength() is refused.
    bool loadWithText(QDataStream &in, QString &text);
    // Gives a combo-box attribute a number of choices of its own (0 to count - 1).
    void setChoiceCount(int attr, int count) { m_choiceCounts[attr] = count; }

    QMap<int, DATA_MAP_STRUCT> m_attributes;
    bool m_bItemsOutline = false;

private:
    QMap<int, QStringList> m_comboOptions;
    QMap<int, DATA_MAP_STRUCT> m_captured;
    QMap<int, int> m_choiceCounts;
    QVector<QPointF> m_capturedHandles;
};
