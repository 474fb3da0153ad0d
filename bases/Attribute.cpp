#include "Attribute.h"
#include "AttrValue.h"
#include "HandlePos.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <framework.h>
#include <cmath>
#include <svgbaseundocmd.h>
#include <svgobj.h>

CAttribute::CAttribute(CSVGObj *owner) : CSVGBase(owner) {}

CAttribute::~CAttribute() = default;

bool CAttribute::loadSVG(bool bLoad)
{
    ResetAtrribute();
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::fromTemplate(getSVG());
    const bool loaded = CSVGBase::loadSVG(bLoad);
    SVGInit(bLoad, loaded);
    UpdateColor(bLoad);
    UpdateCheckBox(bLoad);
    UpdateCombobox(bLoad);
    return loaded;
}

bool CAttribute::save(QDataStream &out)
{
    for (auto it = m_attributes.cbegin(); it != m_attributes.cend(); ++it) {
        const DATA_MAP_STRUCT &a = it.value();
        out << a.propId << a.dataType << a.name << a.color << a.boolValue << a.intValue;
    }
    return CSVGBase::save(out);
}

bool CAttribute::load(QDataStream &in) { return loadWith(in, nullptr, nullptr); }

bool CAttribute::loadWith(QDataStream &in, const std::function<bool(QDataStream &)> &read, const std::function<void()> &apply)
{
    if (read && !read(in))
        return refuseLoad(&in, QStringLiteral("cut short or damaged"));
    // Entries are matched by position against the apparatus's own defaults, and must be
    // the same entries: a stream of another apparatus is refused, not half applied.
    QMap<int, DATA_MAP_STRUCT> table = m_attributes;
    for (auto it = table.begin(); it != table.end(); ++it) {
        DATA_MAP_STRUCT a;
        in >> a.propId >> a.dataType >> a.name;
        readColor(in, a.color);
        in >> a.boolValue >> a.intValue;
        if (in.status() != QDataStream::Ok)
            return refuseLoad(&in, QStringLiteral("cut short or damaged"));
        if (a.propId != it->propId || a.dataType != it->dataType || a.name != it->name)
            return refuseLoad(&in, QStringLiteral("not of this apparatus"));
        if (a.dataType == 1 && !choiceValid(it.key(), a.intValue))
            return refuseLoad(&in, QStringLiteral("a choice out of range"));
        it.value() = a;
    }
    HostPart part;
    if (!readHostPart(in, part))
        return false;
    applyLoaded(
        part,
        [&]() {
            if (apply)
                apply();
            m_attributes = table;
        },
        [&]() {
            UpdateColor(false);
            UpdateCheckBox(false);
            UpdateCombobox(false);
        });
    return true;
}

bool CAttribute::loadWithText(QDataStream &in, QString &text)
{
    QString read;
    return loadWith(
        in,
        [&](QDataStream &s) {
            s >> read;
            return s.status() == QDataStream::Ok && read.size() <= maxTextLength();
        },
        [&]() { text = SvgXml::clean(read); });
}

bool CAttribute::comboIndexValid(int index)
{
    return comboIndexValid(-1, index);
}

QByteArray CAttribute::comboData(int attr)
{
    const auto it = m_comboOptions.constFind(attr);
    if (it == m_comboOptions.cend())
        return GetComboboxData();
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(it->size()) << int(0);
    for (const QString &o : *it)
        out << o;
    return data;
}

bool CAttribute::comboIndexValid(int attr, int index)
{
    // The combo data holds the number of choices first.
    QByteArray data = comboData(attr);
    if (data.isEmpty())
        return true;
    QDataStream in(data);
    int count = 0;
    in >> count;
    return in.status() != QDataStream::Ok || count <= 0 || (index >= 0 && index < count);
}

bool CAttribute::choiceValid(int attr, int index)
{
    const auto own = m_choiceCounts.constFind(attr);
    return own == m_choiceCounts.cend() ? comboIndexValid(attr, index) : index >= 0 && index < *own;
}

