// The circular groove: the radius its rim handle and the panel set about a fixed centre,
// the three shapes with the handle on the rim of each, and colour.
#include "panel.h"
#include <QColor>
#include <mechanics/CircularGroove.h>

namespace {

CircularGroove *groove(const ObjPtr &o) { return static_cast<CircularGroove *>(o->content()); }
const QPointF kCentre(360, 10);

struct GrooveTest : ApparatusTest {};

struct Case {
    int shape;
    double dragBy, radius;
};
class GrooveShapes : public GrooveTest, public ::testing::WithParamInterface<Case> {};

} // namespace

TEST_P(GrooveShapes, RimHandleSetsTheRadiusOnItsShapesSide)
{
    ObjPtr o = makeObject(112, true);
    CSVGBase *c = o->content();
    typeIn(c, "idGrooveShape", QString::number(GetParam().shape));
    const double side = GetParam().shape == 1 ? -1 : 1;
    EXPECT_EQ(node(c, "control_1")->rect().center(), kCentre + QPointF(side * 80, 0)); // the radius is kept
    drag(c, "control_1", GetParam().dragBy, 20);
    const double r = GetParam().radius;
    EXPECT_EQ(groove(o)->radius(), r);
    EXPECT_EQ(node(c, "control_1")->rect().center(), kCentre + QPointF(side * r, 0));
    // The track ends on the rim at the handle and, for a quarter, at the bottom.
    const QString d = node(c, "track")->attribute("d");
    EXPECT_TRUE(d.contains(QStringLiteral("%1,10").arg(kCentre.x() + side * r))) << qPrintable(d);
    if (GetParam().shape != 0) {
        EXPECT_TRUE(d.contains(QStringLiteral("360,%1").arg(10 + r))) << qPrintable(d);
    }
    const QRectF b = groove(o)->block();
    EXPECT_EQ(b.top(), 10);
    EXPECT_GT(b.bottom(), 10 + r);
    EXPECT_EQ(b.left() < kCentre.x(), GetParam().shape != 2);
    EXPECT_EQ(b.right() > kCentre.x(), GetParam().shape != 1);
}

INSTANTIATE_TEST_SUITE_P(CircularGroove, GrooveShapes, ::testing::Values(
    Case{0, 40, 120}, Case{0, -1000, 20}, Case{0, 1000, 300}, Case{1, -40, 120}, Case{1, 40, 40},
    Case{1, -1000, 300}, Case{1, 1000, 20}, Case{2, 12.5, 92.5}, Case{2, -70, 20}));

TEST_F(GrooveTest, TypedRadiusKeepsItsShapesSideAndADragPostsIt)
{
    ObjPtr o = makeObject(112, true);
    CSVGBase *c = o->content();
    expectShown(c, "idGrooveShape=0 idBlockColor=#c8a165 idRadius=21");
    int mark = messageCount();
    drag(c, "control_1", 60, 0);
    EXPECT_EQ(postedSince(mark), QStringList{"idRadius=42"}); // 140
    typeIn(c, "idGrooveShape", "1");
    expectTyped(c, "idRadius", {{"100", 300}, {"50", 160}, {"wide", 160}, {"-9", 20}, {"24.6", 90}},
                [&] { return groove(o)->radius(); });
    EXPECT_EQ(node(c, "control_1")->rect().center(), kCentre - QPointF(90, 0));
    EXPECT_FALSE(typeIn(c, "idGrooveShape", "3"));
    EXPECT_TRUE(typeIn(c, "idBlockColor", "#9ea7b0"));
    EXPECT_EQ(node(c, "groove")->fillColor(), QColor("#9ea7b0"));
}
