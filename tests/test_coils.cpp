// The electromagnet (turns regenerated with the wound length, current arrows, the core
// shown or hidden) and the laminated iron core (length and thickness handles).
#include "panel.h"
#include <electromagnetism/CoilA.h>
#include <electromagnetism/Ironcore.h>


namespace {

struct CoilATest : Of<CCoilA, 502> {
    // Whether current arrow k has its tip (its first point) above its base.
    bool arrowUp(int k)
    {
        const QStringList v = node(c, QStringLiteral("current_%1").arg(k).toLatin1().constData())
                                  ->attribute("d")
                                  .split(QRegularExpression("[ ,MLZ]+"), Qt::SkipEmptyParts);
        return v.size() == 6 && v[1].toDouble() < (v[3].toDouble() + v[5].toDouble()) / 2;
    }
};

struct Winding {
    double drag;  // of the right end
    double length;
    int turns;
};

struct CoilAWinding : CoilATest, ::testing::WithParamInterface<Winding> {};

} // namespace

TEST_P(CoilAWinding, TurnsFollowTheWoundLength)
{
    const Winding w = GetParam();
    setDirect(c, "idCurrentDirection", "1");
    GetFramework()->clearMessages();
    drag(c, "control_1", w.drag, 0);
    EXPECT_EQ(obj->woundLength(), w.length);
    EXPECT_EQ(seriesCount(c, "turn"), w.turns);
    EXPECT_EQ(seriesCount(c, "current"), std::max(1, w.turns / 5));
    // The turns stay on the core, and the leads leave the end turns.
    const QRectF core = node(c, "core")->documentBounds();
    const QRectF last = node(c, QStringLiteral("turn_%1").arg(w.turns).toLatin1().constData())->documentBounds();
    EXPECT_LT(last.right(), core.right());
    EXPECT_GT(node(c, "lead_right")->documentBounds().left(), last.left());
    EXPECT_TRUE(reopens(c));
}

INSTANTIATE_TEST_SUITE_P(Lengths, CoilAWinding,
                         ::testing::Values(Winding{0, 120, 20}, Winding{-90, 30, 5}, Winding{-1000, 30, 5},
                                           Winding{3, 123, 20}, Winding{6, 126, 21}, Winding{1000, 600, 100}));

TEST_F(CoilATest, CurrentArrowsPointTheChosenWay)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idShowCore", "idCurrentDirection", "idLength"}));
    EXPECT_FALSE(node(c, "currents")->isVisible());
    setDirect(c, "idCurrentDirection", "1");
    EXPECT_TRUE(node(c, "currents")->isVisible());
    for (int k = 1; k <= seriesCount(c, "current"); ++k)
        EXPECT_TRUE(arrowUp(k)) << k;
    setDirect(c, "idCurrentDirection", "2");
    for (int k = 1; k <= seriesCount(c, "current"); ++k)
        EXPECT_FALSE(arrowUp(k)) << k;
    setDirect(c, "idCurrentDirection", "0");
    EXPECT_FALSE(node(c, "currents")->isVisible());
}

TEST_F(CoilATest, HollowCoilPostsRestoresAndReopens)
{
    sendEvent(c, 2804);
    setDirect(c, "idShowCore", "false");
    EXPECT_FALSE(node(c, "core")->isVisible());
    GetFramework()->clearMessages();
    drag(c, "control_1", 57, 0);
    EXPECT_EQ(lastPosted(), QStringList({"idLength=25"})); // (177 - 30) * 100 / 570
    setDirect(c, "idLength", "100");
    EXPECT_EQ(obj->woundLength(), 600);
    sendEvent(c, 2805);
    EXPECT_TRUE(node(c, "core")->isVisible());
    EXPECT_EQ(obj->woundLength(), 120);
    EXPECT_EQ(seriesCount(c, "turn"), 20);
}

// ------------------------------------------------------------------- iron core

using IroncoreTest = Of<CIroncore, 503>;

TEST_F(IroncoreTest, HandlesSizeTheBarAndTheTopEdgeStays)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idLength", "idThickness"}));
    EXPECT_EQ(shown(c, "idLength"), "29"); // (200 - 30) * 100 / 570
    EXPECT_EQ(shown(c, "idThickness"), "27");
    EXPECT_EQ(seriesCount(c, "lam"), 6);
    sendEvent(c, 2804);
    const double top = node(c, "core")->documentBounds().top();
    GetFramework()->clearMessages();
    drag(c, "control_2", 0, 32);
    EXPECT_EQ(obj->thickness(), 72);
    EXPECT_EQ(seriesCount(c, "lam"), 12);
    EXPECT_EQ(lastPosted(), QStringList({"idThickness=56"}));
    EXPECT_EQ(node(c, "core")->documentBounds().top(), top);
    // Laminations lie inside the bar, evenly.
    const QRectF bar = node(c, "core")->documentBounds();
    for (int k = 1; k <= 12; ++k) {
        const QRectF l = node(c, QStringLiteral("lam_%1").arg(k).toLatin1().constData())->documentBounds();
        EXPECT_TRUE(l.top() > bar.top() && l.bottom() < bar.bottom()) << k;
    }
    drag(c, "control_1", -1000, 0);
    EXPECT_EQ(obj->length(), 30);
    // The thickness handle stays at the middle of the bottom edge.
    EXPECT_NEAR(node(c, "control_2")->rect().center().x(), bar.left() + 15, 1);
    drag(c, "control_2", 0, -1000);
    EXPECT_EQ(obj->thickness(), 10);
    EXPECT_EQ(seriesCount(c, "lam"), 1);
    setDirect(c, "idLength", "100");
    setDirect(c, "idThickness", "100");
    EXPECT_EQ(obj->length(), 600);
    EXPECT_EQ(obj->thickness(), 120);
    EXPECT_EQ(seriesCount(c, "lam"), 20);
    EXPECT_TRUE(reopens(c));
    sendEvent(c, 2805);
    EXPECT_EQ(obj->length(), 200);
    EXPECT_EQ(obj->thickness(), 40);
}
