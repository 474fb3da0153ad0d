// The bulb and the two rheostats: values kept without an attribute table (each change
// one undo step and one playback record under its property id), the slider's travel,
// the halo in the host's light colour, and persistence of what they save themselves.
#include "panel.h"
#include <QRegularExpression>
#include <circuit/SlideRhostatImage.h>
#include <electromagnetism/Light.h>
#include <electromagnetism/SlidingRheostat.h>

using namespace Panel;

namespace {

// One edit through the host's path: how many undo steps and records it made.
struct Made {
    int steps, records;
};
Made editWith(CSVGBase *c, const QString &key, const QString &value)
{
    const int steps = GetFramework()->undoStack()->count(), records = GetFramework()->records().size();
    c->editSettings({{key, value}});
    return {GetFramework()->undoStack()->count() - steps, GetFramework()->records().size() - records};
}

struct LightTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(402);
        bulb = static_cast<CLight *>(c);
    }
    double halo(const char *attr) { return node(c, "glow")->numAttribute(QLatin1String(attr)); }
    CSVGBase *c = nullptr;
    CLight *bulb = nullptr;
};

} // namespace

TEST_F(LightTest, StartsOffWithTheHaloHidden)
{
    EXPECT_EQ(keys(c), QStringList({"idLightOn", "idBrightness"}));
    EXPECT_EQ(item(c, "idLightOn").value("label").toString(), "IDS_PHYSICSOBJ_LIGHT_ON");
    EXPECT_EQ(item(c, "idBrightness").value("max").toString(), "100");
    EXPECT_FALSE(bulb->isOn());
    EXPECT_EQ(bulb->brightness(), 60);
    EXPECT_FALSE(node(c, "glow")->isVisible());
    EXPECT_EQ(c->getPropName(5002), "IDS_SVG_PHYSICAL_COLOR");
    EXPECT_EQ(c->getPropName(5005), "IDS_SVG_PHYSICAL_LIGHTCOLOR");
    EXPECT_TRUE(c->controlNodes().isEmpty());
}

TEST_F(LightTest, BrighterMeansALargerStrongerHalo)
{
    set(c, "idLightOn", "true");
    const QString darkFilament = node(c, "filament")->attribute("stroke");
    double lastR = 0, lastOpacity = 0;
    for (const char *b : {"1", "20", "60", "100"}) {
        set(c, "idBrightness", b);
        EXPECT_TRUE(node(c, "glow")->isVisible()) << b;
        EXPECT_GT(halo("r"), lastR) << b;
        EXPECT_GT(halo("opacity"), lastOpacity) << b;
        lastR = halo("r");
        lastOpacity = halo("opacity");
    }
    // At 0 only the filament glows, warm.
    set(c, "idBrightness", "0");
    EXPECT_FALSE(node(c, "glow")->isVisible());
    set(c, "idLightOn", "false");
    const QString off = node(c, "filament")->attribute("stroke");
    set(c, "idLightOn", "true");
    EXPECT_NE(node(c, "filament")->attribute("stroke"), off);
    (void)darkFilament;
}

TEST_F(LightTest, GlowsInTheHostsLightColour)
{
    set(c, "idLightOn", "true");
    EXPECT_TRUE(c->editAttribute(5005, colourValue(QColor("#7fd4ff"))));
    EXPECT_EQ(bulb->lightColour(), QColor("#7fd4ff"));
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
        set(c, "idBrightness", k.typed);
        EXPECT_EQ(bulb->brightness(), k.brightness) << k.typed;
    }
    set(c, "idLightOn", "1"); // only "true" switches on
    EXPECT_FALSE(bulb->isOn());
}

TEST_F(LightTest, EachChangeIsOneStepAndOneRecordUnderItsId)
{
    Made m = editWith(c, "idLightOn", "true");
    EXPECT_EQ(m.steps, 1);
    ASSERT_EQ(m.records, 1);
    EXPECT_EQ(GetFramework()->records().last().actionId, 1101);
    EXPECT_EQ(GetFramework()->records().last().kind, 0);
    m = editWith(c, "idBrightness", "80");
    EXPECT_EQ(m.steps, 1);
    ASSERT_EQ(m.records, 1);
    EXPECT_EQ(GetFramework()->records().last().actionId, 1102);
    EXPECT_EQ(GetFramework()->records().last().kind, 1);
    m = editWith(c, "idBrightness", "80"); // no change: nothing
    EXPECT_EQ(m.steps, 0);
    EXPECT_EQ(m.records, 0);

    // The record replays onto another bulb through setInnerProperty.
    CSVGBase *other = make(402);
    QDataStream in(GetFramework()->records().last().data);
    EXPECT_TRUE(other->setInnerProperty(1102, in, false, false));
    EXPECT_EQ(static_cast<CLight *>(other)->brightness(), 80);

    GetFramework()->undoStack()->undo();
    EXPECT_EQ(bulb->brightness(), 60);
    GetFramework()->undoStack()->undo();
    EXPECT_FALSE(bulb->isOn());
    EXPECT_FALSE(node(c, "glow")->isVisible());
}

