// The distance marker: two free ends, the end styles, the upright label on the left of
// the line.
#include "panel.h"
#include <mechanics/Distance.h>

namespace {

void moveEnd(const ObjPtr &o, const char *handle, QPointF to)
{
    CSVGBase *c = o->content();
    c->moveControlPoint(node(c, handle), to - handleCentre(c, handle), true);
}

struct Distance : ApparatusTest {};

} // namespace

class DistanceDirection : public Distance, public ::testing::WithParamInterface<QPointF> {};

// Wherever the second end goes, the label stays upright, on the left of the way from the
// first end to the second, clear of the line.
TEST_P(DistanceDirection, LabelStaysUprightOnTheLeftOfTheLine)
{
    ObjPtr o = makeObject(201, true);
    CSVGBase *c = o->content();
    typeIn(c, "idLabelText", "d = 2 m");
    const QPointF a = handleCentre(c, "control_1");
    moveEnd(o, "control_2", a + GetParam());
    const QPointF b = handleCentre(c, "control_2");
    ASSERT_EQ(b - a, GetParam());
    const QPointF dir = (b - a) / std::hypot(GetParam().x(), GetParam().y());
    const QPointF left(dir.y(), -dir.x());
    QSvgNode *label = node(c, "label");
    EXPECT_TRUE(label->documentTransform().isIdentity());
    const QRectF box = label->rect();
    EXPECT_GT(QPointF::dotProduct(box.center() - (a + b) / 2, left), 10);
    // Every corner of its box well clear of the line (the box takes in the descenders).
    for (const QPointF &corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()})
        EXPECT_GT(QPointF::dotProduct(corner - a, left), 5);
    // The bars stand across the line at its ends.
    const QLineF bar(node(c, "end_2")->numAttribute("x1"), node(c, "end_2")->numAttribute("y1"),
                     node(c, "end_2")->numAttribute("x2"), node(c, "end_2")->numAttribute("y2"));
    EXPECT_NEAR(QPointF::dotProduct(bar.p2() - bar.p1(), dir), 0, 1e-9);
    EXPECT_NEAR(bar.center().x(), b.x(), 1e-9);
    EXPECT_NEAR(bar.center().y(), b.y(), 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Distance, DistanceDirection,
                         ::testing::Values(QPointF(200, 0), QPointF(-200, 0), QPointF(0, 150), QPointF(0, -150),
                                           QPointF(120, -90), QPointF(-70, 240), QPointF(-300, -40)));

TEST_F(Distance, EndsMoveFreelyAThousandUnitsEachWay)
{
    ObjPtr o = makeObject(201, true);
    CSVGBase *c = o->content();
    const QPointF a = handleCentre(c, "control_1"), b = handleCentre(c, "control_2");
    EXPECT_EQ(b - a, QPointF(200, 0));  // level and 200 long when new
    EXPECT_EQ(node(c, "label")->text(), "s");
    moveEnd(o, "control_1", a + QPointF(-5000, 5000));
    EXPECT_EQ(handleCentre(c, "control_1"), a + QPointF(-1000, 1000));
    moveEnd(o, "control_2", b + QPointF(5000, -5000));
    EXPECT_EQ(handleCentre(c, "control_2"), b + QPointF(1000, -1000));
    // Ends on one spot draw a level marker, not a broken one.
    moveEnd(o, "control_2", handleCentre(c, "control_1"));
    EXPECT_FALSE(svgText(c).contains("nan"));
    EXPECT_NEAR(node(c, "end_1")->numAttribute("x1"), node(c, "end_1")->numAttribute("x2"), 1e-9);
}

struct StyleCase {
    const char *index;
    bool arrows, bars;
    int records;  // a choice the combo box does not offer changes nothing
};
void PrintTo(const StyleCase &s, std::ostream *os) { *os << s.index; }

class DistanceEnds : public Distance, public ::testing::WithParamInterface<StyleCase> {};

TEST_P(DistanceEnds, StyleShowsArrowsOrBars)
{
    ObjPtr o = makeObject(201, true);
    CSVGBase *c = o->content();
    typeIn(c, "idEndStyle", GetParam().index);
    for (const char *id : {"arrow_1", "arrow_2"})
        EXPECT_EQ(node(c, id)->isVisible(), GetParam().arrows) << id;
    for (const char *id : {"end_1", "end_2"})
        EXPECT_EQ(node(c, id)->isVisible(), GetParam().bars) << id;
    EXPECT_EQ(GetFramework()->records().size(), GetParam().records);
}

INSTANTIATE_TEST_SUITE_P(Distance, DistanceEnds,
                         ::testing::Values(StyleCase{"0", true, true, 0}, StyleCase{"1", true, false, 1},
                                           StyleCase{"2", false, true, 1}, StyleCase{"3", true, true, 0},
                                           StyleCase{"-1", true, true, 0}));
