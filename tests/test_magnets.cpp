// Magnets and the compass needle: pole sides and colours, the U magnet's arm and gap
// handles, the needle turned by its tip or a typed angle and kept on its circle.
#include "panel.h"
#include <electromagnetism/BarMagnet.h>
#include <electromagnetism/Smallneedle.h>
#include <electromagnetism/UtypeMagnet.h>

using namespace Panel;

namespace {

QPointF centre(CSVGBase *c, const char *id) { return node(c, id)->documentBounds().center(); }

struct BarMagnetTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(504);
        m = static_cast<CBarMagnet *>(c);
    }
    CSVGBase *c = nullptr;
    CBarMagnet *m = nullptr;
};

} // namespace

TEST_F(BarMagnetTest, NorthRedOnTheRightByDefault)
{
    EXPECT_EQ(keys(c), QStringList({"idPoleDirection", "idNorthColor", "idSouthColor", "idShowLetters"}));
    EXPECT_EQ(item(c, "idPoleDirection").value("label").toString(), "IDS_PHYSICSOBJ_POLE_DIRECTION");
    EXPECT_EQ(item(c, "idNorthColor").value("value").toString(), "#e53935");
    EXPECT_EQ(item(c, "idSouthColor").value("value").toString(), "#1e63d6");
    EXPECT_TRUE(m->northOnRight());
    EXPECT_GT(centre(c, "north").x(), centre(c, "south").x());
    EXPECT_EQ(node(c, "north_text")->text(), "N");
    EXPECT_EQ(node(c, "south_text")->text(), "S");
    EXPECT_EQ(c->document()->viewBox().size(), QSizeF(160, 40));
    const auto &a = m->attributes();
    for (int id : {5100, 5101, 5102, 5103})
        EXPECT_EQ(a.value(id).propId, id - 5100 + 1101) << id;
}

TEST_F(BarMagnetTest, FlippedLettersFollowTheirHalves)
{
    set(c, "idPoleDirection", "1");
    EXPECT_FALSE(m->northOnRight());
    EXPECT_LT(centre(c, "north").x(), centre(c, "south").x());
    EXPECT_NEAR(centre(c, "north_text").x(), centre(c, "north").x(), 1);
    EXPECT_NEAR(centre(c, "south_text").x(), centre(c, "south").x(), 1);
    set(c, "idPoleDirection", "2"); // no such choice
    EXPECT_FALSE(m->northOnRight());
    set(c, "idShowLetters", "false");
    EXPECT_FALSE(node(c, "north_text")->isVisible());
    EXPECT_FALSE(node(c, "south_text")->isVisible());
    EXPECT_TRUE(reopens(c));
}

TEST_F(BarMagnetTest, PoleColoursUndoRestoreAndTheHostColour)
{
    event(c, 2804);
    set(c, "idNorthColor", "#ff8800");
    set(c, "idSouthColor", "not a colour");
    EXPECT_EQ(m->attributes().value(5101).color, QColor("#ff8800"));
    EXPECT_EQ(m->attributes().value(5102).color, QColor(0x1E, 0x63, 0xD6));
    // The host's drawing colour leaves the poles alone.
    c->editAttribute(5002, colourValue(Qt::green));
    EXPECT_NE(node(c, "north")->attribute("fill").toLower(), "#00ff00");
    GetFramework()->undoStack()->undo();
    EXPECT_EQ(QColor(node(c, "north")->attribute("fill")), QColor("#ff8800"));
    event(c, 2805);
    EXPECT_EQ(QColor(node(c, "north")->attribute("fill")), QColor(0xE5, 0x39, 0x35));
    EXPECT_EQ(QColor(node(c, "south")->attribute("fill")), QColor(0x1E, 0x63, 0xD6));
    EXPECT_TRUE(refusesCut(c, make(504)));
}

// ------------------------------------------------------------------- U magnet

namespace {

struct UtypeMagnetTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(505);
        u = static_cast<CUtypeMagnet *>(c);
    }
    CSVGBase *c = nullptr;
    CUtypeMagnet *u = nullptr;
};

} // namespace

TEST_F(UtypeMagnetTest, LiesOnItsSideWithNorthOnTop)
{
    EXPECT_EQ(keys(c), QStringList({"idPoleDirection", "idNorthColor", "idSouthColor", "idLength", "idGap"}));
    EXPECT_EQ(item(c, "idGap").value("label").toString(), "IDS_PHYSICSOBJ_GAP");
    EXPECT_EQ(u->armLength(), 120);
    EXPECT_EQ(u->gap(), 60);
    EXPECT_LT(centre(c, "north").y(), centre(c, "south").y());
    EXPECT_GT(centre(c, "north").x(), centre(c, "body").x()); // the arms open to the right
    set(c, "idPoleDirection", "1");
    EXPECT_GT(centre(c, "north").y(), centre(c, "south").y());
    EXPECT_NEAR(centre(c, "north_text").y(), centre(c, "north").y(), 1);
}

