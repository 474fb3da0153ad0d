// What every apparatus must hold, whatever it draws, checked for every type id of the
// table so that a new type is covered the moment it enters it: every kind of edit is
// one undo step whose undo and redo give back the exact stream and drawing; a saved
// object reloads into the same bytes and the same document; a damaged or foreign stream
// is refused and changes nothing; a restore with nothing captured changes nothing.
#include "helpers.h"
#include <bases/Attribute.h>
#include <QRegularExpression>
#include <QUndoStack>
#include <random>

namespace {

std::vector<int> everyType()
{
    int n = 0;
    const PhysicalTypeInfo *t = physical_TypeTable(&n);
    std::vector<int> types;
    for (int i = 0; i < n; ++i)
        types.push_back(t[i].type);
    return types;
}

QByteArray colourBytes(const QColor &c)
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out << c;
    return b;
}

// One edit a user can make, and what it was.
struct Edit {
    QString what;
    std::function<bool(CSVGBase *)> apply;
};

// A value for a panel item that differs from the one it shows.
QString otherValue(const QJsonObject &item)
{
    const QString type = item["type"].toString();
    if (type == "combobox") {
        const int n = std::max(item["values"].toArray().size(), item["options"].toArray().size());
        return QString::number((item["value"].toInt() + 1) % std::max(1, n));
    }
    if (type == "colorpicker")
        return item["value"].toString() == "#3366cc" ? "#cc6633" : "#3366cc";
    if (type == "switch")
        return item["value"].toBool() ? "false" : "true";
    const QString valueType = item["valueType"].toString();
    if (valueType == "text")
        return QStringLiteral("22\u03A9 \u2713 \U0001D11E");
    const double lo = item["min"].toString().toDouble(), hi = item["max"].toString().toDouble();
    const double v = lo + (hi - lo) * 0.37;
    return valueType == "int" ? QString::number(int(v)) : QString::number(v, 'f', 2);
}

// Every kind of edit the apparatus offers: each handle dragged in steps, each panel
// item given another value, the host colours, and a restore of a captured state.
std::vector<Edit> everyEdit(CSVGBase *c)
{
    std::vector<Edit> edits;
    for (int i = 0; i < c->controlNodes().size(); ++i)
        edits.push_back({QStringLiteral("drag of control_%1").arg(i + 1), [i](CSVGBase *c) {
                             QSvgNode *h = c->controlNodes().value(i);
                             c->moveControlPoint(h, QPointF(6, 5), false);
                             c->moveControlPoint(h, QPointF(5, 4), false);
                             c->moveControlPoint(h, QPointF(3, 2), true);
                             return true;
                         }});
    for (const QJsonValue &v : settingsOf(c)) {
        const QJsonObject item = v.toObject();
        const QString id = item["id"].toString(), value = otherValue(item);
        edits.push_back({id + "=" + value, [id, value](CSVGBase *c) { return c->editSettings({{id, value}}); }});
    }
    for (int prop : {5002, 5005})
        if (c->propItemByAttribute(prop))
            edits.push_back({QStringLiteral("host colour %1").arg(prop),
                             [prop](CSVGBase *c) { return c->editAttribute(prop, colourBytes(QColor(200, 40, 90))); }});
    edits.push_back({"restore", [](CSVGBase *c) { return c->editRestore(); }});
    return edits;
}

struct Snapshot {
    QByteArray stream;
    QString svg;
    bool operator==(const Snapshot &o) const { return stream == o.stream && svg == o.svg; }
};

Snapshot snapshot(CSVGBase *c) { return {saveBytes(c), svgText(c)}; }

struct EveryApparatus : ::testing::TestWithParam<int> {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
    }
    void TearDown() override { GetFramework()->undoStack()->clear(); }

    // Saved, loaded into a new object and saved again: the same bytes, the same document.
    static void expectExactReopen(CSVGBase *c, const QString &after)
    {
        const QByteArray bytes = saveBytes(c);
        ObjPtr back = makeObject(c->getSVGType());
        QDataStream in(bytes);
        ASSERT_TRUE(back->content()->load(in)) << qPrintable(after) << ": " << qPrintable(back->content()->lastLoadError());
        EXPECT_EQ(saveBytes(back->content()), bytes) << "stream after " << qPrintable(after);
        EXPECT_EQ(svgText(back->content()), svgText(c)) << "drawing after " << qPrintable(after);
        QJsonObject json;
        c->saveJson(json);
        ObjPtr fromJson = makeObject(c->getSVGType());
        fromJson->content()->loadJson(json);
        ASSERT_TRUE(fromJson->content()->lastLoadOk()) << qPrintable(after);
        EXPECT_EQ(svgText(fromJson->content()), svgText(c)) << "JSON drawing after " << qPrintable(after);
        QJsonObject again;
        fromJson->content()->saveJson(again);
        EXPECT_EQ(again, json) << "JSON after " << qPrintable(after);
    }
};

} // namespace

