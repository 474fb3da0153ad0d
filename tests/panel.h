#pragma once
// Helpers for the suites of apparatus driven through their panel: typed values,
// capture and restore, counted series and the save-load-save round trip.
#include "helpers.h"
#include <QJsonDocument>
#include <QColor>
#include <QJsonObject>
#include <QUndoStack>

namespace Panel {

inline bool set(CSVGBase *c, const QString &key, const QString &value)
{
    QMap<QString, QString> v{{key, value}};
    return c->SetSettingArray(v, true, true);
}

inline QJsonObject item(CSVGBase *c, const QString &key)
{
    for (const QJsonValue &v : settingsOf(c))
        if (v.toObject().value("id").toString() == key)
            return v.toObject();
    return QJsonObject();
}

inline QString shown(CSVGBase *c, const QString &key) { return item(c, key).value("value").toVariant().toString(); }

inline QStringList keys(CSVGBase *c)
{
    QStringList out;
    for (const QJsonValue &v : settingsOf(c))
        out << v.toObject().value("id").toString();
    return out;
}

// A colour as SetAttribute and editAttribute take it.
inline QByteArray colourValue(const QColor &c)
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out << c;
    return b;
}

inline void event(CSVGBase *c, int id)
{
    QByteArray none;
    QDataStream in(none);
    c->SetAttribute(id, in, false, false);
}

// How many members of the series prefix_1, prefix_2, … the drawing has.
inline int count(CSVGBase *c, const char *prefix)
{
    int k = 0;
    while (c->document()->namedNode(QStringLiteral("%1_%2").arg(QLatin1String(prefix)).arg(k + 1)))
        ++k;
    return k;
}

// The values one drag step posted, as "key=value" in order.
inline QStringList posted()
{
    QStringList out;
    const auto &m = GetFramework()->settingsMessages();
    if (m.isEmpty())
        return out;
    const QJsonArray s = QJsonDocument::fromJson(m.last()).object().value("settings").toArray();
    for (const QJsonValue &v : s)
        out << v.toObject().value("id").toString() + "=" + v.toObject().value("value").toVariant().toString();
    return out;
}

// Save, load into a new object, save again: the same bytes and the same drawing.
inline ::testing::AssertionResult reopens(CSVGBase *c)
{
    const QByteArray bytes = saveBytes(c);
    QDataStream::Status status;
    ObjPtr copy = loadBytes(c->getSVGType(), bytes, &status);
    if (status != QDataStream::Ok)
        return ::testing::AssertionFailure() << "refused: " << copy->content()->lastLoadError().toStdString();
    if (saveBytes(copy->content()) != bytes)
        return ::testing::AssertionFailure() << "a second save differs";
    return sameDocument(svgText(copy->content()), svgText(c), 0);
}

struct Fixture : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
    }
    CSVGBase *make(int type)
    {
        objects.push_back(makeObject(type, true));
        return objects.back()->content();
    }
    std::vector<ObjPtr> objects;
};

// One apparatus of class T and type id Type: `c` as the host sees it, `obj` as itself.
template <class T, int Type>
struct Of : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(Type);
        obj = static_cast<T *>(c);
    }
    CSVGBase *c = nullptr;
    T *obj = nullptr;
};

} // namespace Panel
