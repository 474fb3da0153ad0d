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
class CSVGObj;
class QUndoCommand;

struct HOST_EXPORT PlaybackRecord {
    enum { KindRecord = 5 };  // the object's whole record (the host's own records)
    quint64 object;     // serial of the content object that made it
    int actionId;       // the property id the record was made under
    int kind;           // 0 bool, 1 int, 3 colour, 4 string (the property item data types), 5 record
    QByteArray data;    // the value as QDataStream wrote it
};

class HOST_EXPORT CFramework
{
public:
    enum { MSG_SETTINGS_CHANGED = 100 };

    CFramework();
    ~CFramework();
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
    // History is bounded: the last kUndoSteps steps, and of those the oldest give up their
    // saved states once these pass kUndoBudget bytes, but never the latest kUndoMinSteps.
    static constexpr int kUndoSteps = 1000;
    static constexpr int kUndoMinSteps = 200;
    static constexpr qint64 kUndoBudget = qint64(64) << 20;
    // Pushes a step and keeps the history within its budget.
    void pushUndo(QUndoCommand *cmd);
    void setUndoBudget(qint64 bytes) { m_undoBudget = bytes; }
    // The bytes of saved state a step holds; steps that hold state report it here.
    void setUndoCost(const QUndoCommand *cmd, qint64 bytes);
    qint64 undoCost() const { return m_undoCost; }

    // The plug-in's factory, as the host resolves it: a new, empty object of a type id.
    using ObjectFactory = std::function<CSVGObj *(int typeId)>;
    void setObjectFactory(ObjectFactory factory) { m_factory = std::move(factory); }
    CSVGObj *createObject(int typeId) const { return m_factory ? m_factory(typeId) : nullptr; }

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
    void keepUndoBudget();
    // Before the stack: its steps unregister their cost as the stack deletes them.
    QHash<const QUndoCommand *, qint64> m_undoCosts;
    qint64 m_undoCost = 0;
    qint64 m_undoBudget = kUndoBudget;
    QUndoStack m_undo;
    ObjectFactory m_factory;
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
