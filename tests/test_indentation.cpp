// The indentation: depth and width of the dent from their handles and the panel, the
// dent kept centred and within the block, the texture squeezed under it, what a drag
// posts, and the material.
#include "panel.h"
#include <mechanics/Indentation.h>

namespace {

CIndentation *dent(const ObjPtr &o) { return static_cast<CIndentation *>(o->content()); }

struct IndentationTest : ApparatusTest {};

// The lowest any pore's top stands above the block's bottom, and whether any pore
// pokes above the pressed surface.
bool poresBelowSurface(CIndentation *c)
{
    for (int k = 1; QSvgNode *p = node(c, qPrintable(QStringLiteral("pore_%1").arg(k))); ++k) {
        const double x = p->numAttribute(QStringLiteral("cx")), top = p->numAttribute(QStringLiteral("cy")) -
                                                                      p->numAttribute(QStringLiteral("ry"));
        if (top < 40 + c->sinkAt(x) - 1e-9)
            return false;
    }
    return true;
}

} // namespace

TEST_F(IndentationTest, TypedPercentagesSetDepthAndWidthWithTheDentCentred)
{
    ObjPtr o = makeObject(113, true);
    CSVGBase *c = o->content();
    expectTyped(c, "idDepth", {{"deep", 20}, {"100", 48}, {"0", 0}, {"250", 48}, {"50", 24}},
                [&] { return dent(o)->depth(); });
    expectTyped(c, "idWidth", {{"0", 40}, {"100", 200}, {"-1", 40}, {"24.6", 80}}, [&] { return dent(o)->width(); });
    EXPECT_EQ(dent(o)->depth(), 24);
    EXPECT_EQ(node(c, "control_1")->rect().center(), QPointF(100, 64));
    EXPECT_EQ(node(c, "control_2")->rect().center(), QPointF(140, 40));
    EXPECT_EQ(dent(o)->sinkAt(100), 24);
    EXPECT_TRUE(poresBelowSurface(dent(o)));
    // Sand: another look, round grains, still under the pressed surface.
    const QString sponge = node(c, "material")->attribute("fill");
    EXPECT_TRUE(typeIn(c, "idMaterial", "1"));
    EXPECT_NE(node(c, "material")->attribute("fill"), sponge);
    EXPECT_EQ(num(c, "pore_5", "rx"), num(c, "pore_5", "ry"));
    EXPECT_TRUE(poresBelowSurface(dent(o)));
    EXPECT_FALSE(typeIn(c, "idMaterial", "2"));
}

TEST_F(IndentationTest, NewDentIsCentredAndItsHandlesStopAtTheirEndsPostingTheirOwnValues)
{
    ObjPtr o = makeObject(113, true);
    CSVGBase *c = o->content();
    expectShown(c, "idMaterial=0 idDepth=41 idWidth=37");
    EXPECT_EQ(node(c, "control_1")->rect().center(), QPointF(100, 60));
    EXPECT_EQ(node(c, "control_2")->rect().center(), QPointF(150, 40));
    EXPECT_EQ(dent(o)->sinkAt(100), 20);
    EXPECT_EQ(dent(o)->sinkAt(50), 0);
    EXPECT_EQ(dent(o)->sinkAt(150), 0);
    EXPECT_TRUE(poresBelowSurface(dent(o)));
    int mark = messageCount();
    drag(c, "control_1", 30, 500); // no sideways travel; held at 60 % of the block
    EXPECT_EQ(dent(o)->depth(), 48);
    EXPECT_EQ(postedSince(mark), QStringList{"idDepth=100"});
    mark = messageCount();
    drag(c, "control_2", -500, 20);
    EXPECT_EQ(dent(o)->width(), 40);
    EXPECT_EQ(postedSince(mark), QStringList{"idWidth=0"});
    EXPECT_TRUE(poresBelowSurface(dent(o)));
    mark = messageCount();
    drag(c, "control_1", 0, -500);
    EXPECT_EQ(dent(o)->depth(), 0);
    EXPECT_EQ(dent(o)->sinkAt(100), 0);
    dent(o)->setControlPos(1, 1e9);
    EXPECT_EQ(dent(o)->width(), 200);
    EXPECT_EQ(postedSince(mark), QStringList{"idDepth=0"});
}