bool CAttribute::getInnerProperty(int id, QDataStream &out)
{
    const auto it = m_attributes.constFind(id);
    if (it != m_attributes.cend()) {
        switch (it->dataType) {
        case 1: out << it->intValue; return true;
        case 3: out << it->color; return true;
        case 0: out << it->boolValue; return true;
        default: break;
        }
    }
    return CSVGBase::getInnerProperty(id, out);
}

bool CAttribute::setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    auto it = m_attributes.find(id);
    if (it == m_attributes.end())
        return CSVGBase::setInnerProperty(id, in, bRecord, bUndo);
    DATA_MAP_STRUCT &a = it.value();
    switch (a.dataType) {
    case 3: {
        QColor c;
        readColor(in, c);
        if (bUndo) {
            auto *cmd = new CSVGBaseUndoCmd(this, a.propId, nullptr, true);
            cmd->setColor(a.color, c);
            addUndoRedo(cmd);
        }
        if (bRecord)
            RecordColor(c, a.propId);
        m_attributes[id].color = c;
        UpdateColor(true);
        return true;
    }
    case 0: {
        bool v = false;
        in >> v;
        if (bUndo) {
            auto *cmd = new CSVGBaseUndoCmd(this, a.propId, nullptr, true);
            cmd->setBool(a.boolValue, v);
            addUndoRedo(cmd);
        }
        if (bRecord)
            RecordBool(v, a.propId);
        m_attributes[id].boolValue = v;
        UpdateCheckBox(true);
        return true;
    }
    case 1: {
        int v = 0;
        in >> v;
        // A choice the combo box does not offer is refused: nothing changes.
        if (in.status() != QDataStream::Ok || !choiceValid(id, v))
            return false;
        if (bUndo) {
            auto *cmd = new CSVGBaseUndoCmd(this, a.propId, nullptr, true);
            cmd->setInt(a.intValue, v);
            addUndoRedo(cmd);
        }
        if (bRecord)
            RecordInt(v, a.propId);
        m_attributes[id].intValue = v;
        UpdateCombobox(true);
        return true;
    }
    default:
        return CSVGBase::setInnerProperty(id, in, bRecord, bUndo);
    }
}

void CAttribute::initSpecialPropItems()
{
    for (auto it = m_attributes.cbegin(); it != m_attributes.cend(); ++it) {
        QByteArray combo;
        QByteArray *data = nullptr;
        if (it->dataType == 1) {
            combo = comboData(it.key());
            data = &combo;
        }
        m_propItems.push_back(new CSVGPropItem(it.key(), it->name, it->propId, DATA_TYPE(it->dataType), data, true));
    }
}

void CAttribute::updateOutlineRegion()
{
    if (!m_bItemsOutline)
        return;
    delete m_pOutlinePath;
    m_pOutlinePath = new QPainterPath;
    m_pOutlinePath->setFillRule(Qt::WindingFill);
    addAllItemsRegion(m_pOutlinePath);
}

void CAttribute::SVGInit(bool, bool) {}
void CAttribute::UpdateColor(bool) {}
void CAttribute::UpdateCheckBox(bool) {}
void CAttribute::UpdateCombobox(bool) {}
void CAttribute::ResetAtrribute() {}
QByteArray CAttribute::GetComboboxData() { return QByteArray(); }

void CAttribute::addAttribute(int attr, int propId, int dataType, const QString &name, int intValue, bool boolValue)
{
    DATA_MAP_STRUCT a;
    a.propId = propId;
    a.dataType = dataType;
    a.name = name;
    a.intValue = intValue;
    a.boolValue = boolValue;
    m_attributes.insert(attr, a);
}

void CAttribute::addCombo(int attr, int propId, const QString &name, int intValue, const QStringList &options)
{
    addAttribute(attr, propId, 1, name, intValue);
    m_comboOptions.insert(attr, options);
}

