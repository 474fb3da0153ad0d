// Switch, two-way switch and bell symbols: the state attribute, the part each state shows,
// the panel's exact truth test, undo, capture and persistence.
#include "helpers.h"
#include <bases/Attribute.h>
#include <svgbaseundocmd.h>

namespace {

struct Stateful {
    int type;
    int attr, propId, dataType;
    int initial;
    int states;
    const char *key;
    const char *label;
    const char *colorName;
};

const Stateful kStateful[] = {
    {702, 5102, 1103, 1, 1, 3, "idSwitchState", "IDS_PHYSICSOBJ_SWITCHSTATE", "IDS_SVG_PHYSICAL_WIRE_COLOR"},
    {703, 5102, 1103, 1, 1, 2, "idSwitchIsConnected", "IDS_PHYSICSOBJ_SWITCHONOFF", "IDS_SVG_PHYSICAL_WIRE_COLOR"},
    {705, 5101, 1102, 0, 0, 2, "idBellIsRinging", "IDS_PHYSICSOBJ_BELLRING", "IDS_SVG_PHYSICAL_COLOR"},
};

const char *const kParts[] = {"line_1", "line_2", "line_3", "ring"};

// The parts of the drawing that are shown, among those that switch.
QStringList shownParts(const ObjPtr &o)
{
    QStringList shown;
    for (const char *id : kParts)
        if (QSvgNode *n = node(o->content(), id); n && n->isVisible())
            shown << QLatin1String(id);
    return shown;
}

struct StatefulSymbol : ::testing::TestWithParam<Stateful> {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
    }
    const Stateful &s() const { return GetParam(); }

    // What each state shows: the switch's index 0 is closed, the two-way switch's 0 is open.
    QStringList expectedParts(int state) const
    {
        switch (s().type) {
        case 702: return {QString::fromLatin1(state == 0 ? "line_2" : state == 1 ? "line_1" : "line_3")};
        case 703: return {state == 0 ? "line_2" : "line_1"};
        default: return state ? QStringList{"ring"} : QStringList{};
        }
    }
    QString panelText(int state) const
    {
        switch (s().type) {
        case 702: return QString::number(state);
        case 703: return state == 0 ? "true" : "false";
        default: return state ? "true" : "false";
        }
    }
    void setState(const ObjPtr &o, int state, bool flags = true) const
    {
        QMap<QString, QString> v{{s().key, panelText(state)}};
        EXPECT_TRUE(o->content()->SetSettingArray(v, flags, flags));
    }
    int state(const ObjPtr &o) const
    {
        const DATA_MAP_STRUCT a = static_cast<CAttribute *>(o->content())->attributes().value(s().attr);
        return s().dataType == 0 ? int(a.boolValue) : a.intValue;
    }
};

} // namespace

TEST_P(StatefulSymbol, NewSymbolShowsItsInitialState)
{
    ObjPtr o = makeObject(s().type, true);
    CAttribute *c = static_cast<CAttribute *>(o->content());
    ASSERT_EQ(c->attributes().size(), 1);
    const DATA_MAP_STRUCT a = c->attributes().value(s().attr);
    EXPECT_EQ(a.propId, s().propId);
    EXPECT_EQ(a.dataType, s().dataType);
    EXPECT_EQ(a.name, s().type == 705 ? "IDS_SVG_PHYSICAL_ELECTRIC_BELL" : "IDS_SVG_PHYSICAL_SWITCH_STACE");
    EXPECT_EQ(state(o), s().initial);
    EXPECT_EQ(shownParts(o), expectedParts(s().initial));

    const QJsonArray panel = settingsOf(c);
    ASSERT_EQ(panel.size(), 1);
    const QJsonObject item = panel.at(0).toObject();
    EXPECT_EQ(item.value("id").toString(), s().key);
    EXPECT_EQ(item.value("label").toString(), s().label);
    if (s().type == 702)
        EXPECT_EQ(item.value("value").toInt(), 1);
    else
        EXPECT_EQ(item.value("value"), QJsonValue(false)); // switch off, bell silent

    const CSVGPropItem *p = c->propItemByAttribute(s().attr);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->propId(), s().propId);
    EXPECT_EQ(p->dataType(), DATA_TYPE(s().dataType));
    EXPECT_EQ(c->getPropName(5002), s().colorName);
    EXPECT_EQ(c->document()->viewBox().size(), s().type == 705 ? QSizeF(50, 65) : QSizeF(60, s().type == 702 ? 28 : 18));
}

TEST_P(StatefulSymbol, UndoRestoresTheMatchingPart)
{
    ObjPtr o = makeObject(s().type);
    QVector<int> path;
    for (int st = s().states - 1; st >= 0; --st)
        path << st;
    path << s().initial;
    for (int st : path) {
        setState(o, st);
        EXPECT_EQ(state(o), st);
        EXPECT_EQ(shownParts(o), expectedParts(st));
    }
    QUndoStack *undo = GetFramework()->undoStack();
    // Every panel edit is one step, even one to the state already shown.
    ASSERT_EQ(undo->count(), path.size());
    EXPECT_EQ(static_cast<const CSVGBaseUndoCmd *>(undo->command(0))->propId(), s().propId);
    EXPECT_EQ(GetFramework()->records().size(), path.size());
    EXPECT_EQ(GetFramework()->records().last().actionId, s().propId);

    for (int i = path.size() - 1; i > 0; --i) {
        undo->undo();
        EXPECT_EQ(state(o), path[i - 1]);
        EXPECT_EQ(shownParts(o), expectedParts(path[i - 1]));
    }
    undo->undo();
    EXPECT_EQ(state(o), s().initial);
    EXPECT_EQ(shownParts(o), expectedParts(s().initial));
    undo->redo();
    EXPECT_EQ(shownParts(o), expectedParts(path[0]));
}

