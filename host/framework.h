#pragma once
// Process-wide services of the host: message sink, undo stack, playback recorder,
// the registry of live content objects, and the JSON utility.
#include "hostglobal.h"
#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QUndoStack>
#include <QVariant>
#include <QVector>
#include <functional>

class CSVGBase;

struct HOST_EXPORT PlaybackRecord {
    quint64 object;     // serial of the content object that made it
    int actionId;       // the property id the record was made under
    int kind;           // 0 bool, 1 int, 3 colour, 4 string (the property item data types)
    QByteArray data;    // the value as QDataStream wrote it
};

class HOST_EXPORT CFramework
{
public:
    enum { MSG_SETTINGS_CHANGED = 100 };
    // How many of the latest panel messages settingsMessages() keeps.
    static constexpr int kKeptMessages = 4096;

    // The message sink. For message 100 json points to the panel-refresh JSON text.
    void PostMessage(int message, int wParam, const QByteArray *json, int target);
    const QVector<QByteArray> &settingsMessages() const { return m_messages; } // the latest ones
    void clearMessages() { m_messages.clear(); }
    int addObserver(std::function<void(int message, const QByteArray &json)> fn);
    void removeObserver(int handle);
    // While muted (loading a page), posts are dropped.
    void mute(bool on) { m_mute += on ? 1 : -1; }

    QUndoStack *undoStack() { return &m_undo; }

    void record(const PlaybackRecord &r) { m_records.append(r); }
    const QVector<PlaybackRecord> &records() const { return m_records; }
    void clearRecords() { m_records.clear(); }

    quint64 registerObject(CSVGBase *obj);
    void unregisterObject(quint64 serial);
    CSVGBase *object(quint64 serial) const { return m_objects.value(serial, nullptr); }

private:
    QVector<QByteArray> m_messages;
    QHash<int, std::function<void(int, const QByteArray &)>> m_observers;
    int m_nextObserver = 1;
    int m_mute = 0;
    QUndoStack m_undo;
    QVector<PlaybackRecord> m_records;
    QHash<quint64, CSVGBase *> m_objects;
    quint64 m_nextSerial = 1;
};

class HOST_EXPORT CJsonUtil
{
public:
    // Colours travel as {"r":..,"g":..,"b":..,"a":..}; other variants as {"value": ...}.
    QJsonObject variantToJson(const QVariant &v) const;
    QVariant jsonToVariant(const QJsonObject &o) const;
};

HOST_EXPORT CFramework *GetFramework();
HOST_EXPORT CJsonUtil *GetJsonUtil();
