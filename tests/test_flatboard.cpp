// The flat board: length and thickness from their handles and the panel, the bench
// edge that never moves, the surface looks, and what a drag posts.
#include "panel.h"
#include <QColor>
#include <mechanics/FlatBoard.h>

namespace {

CFlatBoard *board(const ObjPtr &o) { return static_cast<CFlatBoard *>(o->content()); }
double bottomEdge(CSVGBase *c) { return num(c, "board", "y") + num(c, "board", "height"); }

struct FlatBoardTest : ApparatusTest {};

} // namespace

TEST_F(FlatBoardTest, TypedPercentagesSetLengthAndThicknessOnTheBench)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    expectShown(c, "idSurface=1 idLength=25 idThickness=25");
    const double bottom = bottomEdge(c);
    expectTyped(c, "idLength", {{"0", 60}, {"100", 1000}, {"29", 332.6}, {"49.6", 530}, {"250", 1000}, {"-3", 60},
                                {"long", 60}, {"nan", 60}},
                [&] { return board(o)->length(); });
    expectTyped(c, "idThickness", {{"0", 6}, {"100", 60}, {"50", 33}, {"", 33}}, [&] { return board(o)->thickness(); });
    EXPECT_DOUBLE_EQ(bottomEdge(c), bottom); // it rests on the bench
    EXPECT_EQ(node(c, "control_2")->rect().center(), QPointF(30, bottom - 33));
}

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
    board(o)->setControlPos(0, board(o)->getControlPos(0) - 100);
    EXPECT_EQ(board(o)->length(), 294);
    board(o)->setControlPos(1, 1e9); // held to the handle's travel
    EXPECT_EQ(board(o)->thickness(), 6);
    board(o)->setControlPos(2, 0); // no such slot
    EXPECT_EQ(postedSince(mark), QStringList());
    board(o)->posChangedByControl(0);
    EXPECT_EQ(postedSince(mark), QStringList{"idLength=24"});
}

TEST_F(FlatBoardTest, SurfaceChoiceShowsItsLookUnderAnyHostColour)
{
    ObjPtr o = makeObject(100, true);
    CSVGBase *c = o->content();
    auto looks = [&]() {
        return QStringList{node(c, "surface")->attribute("fill"), node(c, "gloss")->isVisible() ? "gloss" : "",
                           node(c, "hatch_a")->isVisible() && node(c, "hatch_b")->isVisible() ? "hatch" : ""};
    };
    EXPECT_EQ(looks(), (QStringList{"url(#fb_planed)", "", ""}));
    EXPECT_TRUE(typeIn(c, "idSurface", "2"));
    EXPECT_EQ(looks(), (QStringList{"#8E9A70", "", "hatch"}));
    EXPECT_TRUE(typeIn(c, "idSurface", "0"));
    EXPECT_EQ(looks(), (QStringList{"url(#fb_glass)", "gloss", ""}));
    for (const char *refused : {"3", "-1", "cloth"})
        EXPECT_FALSE(typeIn(c, "idSurface", refused)) << refused;
    QByteArray red;
    QDataStream out(&red, QIODevice::WriteOnly);
    out << QColor(Qt::red);
    EXPECT_TRUE(c->editAttribute(CSVGBase::PROP_COLOR, red));
    EXPECT_EQ(looks(), (QStringList{"url(#fb_glass)", "gloss", ""}));
}
