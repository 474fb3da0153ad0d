// The fixed pulley: the right fall and its limits, the left one kept, the hooks, the
// panel percentage, capture and undo.
#include "forces.h"
#include <mechanics/Pulley.h>

namespace {

struct Pulley : ApparatusTest {};

} // namespace

TEST_F(Pulley, NewPulleyHasTwoFallsOfAHundredAndTwoHooks)
{
    ObjPtr o = makeObject(204, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(lineOf(c, "rope_left").length(), 100);
    EXPECT_EQ(lineOf(c, "rope_right").length(), 100);
    EXPECT_EQ(shown(c, "idHookCount"), "1");
    EXPECT_EQ(shown(c, "idPosValue"), "13");  // (100 - 20) / 580
    EXPECT_EQ(item(c, "idPosValue").value("label").toString(), "IDS_PHYSICSOBJ_ROPE_LENGTH");
    EXPECT_TRUE(node(c, "hook_left")->isVisible());
    // The falls leave the wheel where they touch it.
    const QPointF w = wheelCentre(c, "wheel");
    EXPECT_EQ(lineOf(c, "rope_right").p1(), w + QPointF(wheelRadius(c, "wheel"), 0));
    EXPECT_EQ(lineOf(c, "rope_left").p1(), w - QPointF(wheelRadius(c, "wheel"), 0));
}

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
    EXPECT_EQ(lineOf(c, "rope_right").p2(), centre(c, "control_1"));
    EXPECT_EQ(lineOf(c, "rope_left").length(), CPulley::kLeftFall);
    EXPECT_EQ(shown(c, "idPosValue"), GetParam().percent);
    const QStringList expected = QString(GetParam().percent) == "13" ? QStringList() : QStringList{QString("idPosValue=") + GetParam().percent};
    EXPECT_EQ(posted(), expected);
    EXPECT_EQ(svgText(reopen(c)->content()), svgText(c));
}

INSTANTIATE_TEST_SUITE_P(Pulley, PulleyFall, ::testing::Values(
    FallCase{150, 250, "39"}, FallCase{-80, 20, "0"}, FallCase{-500, 20, "0"}, FallCase{500, 600, "100"},
    FallCase{2000, 600, "100"}, FallCase{1, 101, "13"}));

TEST_F(Pulley, TypedPercentagesAndOneHook)
{
    ObjPtr o = makeObject(204, true);
    CSVGBase *c = o->content();
    EXPECT_TRUE(type(c, "idPosValue", "50"));
    EXPECT_DOUBLE_EQ(static_cast<CPulley *>(c)->rightFall(), 310);
    EXPECT_TRUE(type(c, "idPosValue", "150"));
    EXPECT_DOUBLE_EQ(static_cast<CPulley *>(c)->rightFall(), 600);
    EXPECT_FALSE(type(c, "idPosValue", "long"));
    EXPECT_TRUE(posted().isEmpty());
    EXPECT_TRUE(type(c, "idHookCount", "0"));
    EXPECT_FALSE(node(c, "hook_left")->isVisible());
    EXPECT_TRUE(node(c, "hook_right")->isVisible());
    EXPECT_FALSE(type(c, "idHookCount", "2"));
    undo()->undo();
    EXPECT_TRUE(node(c, "hook_left")->isVisible());
}

TEST_F(Pulley, RestorePutsBackHooksAndFall)
{
    ObjPtr o = makeObject(204, true);
    CSVGBase *c = o->content();
    type(c, "idHookCount", "0");
    drag(c, "control_1", 0, 77);
    const QJsonArray panel = settingsOf(c);
    const QString drawn = svgText(c);
    capture(c);
    type(c, "idHookCount", "1");
    drag(c, "control_1", 0, 200);
    EXPECT_TRUE(c->editRestore());
    EXPECT_EQ(settingsOf(c), panel);
    EXPECT_TRUE(sameDocument(svgText(c), drawn));
}

