// The lever: tilt and holes per side from the right end's handle and from the panel,
// the holes placed at equal pitch with none at the pivot, and what a drag posts.
#include "panel.h"
#include <QColor>
#include <cmath>
#include <mechanics/Lever.h>

namespace {

CLever *lever(const ObjPtr &o) { return static_cast<CLever *>(o->content()); }
const QPointF kPivot(340, 60);

QPointF handleFromPivot(CSVGBase *c) { return node(c, "control_1")->rect().center() - kPivot; }

// The holes' offsets from the pivot along the bar, left to right.
QVector<double> holes(CSVGBase *c)
{
    QVector<double> out;
    for (int k = 1; QSvgNode *n = node(c, qPrintable(QStringLiteral("mark_%1").arg(k))); ++k)
        out << n->numAttribute(QStringLiteral("cx")) - kPivot.x();
    return out;
}

struct LeverTest : ApparatusTest {};

struct Pull {
    QPointF to; // where the hand takes the handle's centre, from the pivot (y up)
    double tilt;
    int marks;
};
class LeverDrag : public LeverTest, public ::testing::WithParamInterface<Pull> {};

} // namespace

TEST_P(LeverDrag, HandleTiltsTheBarAndCountsHolesThenSitsOnTheBarsEnd)
{
    ObjPtr o = makeObject(108, true);
    CSVGBase *c = o->content();
    const QPointF d = QPointF(GetParam().to.x(), -GetParam().to.y()) - handleFromPivot(c);
    drag(c, "control_1", d.x(), d.y());
    EXPECT_NEAR(lever(o)->tilt(), GetParam().tilt, 1e-9);
    EXPECT_EQ(lever(o)->marksPerSide(), GetParam().marks);
    QVector<double> pitch;
    for (int k = -GetParam().marks; k <= GetParam().marks; ++k)
        if (k != 0)
            pitch << 30.0 * k;
    EXPECT_EQ(holes(c), pitch);
    const double half = 30.0 * GetParam().marks + 15, a = GetParam().tilt * M_PI / 180;
    EXPECT_NEAR(handleFromPivot(c).x(), half * std::cos(a), 1e-9);
    EXPECT_NEAR(handleFromPivot(c).y(), -half * std::sin(a), 1e-9);
    EXPECT_EQ(num(c, "bar", "rotate_angle"), -lever(o)->tilt());
    EXPECT_EQ(shown(c, "idAngle"), QString::number(std::lround(GetParam().tilt)));
}

INSTANTIATE_TEST_SUITE_P(Lever, LeverDrag, ::testing::Values(
    Pull{{100, 100}, 45, 4}, Pull{{100, -100}, -45, 4}, Pull{{-100, 100}, 45, 4}, Pull{{-300, -1}, -45, 10},
    Pull{{60, 0}, 0, 2}, Pull{{0, 0}, 0, 2}, Pull{{314, 0}, 0, 10}, Pull{{104, 10}, std::atan2(10, 104) * 180 / M_PI, 3},
    Pull{{105.1, 0}, 0, 3}, Pull{{104.9, 0}, 0, 3}, Pull{{105, 0}, 0, 3}, Pull{{135.01, 0}, 0, 4}));

TEST_F(LeverTest, DragPostsTiltAndHolesWhenTheyChange)
{
    ObjPtr o = makeObject(108, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    drag(c, "control_1", 0, -60); // the same holes
    EXPECT_EQ(postedSince(mark), (QStringList{"idAngle=" + shown(c, "idAngle")}));
    mark = messageCount();
    drag(c, "control_1", 200, 0);
    EXPECT_EQ(postedSince(mark).filter("idMarkCount"), QStringList{"idMarkCount=" + shown(c, "idMarkCount")});
}

TEST_F(LeverTest, TypedTiltKeepsTheHolesAndTypedHolesKeepTheTilt)
{
    ObjPtr o = makeObject(108, true);
    CSVGBase *c = o->content();
    expectShown(c, "idBarColor=#b0b7bf idAngle=0 idMarkCount=5");
    expectTyped(c, "idAngle", {{"-12.4", -12}, {"90", 45}, {"-60", -45}, {"nan", -45}},
                [&] { return lever(o)->tilt(); });
    EXPECT_EQ(lever(o)->marksPerSide(), 5);
    expectTyped(c, "idMarkCount", {{"9", 9}, {"40", 10}, {"1", 2}, {"many", 2}, {"", 2}, {"3.4", 3}},
                [&] { return lever(o)->marksPerSide(); });
    EXPECT_EQ(lever(o)->tilt(), -45);
    EXPECT_EQ(holes(c), (QVector<double>{-90, -60, -30, 30, 60, 90}));
    EXPECT_TRUE(typeIn(c, "idBarColor", "#c0392b"));
    EXPECT_EQ(node(c, "bar_body")->fillColor(), QColor("#c0392b"));
    typeIn(c, "idBarColor", "not a colour");
    EXPECT_EQ(shown(c, "idBarColor"), "#c0392b");
}