TEST_P(StatefulSymbol, EveryStateSurvivesStreamAndJson)
{
    for (int st = 0; st < s().states; ++st) {
        ObjPtr o = makeObject(s().type, true);
        setState(o, st, false);
        QDataStream::Status status;
        ObjPtr back = loadBytes(s().type, saveBytes(o->content()), &status);
        EXPECT_EQ(status, QDataStream::Ok);
        EXPECT_EQ(state(back), st);
        EXPECT_EQ(shownParts(back), expectedParts(st));

        QJsonObject json;
        o->content()->saveJson(json);
        ObjPtr fromJson = makeObject(s().type);
        fromJson->content()->loadJson(json);
        EXPECT_EQ(state(fromJson), st);
        EXPECT_EQ(shownParts(fromJson), expectedParts(st));
    }
    // A stream that breaks off leaves the symbol as created, and its panel working.
    ObjPtr o = makeObject(s().type);
    setState(o, 0, false);
    const QByteArray bytes = saveBytes(o->content());
    ObjPtr bad = loadBytes(s().type, bytes.left(bytes.size() - 3));
    EXPECT_EQ(state(bad), s().initial);
    EXPECT_EQ(shownParts(bad), expectedParts(s().initial));
    setState(bad, 1);
    EXPECT_EQ(shownParts(bad), expectedParts(1));
}

TEST_P(StatefulSymbol, CaptureAndRestore)
{
    ObjPtr o = makeObject(s().type);
    setState(o, 0);
    QByteArray none;
    QDataStream capture(none);
    EXPECT_TRUE(o->content()->SetAttribute(2804, capture, false, false));
    setState(o, 1);
    QDataStream restore(none);
    o->content()->SetAttribute(2805, restore, false, false);
    EXPECT_EQ(state(o), 0);
    EXPECT_EQ(shownParts(o), expectedParts(0));
}

TEST_P(StatefulSymbol, OnlyExactlyTrueSwitchesOn)
{
    if (s().type == 702)
        GTEST_SKIP() << "the two-way switch takes an index";
    ObjPtr o = makeObject(s().type);
    const int on = s().type == 703 ? 0 : 1;
    for (const char *text : {"True", "TRUE", "1", "yes", " true", ""}) {
        setState(o, on);
        QMap<QString, QString> v{{s().key, text}};
        o->content()->SetSettingArray(v, false, false);
        EXPECT_EQ(state(o), 1 - on) << text;
        EXPECT_EQ(shownParts(o), expectedParts(1 - on)) << text;
    }
    QMap<QString, QString> other{{"idSomethingElse", "true"}};
    EXPECT_TRUE(o->content()->SetSettingArray(other, true, true));
    EXPECT_EQ(state(o), 1 - on);
}

INSTANTIATE_TEST_SUITE_P(Circuit, StatefulSymbol, ::testing::ValuesIn(kStateful),
                         [](const ::testing::TestParamInfo<Stateful> &i) { return std::to_string(i.param.type); });

TEST(TwoWaySwitchSymbol, IndexOutsideTheChoicesChangesNoBlade)
{
    ObjPtr o = makeObject(702);
    for (const char *text : {"7", "-1", "2147483647"}) {
        QMap<QString, QString> v{{"idSwitchState", text}};
        o->content()->SetSettingArray(v, false, false);
        EXPECT_EQ(shownParts(o), QStringList{"line_1"}) << text;
    }
    QMap<QString, QString> v{{"idSwitchState", "not a number"}};
    o->content()->SetSettingArray(v, false, false);
    EXPECT_EQ(shownParts(o), QStringList{"line_2"}); // toInt gives 0: open
}

TEST(SwitchSymbols, ComboChoicesInIndexOrder)
{
    auto choices = [](int type) {
        ObjPtr o = makeObject(type);
        QDataStream in(o->content()->propItemByAttribute(5102)->comboData());
        int count = 0, zero = -1;
        in >> count >> zero;
        EXPECT_EQ(zero, 0);
        QStringList labels;
        for (int i = 0; i < count && i < 10; ++i) {
            QString l;
            in >> l;
            labels << l;
        }
        return labels;
    };
    EXPECT_EQ(choices(703), (QStringList{"IDS_SVG_PHYSICAL_CLOSE", "IDS_SVG_PHYSICAL_OPEN"}));
    EXPECT_EQ(choices(702), (QStringList{"IDS_SVG_PHYSICAL_DISCONNECT", "IDS_SVG_PHYSICAL_CLOSEUP", "IDS_SVG_PHYSICAL_CLOSEDOWN"}));
    ObjPtr two = makeObject(702);
    const QJsonArray options = settingsOf(two->content()).at(0).toObject().value("options").toArray();
    EXPECT_EQ(options.toVariantList(), (QVariantList{"IDS_PHYSICSOBJ_SWITCHDISCONNECT", "IDS_PHYSICSOBJ_SWITCHCONNECTUP",
                                                     "IDS_PHYSICSOBJ_SWITCHCONNECTDOWN"}));
}
