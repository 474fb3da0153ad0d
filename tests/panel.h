#pragma once
// What the apparatus suites share beyond helpers.h: a clean host for each case, the
// panel as a user sees and types into it, what was posted, counted series, a few
// measurements of the drawing, and the save-load-save round trip.
#include "helpers.h"
#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineF>
#include <QUndoStack>
#include <initializer_list>
#include <utility>
#include <vector>

// Fixture: a clean undo stack, records and messages for every case; `make` keeps the
// apparatus it makes until the case ends.
struct ApparatusTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
    }
    void TearDown() override { GetFramework()->undoStack()->clear(); }
    CSVGBase *make(int type)
    {
        objects.push_back(makeObject(type, true));
        return objects.back()->content();
    }
    std::vector<ObjPtr> objects;
};

// One apparatus of class T and type id Type: `c` as the host sees it, `obj` as itself.
template <class T, int Type>
struct Of : ApparatusTest {
    void SetUp() override
    {
        ApparatusTest::SetUp();
        c = make(Type);
        obj = static_cast<T *>(c);
    }
    CSVGBase *c = nullptr;
    T *obj = nullptr;
};

// --- the panel ---

inline QJsonObject settingItem(CSVGBase *c, const QString &key)
{
    for (const QJsonValue &v : settingsOf(c))
        if (v.toObject().value(QStringLiteral("id")).toString() == key)
            return v.toObject();
    return QJsonObject();
}

inline QStringList settingKeys(CSVGBase *c)
{
    QStringList out;
    for (const QJsonValue &v : settingsOf(c))
        out << v.toObject().value(QStringLiteral("id")).toString();
    return out;
}

// The value an item shows, as text ("" when there is no such item).
inline QString shownText(const QJsonValue &value)
{
    if (value.isBool())
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    return value.isDouble() ? QString::number(value.toInt()) : value.toString();
}
inline QString shown(CSVGBase *c, const QString &key) { return shownText(settingItem(c, key).value(QStringLiteral("value"))); }

// Checks what several items show, given as "idA=1 idB=#c8a165 idC=".
inline void expectShown(CSVGBase *c, const QString &pairs)
{
    for (const QString &p : pairs.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        EXPECT_EQ(shown(c, p.section(QLatin1Char('='), 0, 0)), p.section(QLatin1Char('='), 1)) << qPrintable(p);
}

// Types values into the panel as a user does: through the edit path (one undo step).
inline bool typeIn(CSVGBase *c, const QMap<QString, QString> &values) { return c->editSettings(values); }
inline bool typeIn(CSVGBase *c, const QString &key, const QString &value) { return typeIn(c, {{key, value}}); }
// Sets a value the way a host that bypasses the edit path does.
inline bool setDirect(CSVGBase *c, const QString &key, const QString &value)
{
    QMap<QString, QString> v{{key, value}};
    return c->SetSettingArray(v, true, true);
}

// --- what was posted ---

inline int messageCount() { return GetFramework()->settingsMessages().size(); }

inline QStringList postedIn(const QByteArray &message)
{
    QStringList out;
    for (const QJsonValue &v : QJsonDocument::fromJson(message).object().value(QStringLiteral("settings")).toArray())
        out << v.toObject().value(QStringLiteral("id")).toString() + QLatin1Char('=') +
                   v.toObject().value(QStringLiteral("value")).toVariant().toString();
    return out;
}
// The values posted since message number `mark`, in order, as "key=value".
inline QStringList postedSince(int mark = 0)
{
    QStringList out;
    const QVector<QByteArray> &all = GetFramework()->settingsMessages();
    for (int i = mark; i < all.size(); ++i)
        out << postedIn(all[i]);
    return out;
}
// The values the last message posted.
inline QStringList lastPosted()
{
    const QVector<QByteArray> &all = GetFramework()->settingsMessages();
    return all.isEmpty() ? QStringList() : postedIn(all.last());
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

// --- host events ---

// A colour as SetAttribute and editAttribute take it.
inline QByteArray colourValue(const QColor &c)
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out << c;
    return b;
}

inline void sendEvent(CSVGBase *c, int id)
{
    QByteArray none;
    QDataStream in(none);
    c->SetAttribute(id, in, false, false);
}
inline void capture(CSVGBase *c) { sendEvent(c, CSVGBase::ATTR_CAPTURE); }

// --- the drawing ---

inline double num(CSVGBase *c, const char *id, const char *attr) { return node(c, id)->numAttribute(QLatin1String(attr)); }
inline QPointF handleCentre(CSVGBase *c, const char *handle) { return node(c, handle)->rect().center(); }

// How many members of a numbered series (prefix_1, prefix_2, …) the drawing holds.
inline int seriesCount(CSVGBase *c, const char *prefix)
{
    int k = 0;
    while (c->document()->namedNode(QStringLiteral("%1_%2").arg(QLatin1String(prefix)).arg(k + 1)))
        ++k;
    return k;
}

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
