#pragma once
// What the suites of the force and measuring apparatus share: a clean host for each case,
// the panel as a user sees it, what a drag posts.
#include "helpers.h"
#include <QJsonDocument>
#include <QUndoStack>

struct ApparatusTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
    }
    void TearDown() override { GetFramework()->undoStack()->clear(); }

    // The panel item with that key.
    static QJsonObject item(CSVGBase *c, const QString &key)
    {
        for (const QJsonValue &v : settingsOf(c))
            if (v.toObject().value("id").toString() == key)
                return v.toObject();
        return QJsonObject();
    }
    // What the panel shows for that key, as text.
    static QString shown(CSVGBase *c, const QString &key)
    {
        const QJsonValue v = item(c, key).value("value");
        return v.isBool() ? (v.toBool() ? "true" : "false") : v.isDouble() ? QString::number(v.toInt()) : v.toString();
    }
    // A panel edit as the board makes it: one undo step and one playback record, or none.
    static bool type(CSVGBase *c, const QString &key, const QString &value) { return c->editSettings({{key, value}}); }
    static void capture(CSVGBase *c)
    {
        QByteArray none;
        QDataStream in(&none, QIODevice::ReadOnly);
        c->SetAttribute(CSVGBase::ATTR_CAPTURE, in, false, false);
    }
    // Every panel value posted since the last clearMessages, in order: "key=value".
    static QStringList posted()
    {
        QStringList out;
        for (const QByteArray &m : GetFramework()->settingsMessages())
            for (const QJsonValue &v : QJsonDocument::fromJson(m).object().value("settings").toArray())
                out << v.toObject().value("id").toString() + "=" + v.toObject().value("value").toString();
        return out;
    }
    static QPointF centre(CSVGBase *c, const char *handle) { return node(c, handle)->rect().center(); }
};

// A line as drawn, in document coordinates (a rope's fall, a dimension line).
inline QLineF lineOf(CSVGBase *c, const char *id)
{
    QSvgNode *n = node(c, id);
    const QTransform t = n->documentTransform();
    return QLineF(t.map(QPointF(n->numAttribute("x1"), n->numAttribute("y1"))),
                  t.map(QPointF(n->numAttribute("x2"), n->numAttribute("y2"))));
}
// A wheel's centre and radius in document coordinates: its rim is its first circle.
inline QPointF wheelCentre(CSVGBase *c, const char *id)
{
    QSvgNode *rim = node(c, id)->children().front().get();
    return rim->documentTransform().map(QPointF(rim->numAttribute("cx"), rim->numAttribute("cy")));
}
inline double wheelRadius(CSVGBase *c, const char *id) { return node(c, id)->children().front()->numAttribute("r"); }
// How many members of a numbered series (prefix_1, prefix_2, …) the drawing holds.
inline int seriesCount(CSVGBase *c, const char *prefix)
{
    int k = 0;
    while (c->document()->namedNode(QString("%1_%2").arg(prefix).arg(k + 1)))
        ++k;
    return k;
}
