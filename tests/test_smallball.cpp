// The small ball: the radius its edge handle and the size percentage set about a fixed
// centre, the shading that follows the body colour, the centre mark, capture and reopening.
#include "panelhelpers.h"
#include <QColor>
#include <mechanics/SmallBall.h>

namespace {

CSmallBall *ball(const ObjPtr &o) { return static_cast<CSmallBall *>(o->content()); }

struct SmallBallTest : ApparatusTest {};

struct Size {
    const char *typed;
    double radius;
    const char *shown;
};
class SmallBallSize : public SmallBallTest, public ::testing::WithParamInterface<Size> {};

} // namespace

TEST_F(SmallBallTest, NewBallHasRadiusTwentyAndHidesItsCentre)
{
    ObjPtr o = makeObject(104, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(ball(o)->radius(), 20);
    EXPECT_EQ(num(c, "ball", "r"), 20);
    EXPECT_FALSE(node(c, "center")->isVisible());
    EXPECT_EQ(shown(c, "idBallColor"), "#d84315");
    EXPECT_EQ(shown(c, "idShowCenter"), "false");
    EXPECT_EQ(shown(c, "idPosValue"), "12"); // (20 - 6) / 114
    const QPointF centre(num(c, "ball", "cx"), num(c, "ball", "cy"));
    EXPECT_EQ(node(c, "control_1")->rect().center(), centre + QPointF(20, 0));
}

TEST_P(SmallBallSize, SizePercentageSetsTheRadiusAboutAFixedCentre)
{
    ObjPtr o = makeObject(104, true);
    CSVGBase *c = o->content();
    const QPointF centre(num(c, "ball", "cx"), num(c, "ball", "cy"));
    typeIn(c, "idPosValue", GetParam().typed);
    EXPECT_DOUBLE_EQ(ball(o)->radius(), GetParam().radius);
    EXPECT_EQ(shown(c, "idPosValue"), GetParam().shown);
    EXPECT_EQ(QPointF(num(c, "ball", "cx"), num(c, "ball", "cy")), centre);
    EXPECT_DOUBLE_EQ(node(c, "control_1")->rect().center().x(), centre.x() + GetParam().radius);
}

INSTANTIATE_TEST_SUITE_P(SmallBall, SmallBallSize, ::testing::Values(
    Size{"0", 6, "0"}, Size{"100", 120, "100"}, Size{"50", 63, "50"}, Size{"49.5", 63, "50"}, Size{"400", 120, "100"},
    Size{"-2", 6, "0"}, Size{"big", 20, "12"}, Size{"", 20, "12"}));

TEST_F(SmallBallTest, DragSetsTheRadiusWithinRangeAndPostsTheSize)
{
    ObjPtr o = makeObject(104, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    drag(c, "control_1", 57, 30); // no vertical travel
    EXPECT_EQ(ball(o)->radius(), 77);
    EXPECT_EQ(node(c, "control_1")->rect().center().y(), num(c, "ball", "cy"));
    EXPECT_EQ(postedSince(mark), QStringList{"idPosValue=62"});
    mark = messageCount();
    drag(c, "control_1", -500, 0);
    drag(c, "control_1", -5, 0);
    EXPECT_EQ(ball(o)->radius(), 6);
    EXPECT_EQ(postedSince(mark), QStringList{"idPosValue=0"});
}

TEST_F(SmallBallTest, ColourShadesTheSphereAndTheHighlightStaysLight)
{
    ObjPtr o = makeObject(104, true);
    CSVGBase *c = o->content();
    EXPECT_TRUE(typeIn(c, "idBallColor", "#1e63d6"));
    EXPECT_EQ(QColor(node(c, "sb_body")->attribute("stop-color")), QColor("#1e63d6"));
    EXPECT_GT(QColor(node(c, "sb_light")->attribute("stop-color")).lightness(), QColor("#1e63d6").lightness());
    EXPECT_LT(QColor(node(c, "sb_dark")->attribute("stop-color")).lightness(), QColor("#1e63d6").lightness());
    typeIn(c, "idBallColor", "blueish"); // refused
    EXPECT_EQ(shown(c, "idBallColor"), "#1e63d6");
    EXPECT_TRUE(typeIn(c, "idShowCenter", "true"));
    EXPECT_TRUE(node(c, "center")->isVisible());
    undoStack()->undo();
    undoStack()->undo();
    EXPECT_EQ(QColor(node(c, "sb_body")->attribute("stop-color")), QColor("#d84315"));
    EXPECT_FALSE(node(c, "center")->isVisible());
}

TEST_F(SmallBallTest, RestoreAndReopenGiveTheSameBall)
{
    ObjPtr o = makeObject(104, true);
    CSVGBase *c = o->content();
    typeIn(c, {{"idBallColor", "#2e7d32"}, {"idShowCenter", "true"}, {"idPosValue", "33"}});
    const QString captured = svgText(c);
    capture(c);
    typeIn(c, {{"idBallColor", "#000000"}, {"idShowCenter", "false"}, {"idPosValue", "3"}});
    EXPECT_TRUE(c->editRestore());
    EXPECT_TRUE(sameDocument(svgText(c), captured));
    dragInSteps(c, "control_1", QPointF(13.7, 0));
    expectReopensAndDragsAlike(c, "control_1", QPointF(-21.1, 0));
}
