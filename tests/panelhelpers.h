#pragma once
// Panel-side helpers for the apparatus suites: what an item shows, typing into it, what
// a drag posted, capture and restore, and the exact state of an object.
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

inline QJsonObject settingItem(CSVGBase *c, const QString &key)
{
    for (const QJsonValue &v : settingsOf(c))
        if (v.toObject().value(QStringLiteral("id")).toString() == key)
            return v.toObject();
    return QJsonObject();
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

inline void capture(CSVGBase *c)
{
    QByteArray none;
    QDataStream in(&none, QIODevice::ReadOnly);
    c->SetAttribute(CSVGBase::ATTR_CAPTURE, in, false, false);
}

inline double num(CSVGBase *c, const char *id, const char *attr) { return node(c, id)->numAttribute(QLatin1String(attr)); }

// A drag in several steps, as a hand makes it, the last one final.
inline void dragInSteps(CSVGBase *c, const char *handle, QPointF total, int steps = 4)
{
    for (int i = 0; i < steps; ++i)
        c->moveControlPoint(node(c, handle), total / steps, i + 1 == steps);
}

// Fixture: a clean undo stack, records and messages for every case.
struct ApparatusTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
    }
    void TearDown() override { GetFramework()->undoStack()->clear(); }
    static QUndoStack *undoStack() { return GetFramework()->undoStack(); }
};

// Saved, loaded into a new object: the same bytes again, the same drawing, and the same
// drawing again after one more drag of `handle` on both.
inline void expectReopensAndDragsAlike(CSVGBase *c, const char *handle, QPointF delta)
{
    const QByteArray bytes = saveBytes(c);
    ObjPtr copy = loadBytes(c->getSVGType(), bytes);
    ASSERT_TRUE(copy->content()->lastLoadOk()) << qPrintable(copy->content()->lastLoadError());
    EXPECT_EQ(saveBytes(copy->content()), bytes);
    EXPECT_EQ(svgText(copy->content()), svgText(c));
    drag(c, handle, delta.x(), delta.y());
    drag(copy->content(), handle, delta.x(), delta.y());
    EXPECT_EQ(svgText(copy->content()), svgText(c));
    EXPECT_EQ(saveBytes(copy->content()), saveBytes(c));
}
