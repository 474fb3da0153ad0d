// The skateboard: the length its right end and the panel set, the trucks that follow,
// the deck colour, capture and reopening.
#include "panelhelpers.h"
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

TEST_F(SkateboardTest, NewBoardIsTwoHundredLongInBlue)
{
    ObjPtr o = makeObject(114, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(board(o)->length(), 200);
    EXPECT_EQ(shown(c, "idDeckColor"), "#1565c0");
    EXPECT_EQ(shown(c, "idLength"), "20"); // (200 - 100) / 500
    EXPECT_EQ(node(c, "control_1")->rect().center().x(), 200);
    EXPECT_TRUE(node(c, "deck"));
}

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

TEST_F(SkateboardTest, PanelSetsLengthAndColourAsUndoSteps)
{
    ObjPtr o = makeObject(114, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    for (const auto &t : QVector<QPair<QString, double>>{{"100", 600}, {"0", 100}, {"33", 265}, {"-4", 100}, {"x", 100}}) {
        typeIn(c, "idLength", t.first);
        EXPECT_EQ(board(o)->length(), t.second) << qPrintable(t.first);
    }
    EXPECT_TRUE(typeIn(c, "idDeckColor", "#ef6c00"));
    EXPECT_EQ(node(c, "deck")->fillColor(), QColor("#ef6c00"));
    EXPECT_EQ(postedSince(mark), QStringList());
    undoStack()->undo();
    EXPECT_EQ(node(c, "deck")->fillColor(), QColor("#1565c0"));
    undoStack()->undo();
    EXPECT_EQ(board(o)->length(), 265);
    mark = messageCount();
    drag(c, "control_1", 1000, 0);
    EXPECT_EQ(postedSince(mark), QStringList{"idLength=100"});
}

TEST_F(SkateboardTest, RestoreAndReopenGiveTheSameBoard)
{
    ObjPtr o = makeObject(114, true);
    CSVGBase *c = o->content();
    typeIn(c, {{"idDeckColor", "#6a1b9a"}, {"idLength", "47"}});
    const QString captured = svgText(c);
    capture(c);
    typeIn(c, {{"idDeckColor", "#000000"}, {"idLength", "1"}});
    EXPECT_TRUE(c->editRestore());
    EXPECT_TRUE(sameDocument(svgText(c), captured));
    dragInSteps(c, "control_1", QPointF(-45.5, 0));
    expectReopensAndDragsAlike(c, "control_1", QPointF(88.1, 0));
}
