// The wire: its curve from the four handles, the item spanning them, undo and persistence.
#include "helpers.h"
#include <QUndoStack>
#include <electromagnetism/Wire.h>
#include <svgobj.h>

namespace {

QString pathData(const ObjPtr &o) { return node(o->content(), "path")->attribute("d"); }
QRectF viewBox(const ObjPtr &o) { return o->content()->document()->viewBox(); }

QRectF handleSpan(const ObjPtr &o)
{
    QRectF r;
    for (QSvgNode *h : o->content()->controlNodes())
        r = r.isNull() ? h->rect() : r.united(h->rect());
    return r;
}

struct WireTest : ::testing::Test {
    void SetUp() override { GetFramework()->undoStack()->clear(); }
};

} // namespace

TEST_F(WireTest, NewWireRunsThroughTheHandleCentres)
{
    ObjPtr o = makeObject(500, true);
    EXPECT_EQ(pathData(o), "M4,4C4,96,96,4,96,96");
    EXPECT_EQ(viewBox(o), QRectF(0, 0, 100, 100));
    EXPECT_EQ(o->itemSize(), QSizeF(100, 100));
    EXPECT_EQ(o->content()->controlNodes().size(), 4);
    EXPECT_EQ(o->content()->getPropName(5002), "IDS_SVG_PHYSICAL_COLOR");
    EXPECT_EQ(o->content()->getSVGType(), 500);
}

TEST_F(WireTest, DraggingTheEndWidensTheItem)
{
    ObjPtr o = makeObject(500, true);
    EXPECT_EQ(drag(o->content(), "control_4", 100, 0), QPointF(100, 0));
    EXPECT_EQ(pathData(o), "M4,4C4,96,96,4,196,96");
    EXPECT_EQ(viewBox(o), QRectF(0, 0, 200, 100));
    EXPECT_DOUBLE_EQ(o->itemSize().width(), 200);
}

TEST_F(WireTest, OnlyTheFourHandlesAreHandled)
{
    ObjPtr o = makeObject(500);
    const QString d = pathData(o);
    EXPECT_FALSE(o->content()->updateSVG(node(o->content(), "path"), QPointF(5, 5), true));
    EXPECT_FALSE(o->content()->updateSVG(o->content()->document(), QPointF(5, 5), true));
    EXPECT_FALSE(o->content()->updateSVG(nullptr, QPointF(5, 5), true));
    EXPECT_EQ(pathData(o), d);
}

// Handles dragged across each other, beyond the first corner: the item still spans
// all four and the curve stays a single cubic.
TEST_F(WireTest, CrossedHandlesStillSpanTheItem)
{
    ObjPtr o = makeObject(500, true);
    drag(o->content(), "control_1", 150, 40);
    drag(o->content(), "control_4", -150, -40);
    drag(o->content(), "control_2", 120, -130);
    drag(o->content(), "control_3", -180, 190);
    EXPECT_EQ(pathData(o), "M154,44C124,-34,-84,194,-54,56");
    EXPECT_EQ(viewBox(o), handleSpan(o));
    // Drags stop at the bounds (-200 to 300) however far they go.
    drag(o->content(), "control_3", -1e9, 1e9);
    EXPECT_EQ(node(o->content(), "control_3")->rect().topLeft(), QPointF(-200, 300));
    EXPECT_EQ(viewBox(o), handleSpan(o));
    EXPECT_EQ(pathData(o), "M154,44C124,-34,-196,304,-54,56");
}

