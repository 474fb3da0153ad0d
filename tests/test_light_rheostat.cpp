// The bulb and the two rheostats: values kept without an attribute table, recorded under
// their own property ids, the slider's travel, and the halo in the host's light colour.
#include "panel.h"
#include <circuit/SlideRhostatImage.h>
#include <electromagnetism/Light.h>
#include <electromagnetism/SlidingRheostat.h>


namespace {

struct LightTest : Of<CLight, 402> {
    double halo(const char *attr) { return node(c, "glow")->numAttribute(QLatin1String(attr)); }
};

// An own value's edit is recorded under its property id, and the record replays.
struct OwnRecord {
    int type;
    const char *key, *value;
    int propId, kind; // kind 0 a bool, 1 an int
};
struct OwnRecords : ApparatusTest, ::testing::WithParamInterface<OwnRecord> {};

} // namespace

TEST_P(OwnRecords, RecordedUnderItsIdAndReplayed)
{
    const OwnRecord r = GetParam();
    CSVGBase *c = make(r.type);
    ASSERT_TRUE(c->editSettings({{r.key, r.value}}));
    ASSERT_EQ(GetFramework()->records().size(), 1);
    EXPECT_EQ(GetFramework()->records().last().actionId, r.propId);
    EXPECT_EQ(GetFramework()->records().last().kind, r.kind);
    CSVGBase *other = make(r.type);
    QDataStream in(GetFramework()->records().last().data);
    EXPECT_TRUE(other->setInnerProperty(r.propId, in, false, false));
    EXPECT_EQ(svgText(other), svgText(c));
}

INSTANTIATE_TEST_SUITE_P(Values, OwnRecords,
                         ::testing::Values(OwnRecord{402, "idLightOn", "true", 1101, 0},
                                           OwnRecord{402, "idBrightness", "80", 1102, 1},
                                           OwnRecord{407, "idPosValue", "25", 1101, 1},
                                           OwnRecord{407, "idShowTerminalNames", "true", 1102, 0}));

TEST_F(LightTest, BrighterMeansALargerStrongerHalo)
{
    EXPECT_FALSE(node(c, "glow")->isVisible());
    setDirect(c, "idLightOn", "true");
    double lastR = 0, lastOpacity = 0;
    for (const char *b : {"1", "20", "60", "100"}) {
        setDirect(c, "idBrightness", b);
        EXPECT_TRUE(node(c, "glow")->isVisible()) << b;
        EXPECT_GT(halo("r"), lastR) << b;
        EXPECT_GT(halo("opacity"), lastOpacity) << b;
        lastR = halo("r");
        lastOpacity = halo("opacity");
    }
    // At 0 only the filament glows, warm.
    setDirect(c, "idBrightness", "0");
    EXPECT_FALSE(node(c, "glow")->isVisible());
    setDirect(c, "idLightOn", "false");
    const QString off = node(c, "filament")->attribute("stroke");
    setDirect(c, "idLightOn", "true");
    EXPECT_NE(node(c, "filament")->attribute("stroke"), off);
}

TEST_F(LightTest, GlowsInTheHostsLightColour)
{
    setDirect(c, "idLightOn", "true");
    EXPECT_TRUE(c->editAttribute(5005, colourValue(QColor("#7fd4ff"))));
    for (const char *stop : {"halo_0", "halo_1", "halo_2"})
        EXPECT_EQ(node(c, stop)->styleProperty("stop-color").toLower(), "#7fd4ff") << stop;
    GetFramework()->undoStack()->undo();
    EXPECT_NE(node(c, "halo_0")->styleProperty("stop-color").toLower(), "#7fd4ff");
}

TEST_F(LightTest, TypedValuesAreHeldToTheirRange)
{
    const struct {
        const char *typed;
        int brightness;
    } cases[] = {{"150", 100}, {"-3", 0}, {"33.6", 34}, {"abc", 34}, {"", 34}, {"nan", 34}};
    for (const auto &k : cases) {
        setDirect(c, "idBrightness", k.typed);
        EXPECT_EQ(obj->brightness(), k.brightness) << k.typed;
    }
    setDirect(c, "idLightOn", "1"); // only "true" switches on
    EXPECT_FALSE(obj->isOn());
}

TEST_F(LightTest, SavesItsValuesFirstAndRestoresThem)
{
    setDirect(c, "idLightOn", "true");
    setDirect(c, "idBrightness", "25");
    sendEvent(c, 2804);
    setDirect(c, "idLightOn", "false");
    setDirect(c, "idBrightness", "90");
    sendEvent(c, 2805);
    EXPECT_TRUE(obj->isOn());
    EXPECT_EQ(obj->brightness(), 25);
    // A bool, then the brightness as a 32-bit integer.
    EXPECT_EQ(saveBytes(c).left(5), QByteArray::fromHex("0100000019"));
}

