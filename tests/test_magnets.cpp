// Magnets and the compass needle: pole sides and colours, the U magnet's arm and gap
// handles, the needle turned by its tip or a typed angle and kept on its circle.
#include "panel.h"
#include <electromagnetism/BarMagnet.h>
#include <electromagnetism/Smallneedle.h>
#include <electromagnetism/UtypeMagnet.h>


namespace {

QPointF centre(CSVGBase *c, const char *id) { return node(c, id)->documentBounds().center(); }

} // namespace

using BarMagnetTest = Of<CBarMagnet, 504>;

TEST_F(BarMagnetTest, FlippedLettersFollowTheirHalves)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idPoleDirection", "idNorthColor", "idSouthColor", "idShowLetters"}));
    EXPECT_GT(centre(c, "north").x(), centre(c, "south").x());
    setDirect(c, "idPoleDirection", "1");
    EXPECT_FALSE(obj->northOnRight());
    EXPECT_LT(centre(c, "north").x(), centre(c, "south").x());
    EXPECT_NEAR(centre(c, "north_text").x(), centre(c, "north").x(), 1);
    EXPECT_NEAR(centre(c, "south_text").x(), centre(c, "south").x(), 1);
    setDirect(c, "idPoleDirection", "2"); // no such choice
    EXPECT_FALSE(obj->northOnRight());
    setDirect(c, "idShowLetters", "false");
    EXPECT_FALSE(node(c, "north_text")->isVisible());
    EXPECT_FALSE(node(c, "south_text")->isVisible());
}

TEST_F(BarMagnetTest, PoleColoursUndoRestoreAndTheHostColour)
{
    sendEvent(c, 2804);
    setDirect(c, "idNorthColor", "#ff8800");
    setDirect(c, "idSouthColor", "not a colour");
    EXPECT_EQ(obj->attributes().value(5101).color, QColor("#ff8800"));
    EXPECT_EQ(obj->attributes().value(5102).color, QColor(0x1E, 0x63, 0xD6));
    // The host's drawing colour leaves the poles alone.
    c->editAttribute(5002, colourValue(Qt::green));
    EXPECT_NE(node(c, "north")->attribute("fill").toLower(), "#00ff00");
    GetFramework()->undoStack()->undo();
    EXPECT_EQ(QColor(node(c, "north")->attribute("fill")), QColor("#ff8800"));
    sendEvent(c, 2805);
    EXPECT_EQ(QColor(node(c, "north")->attribute("fill")), QColor(0xE5, 0x39, 0x35));
    EXPECT_EQ(QColor(node(c, "south")->attribute("fill")), QColor(0x1E, 0x63, 0xD6));
}

// ------------------------------------------------------------------- U magnet

using UtypeMagnetTest = Of<CUtypeMagnet, 505>;

TEST_F(UtypeMagnetTest, LiesOnItsSideWithNorthOnTop)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idPoleDirection", "idNorthColor", "idSouthColor", "idLength", "idGap"}));
    EXPECT_EQ(obj->armLength(), 120);
    EXPECT_EQ(obj->gap(), 60);
    EXPECT_LT(centre(c, "north").y(), centre(c, "south").y());
    EXPECT_GT(centre(c, "north").x(), centre(c, "body").x()); // the arms open to the right
    setDirect(c, "idPoleDirection", "1");
    EXPECT_GT(centre(c, "north").y(), centre(c, "south").y());
    EXPECT_NEAR(centre(c, "north_text").y(), centre(c, "north").y(), 1);
}

TEST_F(UtypeMagnetTest, ArmAndGapHandlesKeepTheirRangesAndRestore)
{
    sendEvent(c, 2804);
    const double upper = node(c, "north")->documentBounds().top();
    GetFramework()->clearMessages();
    drag(c, "control_2", 0, 70);
    EXPECT_EQ(obj->gap(), 130);
    EXPECT_EQ(lastPosted(), QStringList({"idGap=39"})); // (130 - 20) * 100 / 280
    EXPECT_EQ(node(c, "north")->documentBounds().top(), upper);
    // The bend follows the gap: the lower arm's end is still joined to the upper one.
    EXPECT_NEAR(node(c, "body")->documentBounds().height(), obj->gap() + 52, 1);
    drag(c, "control_2", 0, 1000);
    EXPECT_EQ(obj->gap(), 300);
    drag(c, "control_1", -1000, 0);
    EXPECT_EQ(obj->armLength(), 30);
    setDirect(c, "idLength", "100");
    EXPECT_EQ(obj->armLength(), 400);
    setDirect(c, "idGap", "0");
    EXPECT_EQ(obj->gap(), 20);
    EXPECT_TRUE(reopens(c));
    sendEvent(c, 2805);
    EXPECT_EQ(obj->armLength(), 120);
    EXPECT_EQ(obj->gap(), 60);
}

// ------------------------------------------------------------------- needle

namespace {

struct SmallneedleTest : Of<CSmallneedle, 510> {
    // The handle's centre against the pin, with y up.
    QPointF tip() { return node(c, "control_1")->rect().center() - QPointF(56, 56); }
};

struct Turn {
    double dx, dy; // a drag of the handle, y down
    int shown;     // the angle the panel then shows
};

struct SmallneedleTurns : SmallneedleTest, ::testing::WithParamInterface<Turn> {};

} // namespace

// The tip stays on its circle whatever the drag, and the needle points at it.
TEST_P(SmallneedleTurns, HandleStaysOnItsCircle)
{
    const Turn t = GetParam();
    GetFramework()->clearMessages();
    drag(c, "control_1", t.dx, t.dy);
    EXPECT_NEAR(std::hypot(tip().x(), tip().y()), 48, 1e-9);
    EXPECT_EQ(shown(c, "idAngle"), QString::number(t.shown));
    EXPECT_NEAR(node(c, "needle")->numAttribute("rotate_angle"), -obj->angle(), 1e-9);
    if (t.shown != 0) {
        EXPECT_EQ(lastPosted(), QStringList({"idAngle=" + QString::number(t.shown)}));
    }
    EXPECT_TRUE(reopens(c));
}

INSTANTIATE_TEST_SUITE_P(Drags, SmallneedleTurns,
                         ::testing::Values(Turn{-48, -48, 90}, Turn{-96, 0, 180}, Turn{-48, 48, -90}, Turn{-20, -20, 36},
                                           Turn{-90, 10, -167}, Turn{0, 30, -32}));

TEST_F(SmallneedleTest, TypedAngleTurnsTheNeedleAndRestores)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idAngle"}));
    EXPECT_TRUE(c->getPropName(5002).isEmpty()); // its colours tell north from south
    GetFramework()->clearMessages();
    setDirect(c, "idAngle", "135");
    EXPECT_NEAR(obj->angle(), 135, 1e-9);
    EXPECT_NEAR(tip().x(), -48 * std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(tip().y(), -48 * std::sqrt(0.5), 1e-9);
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    sendEvent(c, 2804);
    setDirect(c, "idAngle", "-180");
    EXPECT_EQ(shown(c, "idAngle"), "180");
    setDirect(c, "idAngle", "725");
    EXPECT_EQ(shown(c, "idAngle"), "180");
    setDirect(c, "idAngle", "-44.6");
    EXPECT_EQ(shown(c, "idAngle"), "-45");
    setDirect(c, "idAngle", "north");
    EXPECT_EQ(shown(c, "idAngle"), "-45");
    sendEvent(c, 2805);
    EXPECT_NEAR(obj->angle(), 135, 1e-9);
}
