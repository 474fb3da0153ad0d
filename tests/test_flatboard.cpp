// The flat board: length and thickness from their handles and the panel, the bench
// edge that never moves, the surface looks, what a drag posts, capture and reopening.
#include "panelhelpers.h"
#include <QColor>
#include <mechanics/FlatBoard.h>

namespace {

CFlatBoard *board(const ObjPtr &o) { return static_cast<CFlatBoard *>(o->content()); }
double bottomEdge(CSVGBase *c) { return num(c, "board", "y") + num(c, "board", "height"); }

struct FlatBoardTest : ApparatusTest {};

struct Typed {
    const char *key, *text;
    double length, thickness;
    const char *shownLength, *shownThickness;
};

class FlatBoardTyped : public FlatBoardTest, public ::testing::WithParamInterface<Typed> {};

} // namespace

TEST_F(FlatBoardTest, NewBoardIsThreeHundredByTwentyWithHandlesOnItsEdges)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(board(o)->length(), 300);
    EXPECT_EQ(board(o)->thickness(), 20);
    EXPECT_EQ(num(c, "board", "width"), 300);
    EXPECT_EQ(num(c, "board", "height"), 20);
    EXPECT_EQ(shown(c, "idSurface"), "1");
    EXPECT_EQ(shown(c, "idLength"), "25");   // (300 - 60) / 940
    EXPECT_EQ(shown(c, "idThickness"), "25"); // (20 - 6) / 54
    const QRectF b(num(c, "board", "x"), num(c, "board", "y"), 300, 20);
    EXPECT_EQ(node(c, "control_1")->rect().center(), QPointF(b.right(), b.center().y()));
    EXPECT_EQ(node(c, "control_2")->rect().center(), QPointF(b.center().x(), b.top()));
    EXPECT_TRUE(node(c, "surface"));
}

TEST_P(FlatBoardTyped, TypedPercentageSetsTheQuantityWithinItsRange)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    const double bottom = bottomEdge(c);
    const int mark = messageCount();
    typeIn(c, GetParam().key, GetParam().text);
    EXPECT_DOUBLE_EQ(board(o)->length(), GetParam().length);
    EXPECT_DOUBLE_EQ(board(o)->thickness(), GetParam().thickness);
    EXPECT_EQ(shown(c, "idLength"), GetParam().shownLength);
    EXPECT_EQ(shown(c, "idThickness"), GetParam().shownThickness);
    EXPECT_DOUBLE_EQ(bottomEdge(c), bottom); // it rests on the bench
    EXPECT_EQ(postedSince(mark), QStringList()); // a typed value is not echoed
}

INSTANTIATE_TEST_SUITE_P(FlatBoard, FlatBoardTyped, ::testing::Values(
    Typed{"idLength", "0", 60, 20, "0", "25"}, Typed{"idLength", "100", 1000, 20, "100", "25"},
    Typed{"idLength", "29", 332.6, 20, "29", "25"}, Typed{"idLength", "49.6", 530, 20, "50", "25"},
    Typed{"idLength", "250", 1000, 20, "100", "25"}, Typed{"idLength", "-3", 60, 20, "0", "25"},
    Typed{"idLength", "long", 300, 20, "25", "25"}, Typed{"idLength", "nan", 300, 20, "25", "25"},
    Typed{"idThickness", "0", 300, 6, "25", "0"}, Typed{"idThickness", "100", 300, 60, "25", "100"},
    Typed{"idThickness", "50", 300, 33, "25", "50"}, Typed{"idThickness", "", 300, 20, "25", "25"}));

TEST_F(FlatBoardTest, EachHandlePostsItsOwnValueOnlyAndSetControlPosPostsNothing)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    drag(c, "control_1", 94, 40); // no vertical travel
    EXPECT_EQ(postedSince(mark), QStringList{"idLength=35"});
    EXPECT_EQ(board(o)->length(), 394);
    // The thickness handle stays at the middle of the top edge.
    EXPECT_EQ(node(c, "control_2")->rect().center().x(), 197);

    mark = messageCount();
    drag(c, "control_2", 30, -27);
    EXPECT_EQ(postedSince(mark), QStringList{"idThickness=75"});
    EXPECT_EQ(board(o)->thickness(), 47);
    EXPECT_EQ(node(c, "control_1")->rect().center().y(), bottomEdge(c) - 23.5);

    mark = messageCount();
    drag(c, "control_2", 0, -500); // past the top: held to 60
    drag(c, "control_2", 0, -5);   // nothing left to move: nothing posted
    EXPECT_EQ(postedSince(mark), QStringList{"idThickness=100"});
    EXPECT_EQ(board(o)->thickness(), 60);

    mark = messageCount();
    board(o)->setControlPos(0, board(o)->getControlPos(0) - 100);
    EXPECT_EQ(board(o)->length(), 294);
    board(o)->posChangedByControl(0);
    EXPECT_EQ(postedSince(mark), QStringList{"idLength=24"});
}

