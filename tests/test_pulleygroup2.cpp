// The pulley block of four: pulled down or up, the free end moves n times as far as the
// load; every fall straight between wheels; the rope end change.
#include "panel.h"
#include <mechanics/PulleyGroup2.h>

namespace {

struct PulleyGroup2 : ApparatusTest {};

} // namespace

struct BlockCase {
    const char *ropeEnd;
    long n;
    double rise;
};

class PulleyGroup2Raise : public PulleyGroup2, public ::testing::WithParamInterface<BlockCase> {};

// Pulled down the free end goes the other way, pulled up the same way: n times as far.
TEST_P(PulleyGroup2Raise, FreeEndMovesNTimesAsFarAsTheLoad)
{
    ObjPtr o = makeObject(206, true);
    CSVGBase *c = o->content();
    auto *g = static_cast<CPulleyGroup2 *>(c);
    const BlockCase &b = GetParam();
    typeIn(c, "idRopeEnd", b.ropeEnd);
    typeIn(c, "idShowSegments", "true");
    EXPECT_EQ(g->falls(), b.n);
    EXPECT_EQ(node(c, "n_label")->text(), QString("n = %1").arg(b.n));
    const QPointF end = g->freeEnd();
    drag(c, "control_1", 0, -b.rise);
    const double moved = g->freeEnd().y() - end.y();
    EXPECT_DOUBLE_EQ(g->pulledUp() ? -moved : moved, b.n * b.rise);
    // Every fall is straight up and down, ending on a wheel's side at its axle's level.
    for (const char *id : {"rope_1", "rope_2", "rope_3", "rope_4", "free_end"}) {
        const QLineF l = lineOf(c, id);
        EXPECT_EQ(l.p1().x(), l.p2().x()) << id;
        int touching = 0;
        for (const char *w : {"fixed_wheel_1", "fixed_wheel_2", "moving_wheel_1", "moving_wheel_2"})
            for (const QPointF &p : {l.p1(), l.p2()})
                touching += std::fabs(std::fabs(p.x() - wheelCentre(c, w).x()) - 16) < 1e-9 &&
                            std::fabs(p.y() - wheelCentre(c, w).y()) < 1e-9;
        // The rope's start hangs from the beam or rises from the crossbar; the free end
        // touches one wheel; every other fall two.
        EXPECT_EQ(touching, QString(id) == "rope_2" || QString(id) == "rope_3" || QString(id) == "rope_4" ? 2 : 1) << id;
    }
}

INSTANTIATE_TEST_SUITE_P(PulleyGroup2, PulleyGroup2Raise, ::testing::Values(
    BlockCase{"0", 4, 50}, BlockCase{"0", 4, 200}, BlockCase{"1", 5, 50}, BlockCase{"1", 5, 200}));

TEST_F(PulleyGroup2, RopeEndChangeKeepsTheLoad)
{
    ObjPtr o = makeObject(206, true);
    CSVGBase *c = o->content();
    typeIn(c, "idPosValue", "40");
    const QPointF hook = handleCentre(c, "control_1");
    EXPECT_TRUE(typeIn(c, "idRopeEnd", "1"));
    EXPECT_EQ(handleCentre(c, "control_1"), hook);
    EXPECT_EQ(shown(c, "idPosValue"), "40");
    EXPECT_TRUE(node(c, "anchor_moving")->isVisible());
    EXPECT_FALSE(node(c, "anchor_fixed")->isVisible());
}
