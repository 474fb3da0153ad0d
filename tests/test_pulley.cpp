// The fixed pulley: the right fall and its limits, the left one kept, the hooks, the
// panel percentage.
#include "panel.h"
#include <mechanics/Pulley.h>

namespace {

struct Pulley : ApparatusTest {};

} // namespace

struct FallCase {
    double dy;         // how far the handle is dragged down
    double fall;       // the right fall then
    const char *percent;
};

class PulleyFall : public Pulley, public ::testing::WithParamInterface<FallCase> {};

TEST_P(PulleyFall, HandleSetsTheRightFallWithinItsLimits)
{
    ObjPtr o = makeObject(204, true);
    CSVGBase *c = o->content();
    GetFramework()->clearMessages();
    drag(c, "control_1", 5, GetParam().dy);
    EXPECT_DOUBLE_EQ(static_cast<CPulley *>(c)->rightFall(), GetParam().fall);
    EXPECT_DOUBLE_EQ(lineOf(c, "rope_right").length(), GetParam().fall);
    EXPECT_EQ(lineOf(c, "rope_right").p2(), handleCentre(c, "control_1"));
    // The falls leave the wheel where they touch it.
    const QPointF w = wheelCentre(c, "wheel");
    EXPECT_EQ(lineOf(c, "rope_right").p1(), w + QPointF(wheelRadius(c, "wheel"), 0));
    EXPECT_EQ(lineOf(c, "rope_left").p1(), w - QPointF(wheelRadius(c, "wheel"), 0));
    EXPECT_EQ(lineOf(c, "rope_left").length(), CPulley::kLeftFall);
    EXPECT_EQ(shown(c, "idPosValue"), GetParam().percent);
    const QStringList expected = QString(GetParam().percent) == "13" ? QStringList() : QStringList{QString("idPosValue=") + GetParam().percent};
    EXPECT_EQ(postedSince(), expected);
}

INSTANTIATE_TEST_SUITE_P(Pulley, PulleyFall, ::testing::Values(
    FallCase{150, 250, "39"}, FallCase{-80, 20, "0"}, FallCase{-500, 20, "0"}, FallCase{500, 600, "100"},
    FallCase{2000, 600, "100"}, FallCase{1, 101, "13"}, FallCase{0, 100, "13"}));  // 100 when new

TEST_F(Pulley, TypedPercentagesAndOneHook)
{
    ObjPtr o = makeObject(204, true);
    CSVGBase *c = o->content();
    EXPECT_TRUE(typeIn(c, "idPosValue", "50"));
    EXPECT_DOUBLE_EQ(static_cast<CPulley *>(c)->rightFall(), 310);
    EXPECT_TRUE(typeIn(c, "idPosValue", "150"));
    EXPECT_DOUBLE_EQ(static_cast<CPulley *>(c)->rightFall(), 600);
    EXPECT_FALSE(typeIn(c, "idPosValue", "long"));
    EXPECT_TRUE(postedSince().isEmpty());
    EXPECT_TRUE(typeIn(c, "idHookCount", "0"));
    EXPECT_FALSE(node(c, "hook_left")->isVisible());
    EXPECT_TRUE(node(c, "hook_right")->isVisible());
}