// ------------------------------------------------------------------- rheostats

namespace {

// The slider of the rheostat (407) and of its symbol (711): its travel's ends, in the
// drawing's units, and a percentage as typed and shown.
struct Slider {
    int type;
    double left, right;
};
struct SliderTravel : ApparatusTest, ::testing::WithParamInterface<Slider> {
    double handleX(CSVGBase *c) { return node(c, "control_1")->rect().center().x(); }
};

} // namespace

TEST_P(SliderTravel, ReachesBothEndsAndReadsBackWhatIsTyped)
{
    const Slider s = GetParam();
    CSVGBase *c = make(s.type);
    EXPECT_TRUE(settingKeys(c).contains("idPosValue"));
    EXPECT_NEAR(handleX(c), (s.left + s.right) / 2, 1e-9);
    const double y = node(c, "control_1")->rect().y();
    drag(c, "control_1", -1000, 20);
    EXPECT_NEAR(handleX(c), s.left, 1e-9);
    EXPECT_EQ(node(c, "control_1")->rect().y(), y); // it never leaves its bar
    drag(c, "control_1", 1000, 0);
    EXPECT_NEAR(handleX(c), s.right, 1e-9);
    GetFramework()->clearMessages();
    drag(c, "control_1", -(s.right - s.left) * 0.75, 0);
    EXPECT_EQ(lastPosted(), QStringList({"idPosValue=25"}));
    // Every whole percentage typed reads back as typed.
    for (int p = 0; p <= 100; ++p) {
        setDirect(c, "idPosValue", QString::number(p));
        ASSERT_EQ(shown(c, "idPosValue"), QString::number(p));
    }
    setDirect(c, "idPosValue", "250");
    EXPECT_NEAR(handleX(c), s.right, 1e-9);
    setDirect(c, "idPosValue", "x");
    EXPECT_NEAR(handleX(c), s.right, 1e-9);
    // The exact place survives a reopen, and a drag after it goes on as on the original.
    drag(c, "control_1", -7.3, 0);
    ObjPtr copy = loadBytes(s.type, saveBytes(c));
    drag(c, "control_1", -3, 0);
    drag(copy->content(), "control_1", -3, 0);
    EXPECT_EQ(saveBytes(copy->content()), saveBytes(c));
    sendEvent(c, 2804);
    setDirect(c, "idPosValue", "0");
    sendEvent(c, 2805);
    EXPECT_EQ(handleX(c), handleX(copy->content()));
}

INSTANTIATE_TEST_SUITE_P(Types, SliderTravel,
                         ::testing::Values(Slider{407, 50, 230}, Slider{711, 17.313, 17.313 + 37.125}));

using RheostatTest = ApparatusTest;

TEST_F(RheostatTest, SliderFollowsTheHandleAndNamesShowOnTheSwitch)
{
    CSVGBase *c = make(407);
    setDirect(c, "idPosValue", "25");
    EXPECT_EQ(node(c, "slider")->attribute("transform"), "translate(-45,0)");
    for (const char *n : {"name_a", "name_b", "name_c", "name_d"})
        EXPECT_FALSE(node(c, n)->isVisible()) << n;
    setDirect(c, "idShowTerminalNames", "true");
    EXPECT_EQ(node(c, "name_c")->text(), "C");
    EXPECT_TRUE(node(c, "name_d")->isVisible());
    EXPECT_EQ(seriesCount(c, "coil"), 60);
}

TEST_F(RheostatTest, SymbolLabelReadsTwentyOhmsWhileThePanelOffersTheNumber)
{
    CSVGBase *c = make(711);
    EXPECT_EQ(node(c, "textInput")->text(), QString::fromUtf8("20\xCE\xA9"));
    EXPECT_EQ(settingKeys(c).size(), 3);
    EXPECT_EQ(settingsOf(c).at(0).toObject().value("value").toString(), "20");
    setDirect(c, "idTextContent", "R=0~50ohm");
    EXPECT_EQ(node(c, "textInput")->text(), "R=0~50ohm");
    // The arrow's point touches the top edge right under the handle.
    drag(c, "control_1", 5.5, 0);
    const double x = node(c, "control_1")->rect().center().x();
    const QString head = node(c, "slider_head")->attribute("d");
    EXPECT_TRUE(head.contains(QStringLiteral("L%1,18Z").arg(SvgNumbers::format(x)))) << head.toStdString();
    QJsonObject json;
    c->saveJson(json);
    ObjPtr copy = makeObject(711);
    copy->content()->loadJson(json);
    EXPECT_TRUE(copy->content()->lastLoadError().isEmpty());
    EXPECT_EQ(svgText(copy->content()), svgText(c));
}