TEST_P(EveryApparatus, ReportsItsOwnTypeAndAttributeNumbers)
{
    ObjPtr o = makeObject(GetParam(), true);
    ASSERT_TRUE(o->content());
    EXPECT_EQ(o->content()->getSVGType(), GetParam());
    QJsonObject json;
    o->content()->saveJson(json);
    EXPECT_EQ(json["svgbase_type"].toInt(), GetParam());
    // A host replays an attribute's record by its property id: 5100 is 1101, 5101 1102, ...
    if (auto *a = dynamic_cast<CAttribute *>(o->content()))
        for (auto it = a->attributes().cbegin(); it != a->attributes().cend(); ++it) {
            EXPECT_GE(it.key(), 5100);
            EXPECT_LT(it.key(), 5100 + 16);
            EXPECT_EQ(it.value().propId, it.key() - 3999) << it.key();
        }
}

// A host that sets panel values itself reads the result: a value the panel offers is taken.
TEST_P(EveryApparatus, APanelValueItOffersIsReportedTaken)
{
    ObjPtr o = makeObject(GetParam(), true);
    for (const QJsonValue &v : settingsOf(o->content())) {
        const QJsonObject item = v.toObject();
        QMap<QString, QString> values{{item["id"].toString(), otherValue(item)}};
        EXPECT_TRUE(o->content()->SetSettingArray(values, true, true)) << qPrintable(item["id"].toString());
    }
}

// The document is written whole, declaration first, as another renderer expects it.
TEST_P(EveryApparatus, WritesAWholeXmlDocument)
{
    ObjPtr o = makeObject(GetParam(), true);
    const QString svg = svgText(o->content());
    EXPECT_TRUE(svg.startsWith(QLatin1String("<?xml version=\"1.0\"")));
    EXPECT_TRUE(svg.trimmed().endsWith(QLatin1String("</svg>")));
    // Any renderer finds a face: a generic family ends every list, and a bold face says so.
    static const QRegularExpression family(QStringLiteral("<[^>]*font-family=\"([^\"]*)\"[^>]*>"));
    for (auto it = family.globalMatch(svg); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        EXPECT_TRUE(m.captured(1).endsWith(QLatin1String("sans-serif")) || m.captured(1).endsWith(QLatin1String("serif")) ||
                    m.captured(1).endsWith(QLatin1String("monospace")))
            << qPrintable(m.captured(1));
        if (m.captured(1).contains(QLatin1String("Bold"))) {
            EXPECT_TRUE(m.captured(0).contains(QLatin1String("font-weight=\"bold\""))) << qPrintable(m.captured(0));
        }
    }
    // The root's size in its style, where it has one, is the size it states.
    static const QRegularExpression root(QStringLiteral("<svg[^>]*>"));
    const QString rootTag = root.match(svg).captured(0);
    const QSizeF size = o->content()->document()->size();
    if (rootTag.contains(QLatin1String("style=\"")) && rootTag.contains(QLatin1String("width:"))) {
        EXPECT_TRUE(rootTag.contains(QStringLiteral("width:%1px").arg(size.width()))) << qPrintable(rootTag);
    }
}

// A reopened apparatus tells the panel of a drag exactly as the original does: the
// load leaves nothing muted.
TEST_P(EveryApparatus, ADragAfterReopeningPostsAsTheOriginalDoes)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    if (c->controlNodes().isEmpty())
        GTEST_SKIP() << "no handle";
    ObjPtr back = loadBytes(GetParam(), saveBytes(c));
    ASSERT_TRUE(back);
    auto postsOfADrag = [](CSVGBase *c) {
        GetFramework()->clearMessages();
        QSvgNode *h = c->controlNodes().last();
        bool handled = false;
        c->moveControlPoint(h, QPointF(9, 7), false, true, &handled);
        // The apparatus says it took the drag, so a host does not move the item instead.
        EXPECT_TRUE(handled);
        c->moveControlPoint(h, QPointF(4, 3), true);
        return GetFramework()->settingsMessages();
    };
    const QVector<QByteArray> original = postsOfADrag(c);
    EXPECT_EQ(postsOfADrag(back->content()), original);
}

