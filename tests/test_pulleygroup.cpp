// The pulley block of two: the free end moving twice as far as the load, the other way;
// the rope meeting the wheels; the drop as a percentage; the segment count.
#include "panel.h"
#include <mechanics/PulleyGroup.h>

namespace {

struct PulleyGroup : ApparatusTest {};

} // namespace

TEST_F(PulleyGroup, LoadFromItsLowestByPercentageOnlyTheLoadMovesTheFreeEnd)
{
    ObjPtr o = makeObject(205, true);
    CSVGBase *c = o->content();
    auto *g = static_cast<CPulleyGroup *>(c);
    EXPECT_EQ(g->drop(), CPulleyGroup::kMaxDrop);
    EXPECT_EQ(lineOf(c, "free_end").length(), 40);
    EXPECT_EQ(lineOf(c, "free_end").p2(), g->freeEnd());
    EXPECT_EQ(shown(c, "idPosValue"), "100");
    typeIn(c, "idShowSegments", "true");
    EXPECT_TRUE(node(c, "n_label")->isVisible());
    // The free end cannot be dragged: only the load moves it.
    const QString before = svgText(c);
    drag(c, "control_2", 30, 40);
    EXPECT_EQ(svgText(c), before);
    EXPECT_EQ(GetFramework()->undoStack()->count(), 1);
    // 0 % with the load at its highest; typed decimals are rounded.
    typeIn(c, "idPosValue", "0");
    EXPECT_DOUBLE_EQ(g->drop(), CPulleyGroup::kMinDrop);
    EXPECT_DOUBLE_EQ(lineOf(c, "free_end").length(), 40 + 2 * 200);
    typeIn(c, "idPosValue", "25.4");
    EXPECT_DOUBLE_EQ(g->drop(), 90);
}

class PulleyGroupRaise : public PulleyGroup, public ::testing::WithParamInterface<double> {};

TEST_P(PulleyGroupRaise, FreeEndMovesTwiceAsFarTheOtherWay)
{
    ObjPtr o = makeObject(205, true);
    CSVGBase *c = o->content();
    auto *g = static_cast<CPulleyGroup *>(c);
    const QPointF end = g->freeEnd(), hook = handleCentre(c, "control_1");
    drag(c, "control_1", 0, -GetParam());
    const double rise = hook.y() - handleCentre(c, "control_1").y();
    EXPECT_DOUBLE_EQ(rise, std::min(GetParam(), 200.0));
    EXPECT_DOUBLE_EQ(g->freeEnd().y() - end.y(), 2 * rise);
    EXPECT_EQ(g->freeEnd().x(), end.x());
    // Both falls end on the movable wheel's sides, and the one between the wheels is
    // under the fixed wheel's side.
    const QPointF m = wheelCentre(c, "moving_wheel"), f = wheelCentre(c, "fixed_wheel");
    const double rm = wheelRadius(c, "moving_wheel"), rf = wheelRadius(c, "fixed_wheel");
    EXPECT_DOUBLE_EQ(lineOf(c, "rope_1").p2().y(), m.y());
    EXPECT_EQ(lineOf(c, "rope_1").p2().x(), m.x() - rm);
    EXPECT_EQ(lineOf(c, "rope_2").p1(), m + QPointF(rm, 0));
    EXPECT_EQ(lineOf(c, "rope_2").p2(), f - QPointF(rf, 0));
}

INSTANTIATE_TEST_SUITE_P(PulleyGroup, PulleyGroupRaise, ::testing::Values(1.0, 60.0, 120.0, 200.0, 900.0));