QString CAttribute::panelKey(const QString &attributeKey)
{
    static const QString from = QStringLiteral("IDS_SVG_PHYSICAL_"), to = QStringLiteral("IDS_PHYSICSOBJ_");
    return attributeKey.startsWith(from) ? to + attributeKey.mid(from.size()) : attributeKey;
}

QJsonObject CAttribute::attributeItem(int attr, const QString &key, const QString &label, const QStringList &options)
{
    const auto it = m_attributes.constFind(attr);
    if (it == m_attributes.cend() || !m_pOwner)
        return QJsonObject();
    const QString text = label.isEmpty() ? panelKey(it->name) : label;
    switch (it->dataType) {
    case 3: return m_pOwner->GetSettingJsonColorPicker(key, text, it->color.name());
    case 0: return m_pOwner->GetSettingJsonSwitch(key, text, it->boolValue);
    case 1: {
        QStringList shown = options;
        if (shown.isEmpty()) {
            QByteArray data = comboData(attr);
            QDataStream in(data);
            int count = 0, zero = 0;
            in >> count >> zero;
            for (int i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
                QString option;
                in >> option;
                shown << panelKey(option);
            }
        }
        return m_pOwner->GetSettingJsonComboBox(key, text, it->intValue, QStringList(), shown);
    }
    default: return QJsonObject();
    }
}

void CAttribute::applyAttributeItems(const QMap<QString, QString> &values, const QVector<QPair<QString, int>> &items,
                                     bool bRecord, bool bUndo)
{
    for (const auto &item : items) {
        const auto v = values.constFind(item.first);
        const auto a = m_attributes.constFind(item.second);
        if (v == values.cend() || a == m_attributes.cend())
            continue;
        if (a->dataType == 3) {
            QColor c;
            c.setNamedColor(v->trimmed());
            if (c.isValid())
                AttrValue::apply(*this, item.second, c, bRecord, bUndo);
        } else if (a->dataType == 0) {
            AttrValue::apply(*this, item.second, *v == QLatin1String("true"), bRecord, bUndo);
        } else if (a->dataType == 1) {
            bool ok = false;
            const double index = v->trimmed().toDouble(&ok);
            if (ok && std::isfinite(index) && std::fabs(index) < 1e9)
                AttrValue::apply(*this, item.second, int(std::lround(index)), bRecord, bUndo);
        }
    }
}

void CAttribute::addColour(int attr, int propId, const QString &name, const QColor &colour)
{
    addAttribute(attr, propId, 3, name);
    m_attributes[attr].color = colour;
}

QByteArray CAttribute::comboData(const QStringList &options)
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(options.size()) << int(0);
    for (const QString &o : options)
        out << o;
    return data;
}

void CAttribute::keepEverything(int id, bool &guard)
{
    if (isCapture(id)) {
        m_captured = m_attributes;
        m_capturedHandles.clear();
        for (QSvgNode *h : m_controlNodes)
            m_capturedHandles.append(h->rect().topLeft());
    } else if (isRestore(id)) {
        for (auto it = m_captured.cbegin(); it != m_captured.cend(); ++it) {
            if (it->dataType == 3)
                AttrValue::apply(*this, it.key(), it->color, false, false);
            else if (it->dataType == 0)
                AttrValue::apply(*this, it.key(), it->boolValue, false, false);
            else if (it->dataType == 1)
                AttrValue::apply(*this, it.key(), it->intValue, false, false);
        }
        for (int i = 0; i < m_capturedHandles.size() && i < m_controlNodes.size(); ++i)
            HandlePos::moveTo(*this, i, m_capturedHandles[i], guard);
    }
}

void CAttribute::keepAttribute(int id, int attr, int &saved)
{
    if (isCapture(id))
        saved = m_attributes.value(attr).intValue;
    else if (isRestore(id))
        AttrValue::apply(*this, attr, saved, false, false);
}

void CAttribute::keepAttribute(int id, int attr, bool &saved)
{
    if (isCapture(id))
        saved = m_attributes.value(attr).boolValue;
    else if (isRestore(id))
        AttrValue::apply(*this, attr, saved, false, false);
}
