// The small cart: the body length its right end and the panel set, the wheels kept at a
// fifth from each end, the hook and colour.
#include "panel.h"
#include <QColor>
#include <mechanics/SmallCar.h>

namespace {

CSmallCar *car(const ObjPtr &o) { return static_cast<CSmallCar *>(o->content()); }

struct SmallCarTest : ApparatusTest {};

struct Length {
    double by;
    double length;
};
class SmallCarLength : public SmallCarTest, public ::testing::WithParamInterface<Length> {};

QString at(double x, double y) { return QStringLiteral("translate(%1,%2)").arg(x).arg(y); }

} // namespace

TEST_P(SmallCarLength, RightEndSetsTheLengthAndTheWheelsFollow)
{
    ObjPtr o = makeObject(105, true);
    CSVGBase *c = o->content();
    drag(c, "control_1", GetParam().by, 25); // no vertical travel
    const double l = GetParam().length;
    EXPECT_EQ(car(o)->length(), l);
    EXPECT_EQ(num(c, "body", "x"), 0);
    EXPECT_EQ(num(c, "body", "width"), l);
    EXPECT_EQ(node(c, "wheel_1")->attribute("transform"), at(l / 5, 44));
    EXPECT_EQ(node(c, "wheel_2")->attribute("transform"), at(l * 4 / 5, 44));
    EXPECT_EQ(node(c, "hook")->attribute("transform"), at(l, 17));
    EXPECT_EQ(node(c, "control_1")->rect().center(), QPointF(l, 17));
}

INSTANTIATE_TEST_SUITE_P(SmallCar, SmallCarLength, ::testing::Values(
    Length{0, 160}, Length{-80, 80}, Length{-1000, 80}, Length{340, 500}, Length{1e6, 500}, Length{17.5, 177.5}));

TEST_F(SmallCarTest, PanelSetsLengthHookAndColourWithoutEcho)
{
    ObjPtr o = makeObject(105, true);
    CSVGBase *c = o->content();
    expectShown(c, "idBodyColor=#2e7d32 idShowHook=true idLength=19");
    expectTyped(c, "idLength", {{"100", 500}, {"0", 80}, {"50", 290}, {"49.6", 290}, {"120", 500}, {"short", 500}},
                [&] { return car(o)->length(); });
    EXPECT_TRUE(typeIn(c, "idShowHook", "false"));
    EXPECT_FALSE(node(c, "hook")->isVisible());
    EXPECT_TRUE(typeIn(c, "idBodyColor", "#c62828"));
    EXPECT_EQ(node(c, "body")->fillColor(), QColor("#c62828"));
    const int mark = messageCount();
    drag(c, "control_1", -1000, 0);
    EXPECT_EQ(postedSince(mark), QStringList{"idLength=0"});
}
