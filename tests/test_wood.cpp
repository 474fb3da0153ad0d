// The wood block: width and height from its corner handle and the panel with the top
// left kept, grain lines that follow the height, the hook and colour.
#include "panel.h"
#include <QColor>
#include <mechanics/Wood.h>

namespace {

CWood *wood(const ObjPtr &o) { return static_cast<CWood *>(o->content()); }

int grainLines(CSVGBase *c)
{
    int n = 0;
    while (node(c, qPrintable(QStringLiteral("grain_%1").arg(n + 1))))
        ++n;
    return n;
}

struct WoodTest : ApparatusTest {};

struct Corner {
    QPointF by;
    double width, height;
    int grain;
};
class WoodDrag : public WoodTest, public ::testing::WithParamInterface<Corner> {};

} // namespace

TEST_P(WoodDrag, CornerSetsSizeWithinRangeKeepingTheTopLeft)
{
    ObjPtr o = makeObject(106, true);
    CSVGBase *c = o->content();
    drag(c, "control_1", GetParam().by.x(), GetParam().by.y());
    EXPECT_EQ(QRectF(num(c, "block", "x"), num(c, "block", "y"), num(c, "block", "width"), num(c, "block", "height")),
              QRectF(0, 0, GetParam().width, GetParam().height));
    EXPECT_EQ(grainLines(c), GetParam().grain);
    EXPECT_EQ(node(c, "hook")->attribute("transform"),
              QStringLiteral("translate(%1,%2)").arg(GetParam().width).arg(GetParam().height / 2));
}

INSTANTIATE_TEST_SUITE_P(Wood, WoodDrag, ::testing::Values(
    Corner{{0, 0}, 120, 60, 5}, Corner{{-200, -200}, 30, 20, 1}, Corner{{1000, 1000}, 600, 300, 25},
    Corner{{10, -37}, 130, 23, 1}, Corner{{0, -36}, 120, 24, 2}, Corner{{0, -35}, 120, 25, 2},
    Corner{{-0.5, 11.5}, 119.5, 71.5, 5}, Corner{{0, 12}, 120, 72, 6}));

TEST_F(WoodTest, DragPostsWidthAndHeightWhenTheyChangeAndThePanelSetsThem)
{
    ObjPtr o = makeObject(106, true);
    CSVGBase *c = o->content();
    expectShown(c, "idBodyColor=#c8a165 idShowHook=true idWidth=15 idHeight=14");
    int mark = messageCount();
    drag(c, "control_1", 57, 0);
    EXPECT_EQ(postedSince(mark), QStringList{"idWidth=25"});
    mark = messageCount();
    drag(c, "control_1", 0.5, 28.5); // the width's percentage stays
    EXPECT_EQ(postedSince(mark), QStringList{"idHeight=24"});
    expectTyped(c, "idWidth", {{"100", 600}, {"-1", 30}}, [&] { return wood(o)->width(); });
    expectTyped(c, "idHeight", {{"50.2", 160}, {"tall", 160}}, [&] { return wood(o)->height(); });
    EXPECT_EQ(grainLines(c), 13);
    EXPECT_TRUE(typeIn(c, "idShowHook", "false"));
    EXPECT_FALSE(node(c, "hook")->isVisible());
    EXPECT_TRUE(typeIn(c, "idBodyColor", "#8b5a2b"));
    EXPECT_EQ(node(c, "block")->fillColor(), QColor("#8b5a2b"));
}