TEST_F(FlatBoardTest, IndexedSlotsReadAndMoveTheirHandles)
{
    ObjPtr o = makeObject(100, true);
    CFlatBoard *b = board(o);
    EXPECT_EQ(b->getControlPos(0), node(b, "control_1")->rect().x());
    EXPECT_EQ(b->getControlPos(1), node(b, "control_2")->rect().y());
    b->setControlPos(1, b->getControlPos(1) + 10);
    EXPECT_EQ(b->thickness(), 10);
    b->setControlPos(1, 1e9); // held to the handle's travel
    EXPECT_EQ(b->thickness(), 6);
    b->setControlPos(0, -1e9);
    EXPECT_EQ(b->length(), 60);
    b->setControlPos(2, 0);
    EXPECT_EQ(b->getControlPos(7), 0);
    EXPECT_EQ(b->length(), 60);
}

TEST_F(FlatBoardTest, SurfaceChoiceShowsItsLookAndIsOneUndoStep)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    auto looks = [&]() {
        return QStringList{node(c, "surface")->attribute("fill"), node(c, "gloss")->isVisible() ? "gloss" : "",
                           node(c, "hatch_a")->isVisible() && node(c, "hatch_b")->isVisible() ? "hatch" : ""};
    };
    EXPECT_EQ(looks(), (QStringList{"url(#fb_planed)", "", ""}));
    EXPECT_TRUE(typeIn(c, "idSurface", "0"));
    EXPECT_EQ(looks(), (QStringList{"url(#fb_glass)", "gloss", ""}));
    EXPECT_TRUE(typeIn(c, "idSurface", "2"));
    EXPECT_EQ(looks(), (QStringList{"#8E9A70", "", "hatch"}));
    EXPECT_EQ(undoStack()->count(), 2);
    for (const char *refused : {"3", "-1", "cloth"})
        EXPECT_FALSE(typeIn(c, "idSurface", refused)) << refused;
    EXPECT_EQ(shown(c, "idSurface"), "2");
    undoStack()->undo();
    EXPECT_EQ(looks(), (QStringList{"url(#fb_glass)", "gloss", ""}));
    // The host's colour leaves the surface its own look.
    QByteArray red;
    QDataStream out(&red, QIODevice::WriteOnly);
    out << QColor(Qt::red);
    EXPECT_TRUE(c->editAttribute(CSVGBase::PROP_COLOR, red));
    EXPECT_EQ(looks(), (QStringList{"url(#fb_glass)", "gloss", ""}));
}

TEST_F(FlatBoardTest, RestorePutsBackSurfaceLengthAndThickness)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    typeIn(c, {{"idSurface", "2"}, {"idLength", "70"}, {"idThickness", "10"}});
    const QString captured = svgText(c);
    capture(c);
    typeIn(c, {{"idSurface", "0"}, {"idLength", "5"}, {"idThickness", "90"}});
    const int mark = messageCount();
    EXPECT_TRUE(c->editRestore());
    EXPECT_EQ(svgText(c), captured);
    EXPECT_EQ(postedSince(mark), QStringList());
    undoStack()->undo();
    EXPECT_EQ(shown(c, "idLength"), "5");
}

TEST_F(FlatBoardTest, ReopensExactlyAndDragsAlikeAfterwards)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    typeIn(c, "idSurface", "0");
    dragInSteps(c, "control_1", QPointF(333.3, 0));
    dragInSteps(c, "control_2", QPointF(0, -17.25));
    expectReopensAndDragsAlike(c, "control_2", QPointF(0, 9));
    expectReopensAndDragsAlike(c, "control_1", QPointF(-500, 0));
}
