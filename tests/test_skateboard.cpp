// The skateboard: the length its right end and the panel set, the trucks that follow,
// and the deck colour.
#include "panel.h"
#include <QColor>
#include <mechanics/Skateboard.h>

namespace {

CSkateboard *board(const ObjPtr &o) { return static_cast<CSkateboard *>(o->content()); }
double wheelX(CSVGBase *c, const char *id)
{
    const QString t = node(c, id)->attribute("transform");
    return t.mid(10, t.indexOf(QLatin1Char(',')) - 10).toDouble();
}

struct SkateboardTest : ApparatusTest {};

struct Length {
    double by, length;
};
class SkateboardLength : public SkateboardTest, public ::testing::WithParamInterface<Length> {};

} // namespace

TEST_P(SkateboardLength, RightEndSetsTheLengthAndTheTrucksStaySymmetric)
{
    ObjPtr o = makeObject(114, true);
    CSVGBase *c = o->content();
    drag(c, "control_1", GetParam().by, -40); // no vertical travel
    const double l = GetParam().length;
    EXPECT_EQ(board(o)->length(), l);
    EXPECT_EQ(node(c, "control_1")->rect().center().x(), l);
    EXPECT_DOUBLE_EQ(wheelX(c, "wheel_1") + wheelX(c, "wheel_2"), l);
    EXPECT_GT(wheelX(c, "wheel_1"), 15);
    // The deck reaches from 0 to the handle.
    const QRectF deck = node(c, "deck")->transformedBounds();
    EXPECT_NEAR(deck.left(), -1, 1);
    EXPECT_NEAR(deck.right(), l + 1, 1);
}

INSTANTIATE_TEST_SUITE_P(Skateboard, SkateboardLength, ::testing::Values(
    Length{0, 200}, Length{-100, 100}, Length{-500, 100}, Length{400, 600}, Length{9999, 600}, Length{123.25, 323.25}));

TEST_F(SkateboardTest, PanelSetsLengthAndColourWithoutEcho)
{
    ObjPtr o = makeObject(114, true);
    CSVGBase *c = o->content();
    expectShown(c, "idDeckColor=#1565c0 idLength=20");
    expectTyped(c, "idLength", {{"100", 600}, {"0", 100}, {"33", 265}, {"-4", 100}, {"x", 100}},
                [&] { return board(o)->length(); });
    EXPECT_TRUE(typeIn(c, "idDeckColor", "#ef6c00"));
    EXPECT_EQ(node(c, "deck")->fillColor(), QColor("#ef6c00"));
    const int mark = messageCount();
    drag(c, "control_1", 1000, 0);
    EXPECT_EQ(postedSince(mark), QStringList{"idLength=100"});
}
