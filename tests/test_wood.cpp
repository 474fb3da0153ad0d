// The wood block: width and height from its corner handle and the panel with the top
// left kept, grain lines that follow the height, the hook, colour, capture and reopening.
#include "panelhelpers.h"
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

TEST_F(WoodTest, NewBlockIsHundredTwentyBySixtyWithItsHook)
{
    ObjPtr o = makeObject(106, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(wood(o)->width(), 120);
    EXPECT_EQ(wood(o)->height(), 60);
    EXPECT_EQ(grainLines(c), 5);
    EXPECT_TRUE(node(c, "hook")->isVisible());
    EXPECT_EQ(shown(c, "idBodyColor"), "#c8a165");
    EXPECT_EQ(shown(c, "idShowHook"), "true");
    EXPECT_EQ(shown(c, "idWidth"), "15");  // (120 - 30) / 570
    EXPECT_EQ(shown(c, "idHeight"), "14"); // (60 - 20) / 280
    EXPECT_EQ(node(c, "control_1")->rect().center(), QPointF(120, 60));
}

TEST_P(WoodDrag, CornerSetsSizeWithinRangeKeepingTheTopLeft)
{
    ObjPtr o = makeObject(106, true);
    CSVGBase *c = o->content();
    drag(c, "control_1", GetParam().by.x(), GetParam().by.y());
    EXPECT_EQ(wood(o)->width(), GetParam().width);
    EXPECT_EQ(wood(o)->height(), GetParam().height);
    EXPECT_EQ(num(c, "block", "x"), 0);
    EXPECT_EQ(num(c, "block", "y"), 0);
    EXPECT_EQ(num(c, "block", "width"), GetParam().width);
    EXPECT_EQ(num(c, "block", "height"), GetParam().height);
    EXPECT_EQ(grainLines(c), GetParam().grain);
    EXPECT_EQ(node(c, "hook")->attribute("transform"),
              QStringLiteral("translate(%1,%2)").arg(GetParam().width).arg(GetParam().height / 2));
}

INSTANTIATE_TEST_SUITE_P(Wood, WoodDrag, ::testing::Values(
    Corner{{0, 0}, 120, 60, 5}, Corner{{-200, -200}, 30, 20, 1}, Corner{{1000, 1000}, 600, 300, 25},
    Corner{{10, -37}, 130, 23, 1}, Corner{{0, -36}, 120, 24, 2}, Corner{{0, -35}, 120, 25, 2},
    Corner{{-0.5, 11.5}, 119.5, 71.5, 5}, Corner{{0, 12}, 120, 72, 6}));

TEST_F(WoodTest, DragPostsWidthAndHeightWhenTheyChange)
{
    ObjPtr o = makeObject(106, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    drag(c, "control_1", 57, 0);
    EXPECT_EQ(postedSince(mark), QStringList{"idWidth=25"});
    mark = messageCount();
    drag(c, "control_1", 0.5, 0.5); // neither percentage changes
    drag(c, "control_1", 0, 28);
    EXPECT_EQ(postedSince(mark), QStringList{"idHeight=24"});
}

TEST_F(WoodTest, PanelSetsSizeHookAndColourEachAsOneUndoStep)
{
    ObjPtr o = makeObject(106, true);
    CSVGBase *c = o->content();
    const int mark = messageCount();
    EXPECT_TRUE(typeIn(c, {{"idWidth", "100"}, {"idHeight", "50.2"}}));
    EXPECT_EQ(wood(o)->width(), 600);
    EXPECT_EQ(wood(o)->height(), 160);
    typeIn(c, "idHeight", "tall"); // refused
    EXPECT_EQ(wood(o)->height(), 160);
    EXPECT_TRUE(typeIn(c, "idShowHook", "false"));
    EXPECT_FALSE(node(c, "hook")->isVisible());
    EXPECT_TRUE(typeIn(c, "idBodyColor", "#8b5a2b"));
    EXPECT_EQ(node(c, "block")->fillColor(), QColor("#8b5a2b"));
    EXPECT_EQ(postedSince(mark), QStringList());
    undoStack()->undo();
    undoStack()->undo();
    EXPECT_TRUE(node(c, "hook")->isVisible());
    undoStack()->undo();
    EXPECT_EQ(wood(o)->width(), 120);
}

TEST_F(WoodTest, RestoreAndReopenGiveTheSameBlock)
{
    ObjPtr o = makeObject(106, true);
    CSVGBase *c = o->content();
    typeIn(c, {{"idBodyColor", "#445566"}, {"idShowHook", "false"}, {"idWidth", "30"}, {"idHeight", "70"}});
    const QString captured = svgText(c);
    capture(c);
    typeIn(c, {{"idBodyColor", "#000000"}, {"idShowHook", "true"}, {"idWidth", "3"}, {"idHeight", "7"}});
    EXPECT_TRUE(c->editRestore());
    EXPECT_TRUE(sameDocument(svgText(c), captured));
    dragInSteps(c, "control_1", QPointF(-41.3, 77.7));
    expectReopensAndDragsAlike(c, "control_1", QPointF(100, -30));
}
