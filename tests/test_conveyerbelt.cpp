// The conveyor belt: centre distance and roller radius from their handles and the panel,
// the belt round both rollers, the motion arrows and their way, and colour.
#include "panel.h"
#include <QColor>
#include <mechanics/Conveyerbelt.h>

namespace {

Conveyerbelt *belt(const ObjPtr &o) { return static_cast<Conveyerbelt *>(o->content()); }

int arrows(CSVGBase *c, bool visibleOnly)
{
    int n = 0;
    for (int k = 1; QSvgNode *a = node(c, qPrintable(QStringLiteral("arrow_%1").arg(k))); ++k)
        n += !visibleOnly || a->isVisible();
    return n;
}

struct BeltTest : ApparatusTest {};

struct Pull {
    const char *handle;
    QPointF by;
    double distance, radius;
    int arrows;
};
class BeltDrag : public BeltTest, public ::testing::WithParamInterface<Pull> {};

} // namespace

TEST_P(BeltDrag, HandlesSetDistanceAndRadiusWithinRangeKeepingTheCentres)
{
    ObjPtr o = makeObject(103, true);
    CSVGBase *c = o->content();
    drag(c, GetParam().handle, GetParam().by.x(), GetParam().by.y());
    const double d = GetParam().distance, r = GetParam().radius;
    EXPECT_EQ(belt(o)->distance(), d);
    EXPECT_EQ(belt(o)->radius(), r);
    EXPECT_EQ(node(c, "control_1")->rect().center(), QPointF(40 + d, 60));
    EXPECT_EQ(node(c, "control_2")->rect().center(), QPointF(40, 60 - r));
    EXPECT_EQ(node(c, "roller_2")->attribute("transform"), QStringLiteral("translate(%1,60)").arg(40 + d));
    EXPECT_EQ(num(c, "drum_1", "r"), r);
    EXPECT_EQ(num(c, "drum_2", "r"), r);
    EXPECT_EQ(arrows(c, true), GetParam().arrows);
    EXPECT_TRUE(node(c, "belt")->attribute("d").contains(QStringLiteral("A%1,%1 ").arg(r + 2))); // round the rollers
    EXPECT_LT(2 * r, d); // the rollers never touch
}

INSTANTIATE_TEST_SUITE_P(Conveyerbelt, BeltDrag, ::testing::Values(
    Pull{"control_1", {60, 30}, 300, 25, 3}, Pull{"control_1", {-1000, 0}, 80, 25, 1},
    Pull{"control_1", {1000, 0}, 1000, 25, 10}, Pull{"control_1", {-40.5, 0}, 199.5, 25, 1},
    Pull{"control_2", {20, -100}, 240, 35, 2}, Pull{"control_2", {0, 100}, 240, 10, 2},
    Pull{"control_2", {0, -3.25}, 240, 28.25, 2}));

TEST_F(BeltTest, DirectionTurnsOrHidesTheArrowsAndColourPaintsTheBelt)
{
    ObjPtr o = makeObject(103, true);
    CSVGBase *c = o->content();
    expectShown(c, "idBeltDirection=1 idBeltColor=#3c3c3c idLength=17 idRadius=60");
    EXPECT_EQ(arrows(c, true), 2);
    EXPECT_TRUE(typeIn(c, "idBeltDirection", "2"));
    EXPECT_TRUE(node(c, "arrow_2")->attribute("transform").endsWith("scale(-1,1)"));
    EXPECT_TRUE(typeIn(c, "idBeltDirection", "0"));
    EXPECT_EQ(arrows(c, true), 0);
    EXPECT_FALSE(typeIn(c, "idBeltDirection", "3"));
    drag(c, "control_1", 500, 0); // new arrows stay hidden
    EXPECT_EQ(arrows(c, true), 0);
    EXPECT_EQ(arrows(c, false), 7);
    EXPECT_TRUE(typeIn(c, "idBeltColor", "#6d4c41"));
    EXPECT_EQ(node(c, "belt")->strokeColor(), QColor("#6d4c41"));
}

TEST_F(BeltTest, PanelPercentagesAreHeldAndDragsPostOnlyTheirOwn)
{
    ObjPtr o = makeObject(103, true);
    CSVGBase *c = o->content();
    expectTyped(c, "idLength", {{"100", 1000}, {"-7", 80}, {"50", 540}}, [&] { return belt(o)->distance(); });
    expectTyped(c, "idRadius", {{"0", 10}, {"170", 35}, {"fat", 35}}, [&] { return belt(o)->radius(); });
    const int mark = messageCount();
    drag(c, "control_2", 0, 5);
    EXPECT_EQ(postedSince(mark), QStringList{"idRadius=80"});
}
