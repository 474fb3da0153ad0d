// The indentation: depth and width of the dent from their handles and the panel, the
// dent kept centred and within the block, the texture squeezed under it, what a drag
// posts, the material, capture and reopening.
#include "panelhelpers.h"
#include <mechanics/Indentation.h>

namespace {

CIndentation *dent(const ObjPtr &o) { return static_cast<CIndentation *>(o->content()); }

struct IndentationTest : ApparatusTest {};

struct Typed {
    const char *key, *text;
    double depth, width;
};
class IndentationTyped : public IndentationTest, public ::testing::WithParamInterface<Typed> {};

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

TEST_F(IndentationTest, NewSpongeHasACentredDentTwentyDeepAndHundredWide)
{
    ObjPtr o = makeObject(113, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(dent(o)->depth(), 20);
    EXPECT_EQ(dent(o)->width(), 100);
    EXPECT_EQ(node(c, "control_1")->rect().center(), QPointF(100, 60));
    EXPECT_EQ(node(c, "control_2")->rect().center(), QPointF(150, 40));
    EXPECT_EQ(shown(c, "idMaterial"), "0");
    EXPECT_EQ(shown(c, "idDepth"), "41"); // 20 of 48
    EXPECT_EQ(shown(c, "idWidth"), "37"); // (100 - 40) of 160
    EXPECT_EQ(dent(o)->sinkAt(100), 20);
    EXPECT_EQ(dent(o)->sinkAt(50), 0);
    EXPECT_EQ(dent(o)->sinkAt(150), 0);
    EXPECT_TRUE(node(c, "pore_96"));
    EXPECT_TRUE(poresBelowSurface(dent(o)));
}

TEST_P(IndentationTyped, TypedPercentagesSetDepthAndWidthWithinTheirRanges)
{
    ObjPtr o = makeObject(113, true);
    CSVGBase *c = o->content();
    const int mark = messageCount();
    typeIn(c, GetParam().key, GetParam().text);
    EXPECT_DOUBLE_EQ(dent(o)->depth(), GetParam().depth);
    EXPECT_DOUBLE_EQ(dent(o)->width(), GetParam().width);
    // The dent stays centred: the bottom handle under the middle, the edge on the surface.
    EXPECT_EQ(node(c, "control_1")->rect().center().x(), 100);
    EXPECT_DOUBLE_EQ(node(c, "control_2")->rect().center().x(), 100 + GetParam().width / 2);
    EXPECT_TRUE(poresBelowSurface(dent(o)));
    EXPECT_EQ(postedSince(mark), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Indentation, IndentationTyped, ::testing::Values(
    Typed{"idDepth", "100", 48, 100}, Typed{"idDepth", "0", 0, 100}, Typed{"idDepth", "50", 24, 100},
    Typed{"idDepth", "250", 48, 100}, Typed{"idDepth", "deep", 20, 100}, Typed{"idWidth", "0", 20, 40},
    Typed{"idWidth", "100", 20, 200}, Typed{"idWidth", "24.6", 20, 80}, Typed{"idWidth", "-1", 20, 40}));

TEST_F(IndentationTest, HandlesStopAtTheirEndsAndEachPostsItsOwnValue)
{
    ObjPtr o = makeObject(113, true);
    CSVGBase *c = o->content();
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

TEST_F(IndentationTest, SandLooksDifferentAndTheChoiceIsOneUndoStep)
{
    ObjPtr o = makeObject(113, true);
    CSVGBase *c = o->content();
    const QString sponge = node(c, "material")->attribute("fill");
    EXPECT_TRUE(typeIn(c, "idMaterial", "1"));
    EXPECT_NE(node(c, "material")->attribute("fill"), sponge);
    EXPECT_EQ(num(c, "pore_5", "rx"), num(c, "pore_5", "ry")); // grains are round
    EXPECT_FALSE(typeIn(c, "idMaterial", "2"));
    undoStack()->undo();
    EXPECT_EQ(node(c, "material")->attribute("fill"), sponge);
}

TEST_F(IndentationTest, RestoreAndReopenGiveTheSameDent)
{
    ObjPtr o = makeObject(113, true);
    CSVGBase *c = o->content();
    typeIn(c, {{"idMaterial", "1"}, {"idDepth", "80"}, {"idWidth", "10"}});
    const QString captured = svgText(c);
    capture(c);
    typeIn(c, {{"idMaterial", "0"}, {"idDepth", "5"}, {"idWidth", "95"}});
    EXPECT_TRUE(c->editRestore());
    EXPECT_TRUE(sameDocument(svgText(c), captured));
    dragInSteps(c, "control_2", QPointF(33.3, 0));
    expectReopensAndDragsAlike(c, "control_1", QPointF(0, -7.7));
    expectReopensAndDragsAlike(c, "control_2", QPointF(-61, 0));
}
