#include "Attribute.h"
#include "AttrValue.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <framework.h>
#include <svgbaseundocmd.h>

CAttribute::CAttribute(CSVGObj *owner) : CSVGBase(owner) {}

CAttribute::~CAttribute() = default;

bool CAttribute::loadSVG(bool bLoad)
{
    ResetAtrribute();
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::load(getSVG().toUtf8());
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

bool CAttribute::load(QDataStream &in)
{
    // Entries are matched by position against the apparatus's own defaults.
    const QMap<int, DATA_MAP_STRUCT> defaults = m_attributes;
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it) {
        DATA_MAP_STRUCT a;
        in >> a.propId >> a.dataType >> a.name;
        readColor(in, a.color);
        in >> a.boolValue >> a.intValue;
        m_attributes.insert(it.key(), a);
    }
    const bool r = in.status() == QDataStream::Ok && CSVGBase::load(in);
    // A stream that fails leaves the table as it was, like the host's part of the object.
    if (!r)
        m_attributes = defaults;
    UpdateColor(false);
    UpdateCheckBox(false);
    UpdateCombobox(false);
    return r;
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
        QByteArray *comboData = nullptr;
        if (it->dataType == 1) {
            combo = GetComboboxData();
            comboData = &combo;
        }
        m_propItems.push_back(new CSVGPropItem(it.key(), it->name, it->propId, DATA_TYPE(it->dataType), comboData, true));
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

void CAttribute::postSetting(const QString &key, const QString &value) { postPanelSetting(key, value); }

void postPanelSetting(const QString &key, const QString &value)
{
    QJsonObject item{{QStringLiteral("id"), key}, {QStringLiteral("value"), value}};
    QJsonObject root{{QStringLiteral("settings"), QJsonArray{item}}};
    const QByteArray json = QJsonDocument(root).toJson();
    GetFramework()->PostMessage(CFramework::MSG_SETTINGS_CHANGED, 0, &json, -1);
}

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

void CAttribute::keepAttribute(int id, int attr, int &saved)
{
    if (id == ATTR_CAPTURE)
        saved = m_attributes.value(attr).intValue;
    else if (id == ATTR_RESTORE)
        AttrValue::apply(*this, attr, saved, false, false);
}

void CAttribute::keepAttribute(int id, int attr, bool &saved)
{
    if (id == ATTR_CAPTURE)
        saved = m_attributes.value(attr).boolValue;
    else if (id == ATTR_RESTORE)
        AttrValue::apply(*this, attr, saved, false, false);
}
