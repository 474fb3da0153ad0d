#pragma once
// Panel-side helpers for the apparatus suites: what an item shows, typing into it, what
// a drag posted, and what typed values set.
#include "helpers.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <QUndoStack>

// The value an item of the settings array shows, as text ("" when there is no such item).
inline QString shown(CSVGBase *c, const QString &key)
{
    for (const QJsonValue &v : settingsOf(c)) {
        const QJsonObject item = v.toObject();
        if (item.value(QStringLiteral("id")).toString() != key)
            continue;
        const QJsonValue value = item.value(QStringLiteral("value"));
        if (value.isBool())
            return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
        return value.isDouble() ? QString::number(value.toInt()) : value.toString();
    }
    return QString();
}

// Types values into the panel as a user does: through the edit path.
inline bool typeIn(CSVGBase *c, const QMap<QString, QString> &values) { return c->editSettings(values); }
inline bool typeIn(CSVGBase *c, const QString &key, const QString &value) { return typeIn(c, {{key, value}}); }

inline int messageCount() { return GetFramework()->settingsMessages().size(); }

// The panel values posted since message number `mark`, in order, as "key=value".
inline QStringList postedSince(int mark)
{
    QStringList out;
    const QVector<QByteArray> &all = GetFramework()->settingsMessages();
    for (int i = mark; i < all.size(); ++i)
        for (const QJsonValue &v : QJsonDocument::fromJson(all[i]).object().value(QStringLiteral("settings")).toArray())
            out << v.toObject().value(QStringLiteral("id")).toString() + QLatin1Char('=') +
                       v.toObject().value(QStringLiteral("value")).toString();
    return out;
}

inline double num(CSVGBase *c, const char *id, const char *attr) { return node(c, id)->numAttribute(QLatin1String(attr)); }

// Checks what several items show, given as "idA=1 idB=#c8a165 idC=".
inline void expectShown(CSVGBase *c, const QString &pairs)
{
    for (const QString &p : pairs.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        EXPECT_EQ(shown(c, p.section(QLatin1Char('='), 0, 0)), p.section(QLatin1Char('='), 1)) << qPrintable(p);
}

// Types each text under key in turn, checks what `quantity` then reads, and that none
// of it was echoed back to the panel.
template <typename Quantity>
void expectTyped(CSVGBase *c, const QString &key, std::initializer_list<std::pair<const char *, double>> rows,
                 Quantity quantity)
{
    const int mark = messageCount();
    for (const auto &r : rows) {
        typeIn(c, key, QString::fromUtf8(r.first));
        EXPECT_NEAR(quantity(), r.second, 1e-9) << qPrintable(key) << "=" << r.first;
    }
    EXPECT_EQ(postedSince(mark), QStringList());
}

// Fixture: a clean undo stack, records and messages for every case.
struct ApparatusTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
    }
};
