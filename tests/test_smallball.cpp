// The small ball: the radius its edge handle and the size percentage set about a fixed
// centre, the shading that follows the body colour, and the centre mark.
#include "panel.h"
#include <QColor>
#include <mechanics/SmallBall.h>

namespace {

CSmallBall *ball(const ObjPtr &o) { return static_cast<CSmallBall *>(o->content()); }

struct SmallBallTest : ApparatusTest {};

} // namespace

TEST_F(SmallBallTest, SizePercentageSetsTheRadiusAboutAFixedCentre)
{
    ObjPtr o = makeObject(104, true);
    CSVGBase *c = o->content();
    expectShown(c, "idBallColor=#d84315 idShowCenter=false idPosValue=12");
    EXPECT_FALSE(node(c, "center")->isVisible());
    const QPointF centre(num(c, "ball", "cx"), num(c, "ball", "cy"));
    EXPECT_EQ(node(c, "control_1")->rect().center(), centre + QPointF(20, 0));
    expectTyped(c, "idPosValue", {{"big", 20}, {"", 20}, {"0", 6}, {"100", 120}, {"-2", 6}, {"400", 120}, {"49.5", 63}},
                [&] { return ball(o)->radius(); });
    EXPECT_EQ(shown(c, "idPosValue"), "50");
    EXPECT_EQ(QPointF(num(c, "ball", "cx"), num(c, "ball", "cy")), centre);
    EXPECT_EQ(num(c, "ball", "r"), 63);
    EXPECT_DOUBLE_EQ(node(c, "control_1")->rect().center().x(), centre.x() + 63);
}

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
}
