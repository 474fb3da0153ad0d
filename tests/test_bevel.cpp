// The sloped board: the slope and length its upper end sets, the angle mark that must
// agree with the slope drawn, typed values and what a drag posts.
#include "panel.h"
#include <cmath>
#include <mechanics/Bevel.h>

namespace {

CBevel *bevel(const ObjPtr &o) { return static_cast<CBevel *>(o->content()); }
const QPointF kHinge(20, 180);

// Where the handle's centre stands, seen from the hinge, in degrees anticlockwise.
double handleAngle(CSVGBase *c)
{
    const QPointF d = node(c, "control_1")->rect().center() - kHinge;
    return std::atan2(-d.y(), d.x()) * 180 / M_PI;
}
double handleDistance(CSVGBase *c)
{
    const QPointF d = node(c, "control_1")->rect().center() - kHinge;
    return std::hypot(d.x(), d.y());
}

struct BevelTest : ApparatusTest {};

struct Pull {
    QPointF to;  // where the hand takes the handle's centre, from the hinge
    double angle, length;
};
class BevelDrag : public BevelTest, public ::testing::WithParamInterface<Pull> {};

} // namespace

TEST_P(BevelDrag, HandleSetsSlopeAndLengthWithinTheirRangesAndReturnsToThePlanksEnd)
{
    ObjPtr o = makeObject(101, true);
    CSVGBase *c = o->content();
    const QPointF from = node(c, "control_1")->rect().center();
    drag(c, "control_1", kHinge.x() + GetParam().to.x() - from.x(), kHinge.y() - GetParam().to.y() - from.y());
    EXPECT_NEAR(bevel(o)->angle(), GetParam().angle, 1e-9);
    EXPECT_NEAR(bevel(o)->length(), GetParam().length, 1e-9);
    EXPECT_NEAR(handleAngle(c), GetParam().angle, 1e-9);
    EXPECT_NEAR(handleDistance(c), GetParam().length, 1e-9);
    // The mark tells the slope that is drawn.
    EXPECT_EQ(num(c, "board", "rotate_angle"), -bevel(o)->angle());
    EXPECT_EQ(node(c, "angle_text")->text(), QString::number(std::lround(GetParam().angle)) + QChar(0x00B0));
    EXPECT_EQ(shown(c, "idAngle"), QString::number(std::lround(GetParam().angle)));
    EXPECT_NEAR(num(c, "plank", "width"), GetParam().length, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Bevel, BevelDrag, ::testing::Values(
    Pull{{200, 200}, 45, 200 * M_SQRT2}, Pull{{100, 0}, 0, 100}, Pull{{-100, 300}, 80, std::hypot(100, 300)},
    Pull{{300, -50}, 0, std::hypot(300, 50)}, Pull{{-200, -10}, 0, std::hypot(200, 10)},
    Pull{{20, 10}, std::atan2(10, 20) * 180 / M_PI, 60}, Pull{{900, 900}, 45, 1000},
    Pull{{300, 80.385}, std::atan2(80.385, 300) * 180 / M_PI, std::hypot(300, 80.385)}));

TEST_F(BevelTest, DragPostsAngleAndLength)
{
    ObjPtr o = makeObject(101, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    drag(c, "control_1", -120, -60);
    EXPECT_EQ(postedSince(mark), (QStringList{"idAngle=" + shown(c, "idAngle"), "idLength=" + shown(c, "idLength")}));
    mark = messageCount();
    drag(c, "control_1", -2000, 0); // past 80°: held there, and still posted once
    drag(c, "control_1", -50, 0);
    EXPECT_EQ(bevel(o)->angle(), 80);
    EXPECT_EQ(postedSince(mark).filter("idAngle"), QStringList{"idAngle=80"});
}

TEST_F(BevelTest, TypedAngleKeepsTheLengthTypedLengthKeepsTheAngleAndTheMarkHides)
{
    ObjPtr o = makeObject(101, true);
    CSVGBase *c = o->content();
    expectShown(c, "idAngle=30 idLength=25 idShowAngle=true");
    expectTyped(c, "idAngle", {{"45.6", 46}, {"95", 80}, {"-7", 0}, {"steep", 0}, {"", 0}, {"nan", 0}, {"inf", 0}},
                [&] { return bevel(o)->angle(); });
    EXPECT_EQ(node(c, "angle_text")->text(), QString::fromUtf8("0°"));
    expectTyped(c, "idLength", {{"100", 1000}, {"-20", 60}, {"50", 530}}, [&] { return bevel(o)->length(); });
    EXPECT_EQ(bevel(o)->angle(), 0);
    typeIn(c, "idAngle", "33");
    EXPECT_NEAR(bevel(o)->length(), 530, 1e-9);
    EXPECT_NEAR(handleDistance(c), 530, 1e-9);
    EXPECT_TRUE(typeIn(c, "idShowAngle", "false"));
    EXPECT_FALSE(node(c, "angle_arc")->isVisible() || node(c, "angle_text")->isVisible());
}