TEST_F(UtypeMagnetTest, ArmAndGapHandlesKeepTheirRanges)
{
    const double upper = node(c, "north")->documentBounds().top();
    GetFramework()->clearMessages();
    drag(c, "control_2", 0, 70);
    EXPECT_EQ(u->gap(), 130);
    EXPECT_EQ(posted(), QStringList({"idGap=39"})); // (130 - 20) * 100 / 280
    EXPECT_EQ(node(c, "north")->documentBounds().top(), upper);
    // The bend follows the gap: the lower arm's end is still joined to the upper one.
    EXPECT_NEAR(node(c, "body")->documentBounds().height(), u->gap() + 52, 1);
    drag(c, "control_2", 0, 1000);
    EXPECT_EQ(u->gap(), 300);
    drag(c, "control_1", -1000, 0);
    EXPECT_EQ(u->armLength(), 30);
    set(c, "idLength", "100");
    EXPECT_EQ(u->armLength(), 400);
    set(c, "idGap", "0");
    EXPECT_EQ(u->gap(), 20);
    EXPECT_TRUE(reopens(c));
}

TEST_F(UtypeMagnetTest, RestorePutsBackHandlesAndPoles)
{
    event(c, 2804);
    drag(c, "control_1", 40, 0);
    drag(c, "control_2", 0, 20);
    set(c, "idPoleDirection", "1");
    event(c, 2805);
    EXPECT_EQ(u->armLength(), 120);
    EXPECT_EQ(u->gap(), 60);
    EXPECT_LT(centre(c, "north").y(), centre(c, "south").y());
    EXPECT_TRUE(refusesCut(c, make(505)));
}

// ------------------------------------------------------------------- needle

namespace {

struct SmallneedleTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(510);
        n = static_cast<CSmallneedle *>(c);
    }
    // The handle's centre against the pin, with y up.
    QPointF tip() { return node(c, "control_1")->rect().center() - QPointF(56, 56); }
    CSVGBase *c = nullptr;
    CSmallneedle *n = nullptr;
};

struct Turn {
    double dx, dy; // a drag of the handle, y down
    int shown;     // the angle the panel then shows
};

struct SmallneedleTurns : SmallneedleTest, ::testing::WithParamInterface<Turn> {};

} // namespace

TEST_F(SmallneedleTest, NorthPointsRightAtFirst)
{
    EXPECT_EQ(keys(c), QStringList({"idAngle"}));
    EXPECT_EQ(item(c, "idAngle").value("unit").toString(), QString::fromUtf8("\xC2\xB0"));
    EXPECT_EQ(item(c, "idAngle").value("min").toString(), "-180");
    EXPECT_EQ(n->angle(), 0);
    EXPECT_NEAR(tip().x(), 48, 1e-9);
    EXPECT_NEAR(tip().y(), 0, 1e-9);
    EXPECT_NE(node(c, "stand"), nullptr);
    EXPECT_TRUE(c->getPropName(5002).isEmpty()); // its colours tell north from south
}

// The tip stays on its circle whatever the drag, and the needle points at it.
TEST_P(SmallneedleTurns, HandleStaysOnItsCircle)
{
    const Turn t = GetParam();
    GetFramework()->clearMessages();
    drag(c, "control_1", t.dx, t.dy);
    EXPECT_NEAR(std::hypot(tip().x(), tip().y()), 48, 1e-9);
    EXPECT_EQ(shown(c, "idAngle"), QString::number(t.shown));
    EXPECT_NEAR(node(c, "needle")->numAttribute("rotate_angle"), -n->angle(), 1e-9);
    if (t.shown != 0) {
        EXPECT_EQ(posted(), QStringList({"idAngle=" + QString::number(t.shown)}));
    }
    EXPECT_TRUE(reopens(c));
}

INSTANTIATE_TEST_SUITE_P(Drags, SmallneedleTurns,
                         ::testing::Values(Turn{-48, -48, 90}, Turn{-96, 0, 180}, Turn{-48, 48, -90}, Turn{-20, -20, 36},
                                           Turn{-90, 10, -167}, Turn{0, 30, -32}));

TEST_F(SmallneedleTest, TypedAngleTurnsTheNeedle)
{
    GetFramework()->clearMessages();
    set(c, "idAngle", "135");
    EXPECT_NEAR(n->angle(), 135, 1e-9);
    EXPECT_NEAR(tip().x(), -48 * std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(tip().y(), -48 * std::sqrt(0.5), 1e-9);
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    set(c, "idAngle", "-180");
    EXPECT_EQ(shown(c, "idAngle"), "180");
    set(c, "idAngle", "725");
    EXPECT_EQ(shown(c, "idAngle"), "180");
    set(c, "idAngle", "-44.6");
    EXPECT_EQ(shown(c, "idAngle"), "-45");
    set(c, "idAngle", "north");
    EXPECT_EQ(shown(c, "idAngle"), "-45");
}

TEST_F(SmallneedleTest, CaptureRestoreUndoAndReopen)
{
    set(c, "idAngle", "135");
    event(c, 2804);
    drag(c, "control_1", 50, 50);
    event(c, 2805);
    EXPECT_NEAR(n->angle(), 135, 1e-9);
    const QString turned = svgText(c);
    EXPECT_TRUE(c->editSettings({{"idAngle", "-30"}}));
    GetFramework()->undoStack()->undo();
    EXPECT_EQ(svgText(c), turned);
    EXPECT_TRUE(reopens(c));
    EXPECT_TRUE(refusesCut(c, make(510)));
}