TEST_F(LightTest, SavesItsValuesAndRestoresThem)
{
    event(c, 2805); // nothing captured: nothing changes
    EXPECT_FALSE(bulb->isOn());
    set(c, "idLightOn", "true");
    set(c, "idBrightness", "25");
    event(c, 2804);
    set(c, "idLightOn", "false");
    set(c, "idBrightness", "90");
    event(c, 2805);
    EXPECT_TRUE(bulb->isOn());
    EXPECT_EQ(bulb->brightness(), 25);
    EXPECT_TRUE(reopens(c));
    // The values come first: a bool, then the brightness as a 32-bit integer.
    const QByteArray bytes = saveBytes(c);
    EXPECT_EQ(bytes.left(5), QByteArray::fromHex("0100000019"));
    EXPECT_TRUE(refusesCut(c, make(402)));
}

// ------------------------------------------------------------------- rheostat

namespace {

struct SlidingRheostatTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(407);
        r = static_cast<CSlidingRheostat *>(c);
    }
    double handleX() { return node(c, "control_1")->rect().center().x(); }
    CSVGBase *c = nullptr;
    CSlidingRheostat *r = nullptr;
};

} // namespace

TEST_F(SlidingRheostatTest, SliderTravelsTheWoundLength)
{
    EXPECT_EQ(keys(c), QStringList({"idPosValue", "idShowTerminalNames"}));
    EXPECT_EQ(item(c, "idPosValue").value("label").toString(), "IDS_PHYSICSOBJ_SLIDER_POS");
    EXPECT_EQ(r->position(), 50);
    EXPECT_EQ(Panel::count(c, "coil"), 60);
    const double left = node(c, "coil_1")->documentBounds().left();
    const double right = node(c, "coil_60")->documentBounds().right();
    drag(c, "control_1", -1000, 0);
    EXPECT_EQ(r->position(), 0);
    EXPECT_NEAR(handleX(), left, 1);
    drag(c, "control_1", 1000, 30);
    EXPECT_EQ(r->position(), 100);
    EXPECT_NEAR(handleX(), right, 1);
    EXPECT_EQ(node(c, "control_1")->rect().y(), 34.5); // it never leaves the bar
}

TEST_F(SlidingRheostatTest, DragPostsThePercentageAndTypingMovesTheSlider)
{
    drag(c, "control_1", -40.5, 0);
    EXPECT_EQ(posted(), QStringList({"idPosValue=27"})); // 27.5 truncated
    GetFramework()->clearMessages();
    const Made m = editWith(c, "idPosValue", "25");
    EXPECT_EQ(m.steps, 1);
    ASSERT_EQ(m.records, 1);
    EXPECT_EQ(GetFramework()->records().last().actionId, 1101);
    EXPECT_EQ(GetFramework()->records().last().kind, 1);
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    EXPECT_EQ(r->position(), 25);
    EXPECT_EQ(handleX(), 95);
    EXPECT_EQ(node(c, "slider")->attribute("transform"), "translate(-45,0)");
    set(c, "idPosValue", "250");
    EXPECT_EQ(r->position(), 100);
    set(c, "idPosValue", "x");
    EXPECT_EQ(r->position(), 100);
}

TEST_F(SlidingRheostatTest, TerminalNamesShowOnTheSwitch)
{
    for (const char *n : {"name_a", "name_b", "name_c", "name_d"})
        EXPECT_FALSE(node(c, n)->isVisible()) << n;
    for (const char *t : {"terminal_a", "terminal_b", "terminal_c", "terminal_d", "tube", "bar"})
        EXPECT_NE(node(c, t), nullptr) << t;
    const Made m = editWith(c, "idShowTerminalNames", "true");
    EXPECT_EQ(m.steps, 1);
    ASSERT_EQ(m.records, 1);
    EXPECT_EQ(GetFramework()->records().last().actionId, 1102);
    EXPECT_EQ(GetFramework()->records().last().kind, 0);
    EXPECT_EQ(node(c, "name_c")->text(), "C");
    EXPECT_TRUE(node(c, "name_d")->isVisible());
    GetFramework()->undoStack()->undo();
    EXPECT_FALSE(r->namesShown());
    EXPECT_FALSE(node(c, "name_d")->isVisible());
}