TEST_P(EveryApparatus, EveryEditIsOneExactUndoStepAndReopensExactly)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    QUndoStack *stack = GetFramework()->undoStack();
    expectExactReopen(c, "creation");
    // Something to restore: the state as placed.
    QByteArray none;
    QDataStream empty(&none, QIODevice::ReadOnly);
    c->SetAttribute(CSVGBase::ATTR_CAPTURE, empty, false, false);

    std::vector<Snapshot> states{snapshot(c)};
    std::vector<QString> done;
    for (const Edit &e : everyEdit(c)) {
        const int steps = stack->count();
        const int records = GetFramework()->records().size();
        e.apply(c);
        const Snapshot now = snapshot(c);
        if (now == states.back()) { // an edit that changes nothing leaves nothing behind
            EXPECT_EQ(stack->count(), steps) << qPrintable(e.what);
            EXPECT_EQ(GetFramework()->records().size(), records) << qPrintable(e.what);
            continue;
        }
        EXPECT_EQ(stack->count(), steps + 1) << qPrintable(e.what);
        EXPECT_EQ(GetFramework()->records().size(), records + 1) << qPrintable(e.what);
        expectExactReopen(c, e.what);
        states.push_back(now);
        done.push_back(e.what);
    }
    EXPECT_GE(done.size(), size_t(1));
    for (size_t i = states.size() - 1; i > 0; --i) {
        stack->undo();
        EXPECT_TRUE(snapshot(c) == states[i - 1]) << "undo of " << qPrintable(done[i - 1]);
    }
    for (size_t i = 1; i < states.size(); ++i) {
        stack->redo();
        EXPECT_TRUE(snapshot(c) == states[i]) << "redo of " << qPrintable(done[i - 1]);
    }
}

TEST_P(EveryApparatus, PlaybackRecordsReplayTheEdits)
{
    ObjPtr o = makeObject(GetParam(), true);
    ObjPtr replay = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    for (const Edit &e : everyEdit(c))
        e.apply(c);
    for (const PlaybackRecord &r : GetFramework()->records()) {
        QDataStream in(r.data);
        replay->content()->DoPlaybackActionEx(r.actionId, in);
    }
    EXPECT_TRUE(sameDocument(svgText(replay->content()), svgText(c), 1e-9));
}

TEST_P(EveryApparatus, DamagedAndForeignStreamsAreRefusedAndChangeNothing)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    for (const Edit &e : everyEdit(c))
        e.apply(c);
    const QByteArray good = saveBytes(c);
    ObjPtr target = makeObject(GetParam(), true);
    CSVGBase *t = target->content();
    const Snapshot before = snapshot(t);
    auto refused = [&](const QByteArray &bytes, const char *what, int at) {
        QDataStream in(bytes);
        EXPECT_FALSE(t->load(in)) << what << " " << at;
        EXPECT_FALSE(t->lastLoadOk());
        QJsonObject json{{"svgbase_type", GetParam()}, {"svgbase_stream", QString::fromLatin1(bytes.toBase64())}};
        t->loadJson(json);
        EXPECT_FALSE(t->lastLoadOk()) << what << " (JSON) " << at;
        EXPECT_TRUE(snapshot(t) == before) << what << " " << at;
    };
    for (int n = 0; n < good.size(); n += std::max(1, good.size() / 97))
        refused(good.left(n), "cut at", n);
    std::mt19937 rng{quint32(GetParam())};
    for (int i = 0; i < 60; ++i) {
        QByteArray flipped = good;
        const int at = int(rng() % quint32(good.size()));
        flipped[at] = char(flipped[at] ^ (1 << (rng() % 8)));
        refused(flipped, "flipped at", at);
        QByteArray noise(int(rng() % 400), 0);
        for (char &ch : noise)
            ch = char(rng());
        refused(noise, "random bytes", i);
    }
    for (int other : everyType()) {
        if (other == GetParam())
            continue;
        ObjPtr foreign = makeObject(other, true);
        refused(saveBytes(foreign->content()), "a stream of type", other);
        QJsonObject json;
        foreign->content()->saveJson(json);
        t->loadJson(json);
        EXPECT_FALSE(t->lastLoadOk()) << "JSON of type " << other;
    }
    for (QJsonObject garbage : {QJsonObject(), QJsonObject{{"svgbase_type", GetParam()}},
                                QJsonObject{{"svgbase_type", GetParam()}, {"svgbase_stream", "not base64!"}},
                                QJsonObject{{"svgbase_type", "x"}, {"svgbase_stream", QString::fromLatin1(good.toBase64())}}}) {
        t->loadJson(garbage);
        EXPECT_FALSE(t->lastLoadOk());
    }
    EXPECT_TRUE(snapshot(t) == before);
}

TEST_P(EveryApparatus, RestoreWithNothingCapturedChangesNothing)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    QByteArray none;
    for (int round = 0; round < 2; ++round) {
        const Snapshot before = snapshot(c);
        QDataStream in(&none, QIODevice::ReadOnly);
        c->SetAttribute(CSVGBase::ATTR_RESTORE, in, false, false);
        EXPECT_TRUE(snapshot(c) == before);
        EXPECT_FALSE(c->editRestore());
        EXPECT_TRUE(snapshot(c) == before);
        // Once more after an edit.
        for (const Edit &e : everyEdit(c))
            if (e.apply(c))
                break;
    }
}

INSTANTIATE_TEST_SUITE_P(All, EveryApparatus, ::testing::ValuesIn(everyType()),
                         [](const ::testing::TestParamInfo<int> &i) { return std::to_string(i.param); });
