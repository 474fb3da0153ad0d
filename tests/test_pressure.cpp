// The U-tube pressure gauge: two levels that differ by the height it reports, the liquid
// conserved, typed differences, limits, the probe.
#include "panel.h"
#include <mechanics/Pressure.h>

namespace {

double level(CSVGBase *c, const char *surface) { return node(c, surface)->numAttribute("cy"); }
// The height the two levels differ by, in cm, positive when the left level is the lower.
double drawnDifference(CSVGBase *c)
{
    return (level(c, "surface_left") - level(c, "surface_right")) / CPressure::kUnitsPerCm;
}

struct Pressure : ApparatusTest {};

} // namespace

struct DiffCase {
    const char *typed, *reads;
};

class PressureDifference : public Pressure, public ::testing::WithParamInterface<DiffCase> {};

TEST_P(PressureDifference, LevelsDifferByTheReportedHeightAboutTheRestLevel)
{
    ObjPtr o = makeObject(301, true);
    CSVGBase *c = o->content();
    typeIn(c, "idHeightDiff", GetParam().typed);
    EXPECT_EQ(shown(c, "idHeightDiff"), GetParam().reads);
    EXPECT_NEAR(drawnDifference(c), QString(GetParam().reads).toDouble(), 1e-9);
    // What leaves one arm rises in the other.
    EXPECT_NEAR(level(c, "surface_left") + level(c, "surface_right"), 2 * CPressure::kRestY, 1e-9);
    EXPECT_EQ(node(c, "liquid_left")->numAttribute("y"), level(c, "surface_left"));
    EXPECT_EQ(node(c, "liquid_right")->numAttribute("y"), level(c, "surface_right"));
    // The handle stands on the left surface.
    EXPECT_NEAR(handleCentre(c, "control_1").y(), level(c, "surface_left"), 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Pressure, PressureDifference, ::testing::Values(
    DiffCase{"6", "6.0"}, DiffCase{"6.04", "6.0"}, DiffCase{"6.05", "6.1"}, DiffCase{"-8.4", "-8.4"},
    DiffCase{"20", "20.0"}, DiffCase{"35", "20.0"}, DiffCase{"-1e9", "-20.0"}, DiffCase{"-0.01", "0.0"}));

TEST_F(Pressure, DragRestsOnItsReadingAndPostsIt)
{
    ObjPtr o = makeObject(301, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(level(c, "surface_left"), CPressure::kRestY);  // level when new
    GetFramework()->clearMessages();
    drag(c, "control_1", 0, 0.2, false);  // 0.04 cm: still "0.0"
    EXPECT_TRUE(postedSince().isEmpty());
    drag(c, "control_1", 0, 29.8, true);  // 3 cm down: 6 cm difference
    EXPECT_EQ(postedSince(), QStringList{"idHeightDiff=6.0"});
    EXPECT_DOUBLE_EQ(drawnDifference(c), 6);
    // Up past the rest level the right level is the lower; the travel ends at 10 cm.
    drag(c, "control_1", 0, -500);
    EXPECT_EQ(shown(c, "idHeightDiff"), "-20.0");
    EXPECT_DOUBLE_EQ(drawnDifference(c), -20);
    // A drawing without Resize: the whole travel lies inside it.
    const QRectF box = c->document()->viewBox();
    EXPECT_TRUE(box.contains(node(c, "control_1")->rect()));
    drag(c, "control_1", 0, 500);
    EXPECT_TRUE(box.contains(node(c, "control_1")->rect()));
    EXPECT_EQ(c->document()->viewBox(), box);
}

TEST_F(Pressure, ProbeAndHoseShowTogether)
{
    ObjPtr o = makeObject(301, true);
    CSVGBase *c = o->content();
    EXPECT_TRUE(typeIn(c, "idShowProbe", "false"));
    EXPECT_FALSE(node(c, "probe")->isVisible());
    EXPECT_FALSE(node(c, "hose")->isVisible());
}