TEST_F(SlidingRheostatTest, ReopensOnTheExactPlaceAndRestores)
{
    drag(c, "control_1", 33.3, 0);
    const double exact = r->position();
    set(c, "idShowTerminalNames", "true");
    event(c, 2804);
    EXPECT_TRUE(reopens(c));
    ObjPtr copy = loadBytes(407, saveBytes(c));
    EXPECT_EQ(static_cast<CSlidingRheostat *>(copy->content())->position(), exact);
    // A drag after loading goes on exactly as on the original.
    drag(c, "control_1", -7, 0);
    drag(copy->content(), "control_1", -7, 0);
    EXPECT_EQ(saveBytes(copy->content()), saveBytes(c));
    set(c, "idPosValue", "0");
    set(c, "idShowTerminalNames", "false");
    event(c, 2805);
    EXPECT_EQ(r->position(), exact);
    EXPECT_TRUE(r->namesShown());
    EXPECT_TRUE(refusesCut(c, make(407)));
}

// ------------------------------------------------------------------- symbol

namespace {

struct SlideRhostImageTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(711);
        s = static_cast<CSlideRhostImage *>(c);
    }
    double arrowX() { return node(c, "control_1")->rect().center().x(); }
    CSVGBase *c = nullptr;
    CSlideRhostImage *s = nullptr;
};

} // namespace

TEST_F(SlideRhostImageTest, LabelReadsTwentyOhmsWhileThePanelOffersTheNumber)
{
    const QString ohm = QString::fromUtf8("20\xCE\xA9");
    EXPECT_EQ(node(c, "textInput")->text(), ohm);
    EXPECT_EQ(keys(c).size(), 3);
    EXPECT_EQ(keys(c).last(), "idPosValue");
    EXPECT_EQ(settingsOf(c).at(0).toObject().value("value").toString(), "20");
    EXPECT_EQ(s->position(), 50);
    EXPECT_NEAR(arrowX(), 17.313 + 37.125 / 2, 1e-9);
}

TEST_F(SlideRhostImageTest, ArrowTravelsTheResistorOnly)
{
    drag(c, "control_1", -100, 10);
    EXPECT_EQ(s->position(), 0);
    EXPECT_NEAR(arrowX(), 17.313, 1e-9);
    drag(c, "control_1", 100, 0);
    EXPECT_EQ(s->position(), 100);
    EXPECT_NEAR(arrowX(), 17.313 + 37.125, 1e-9);
    GetFramework()->clearMessages();
    drag(c, "control_1", -37.125 * 0.75, 0);
    EXPECT_EQ(posted(), QStringList({"idPosValue=25"}));
    // The arrow's point touches the top edge right under the handle.
    const QString head = node(c, "slider_head")->attribute("d");
    EXPECT_TRUE(head.contains(QStringLiteral("L%1,18Z").arg(SvgNumbers::format(arrowX())))) << head.toStdString();
}

TEST_F(SlideRhostImageTest, TypedPlaceLabelAndReopen)
{
    set(c, "idPosValue", "25");
    EXPECT_NEAR(s->position(), 25, 1e-9);
    EXPECT_NEAR(arrowX(), 17.313 + 37.125 / 4, 1e-9);
    set(c, "idTextContent", "R=0~50ohm");
    EXPECT_EQ(node(c, "textInput")->text(), "R=0~50ohm");
    drag(c, "control_1", 3.3, 0);
    EXPECT_TRUE(reopens(c));
    QJsonObject json;
    c->saveJson(json);
    ObjPtr copy = makeObject(711);
    copy->content()->loadJson(json);
    EXPECT_TRUE(copy->content()->lastLoadError().isEmpty());
    EXPECT_EQ(static_cast<CSlideRhostImage *>(copy->content())->position(), s->position());
    event(c, 2804);
    set(c, "idPosValue", "100");
    event(c, 2805);
    EXPECT_NEAR(arrowX(), 17.313 + 37.125 / 4 + 3.3, 1e-9);
    EXPECT_TRUE(refusesCut(c, make(711)));
}
