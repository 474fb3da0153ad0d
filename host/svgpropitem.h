#pragma once
#include "hostglobal.h"
#include <QByteArray>
#include <QString>

enum DATA_TYPE {
    DATA_TYPE_BOOL = 0,
    DATA_TYPE_COMBOBOX = 1,
    DATA_TYPE_INT = 2,
    DATA_TYPE_COLOR = 3,
    DATA_TYPE_STRING = 4,
};

// One property of an object as the host's panel and undo see it.
class HOST_EXPORT CSVGPropItem
{
public:
    CSVGPropItem(int attributeId, const QString &name, int propId, DATA_TYPE type,
                 QByteArray *comboData, bool editable)
        : m_attributeId(attributeId), m_name(name), m_propId(propId), m_type(type),
          m_comboData(comboData ? *comboData : QByteArray()), m_editable(editable) {}

    int attributeId() const { return m_attributeId; }
    const QString &name() const { return m_name; }
    int propId() const { return m_propId; }
    DATA_TYPE dataType() const { return m_type; }
    const QByteArray &comboData() const { return m_comboData; }
    bool editable() const { return m_editable; }

private:
    int m_attributeId;
    QString m_name;
    int m_propId;
    DATA_TYPE m_type;
    QByteArray m_comboData;
    bool m_editable;
};
