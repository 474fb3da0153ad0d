// The measuring cylinder: the meniscus at its volume, the three capacities and their
// graduations, a volume kept across a range change, typed volumes.
#include "panel.h"
#include <mechanics/Cylinder.h>

namespace {

Cylinder *cylinder(const ObjPtr &o) { return static_cast<Cylinder *>(o->content()); }

QSvgNode *at(CSVGBase *c, const QString &id) { return c->document()->namedNode(id); }
double tickY(CSVGBase *c, int k) { return at(c, QString("line_%1").arg(k))->numAttribute("y1"); }

struct CylinderTest : ApparatusTest {};

} // namespace

struct Graduation {
    const char *range;
    long ticks;        // one per minor division, 0 included
    const char *top;   // the highest number, at the top tick
    long firstNumber;  // the tick index of "10" or "50"
    const char *firstText;
};

class CylinderRange : public CylinderTest, public ::testing::WithParamInterface<Graduation> {};

TEST_P(CylinderRange, GraduationFollowsTheRange)
{
    ObjPtr o = makeObject(302, true);
    CSVGBase *c = o->content();
    const Graduation &g = GetParam();
    typeIn(c, "idRange", g.range);
    EXPECT_EQ(seriesCount(c, "line"), g.ticks);
    EXPECT_DOUBLE_EQ(tickY(c, 1) - tickY(c, g.ticks), Cylinder::kScaleHeight);
    EXPECT_EQ(at(c, QString("text_%1").arg(g.firstNumber))->text(), g.firstText);
    EXPECT_EQ(at(c, QString("text_%1").arg(g.ticks - 1))->text(), g.top);
    EXPECT_FALSE(at(c, QString("text_%1").arg(g.ticks + 9)));
    EXPECT_EQ(settingItem(c, "idVolume").value("max").toString(), g.top);
}

INSTANTIATE_TEST_SUITE_P(Cylinder, CylinderRange, ::testing::Values(
    Graduation{"0", 51, "50", 10, "10"}, Graduation{"1", 101, "100", 10, "10"},
    Graduation{"2", 51, "250", 10, "50"}));

struct VolumeCase {
    const char *range, *typed, *to, *reads;  // `to`: another range chosen afterwards
};

class CylinderVolume : public CylinderTest, public ::testing::WithParamInterface<VolumeCase> {};

// The meniscus's bottom stands at the height its reading names on the scale; another
// cylinder holds the same liquid where it fits, read to its own half division.
TEST_P(CylinderVolume, MeniscusStandsAtItsVolume)
{
    ObjPtr o = makeObject(302, true);
    CSVGBase *c = o->content();
    const VolumeCase &v = GetParam();
    typeIn(c, "idRange", v.range);
    typeIn(c, "idVolume", v.typed);
    if (*v.to)
        typeIn(c, "idRange", v.to);
    EXPECT_EQ(shown(c, "idVolume"), v.reads);
    const double volume = QString(v.reads).toDouble();
    EXPECT_DOUBLE_EQ(cylinder(o)->level(), volume / cylinder(o)->capacity() * Cylinder::kScaleHeight);
    // The liquid's surface dips to exactly that height in the middle.
    EXPECT_NEAR(node(c, "surface")->rect().bottom(), tickY(c, 1) - cylinder(o)->level(), 0.5);
    EXPECT_EQ(node(c, "liquid")->isVisible(), volume > 0);
}

INSTANTIATE_TEST_SUITE_P(Cylinder, CylinderVolume, ::testing::Values(
    VolumeCase{"1", "42.3", "", "42.5"}, VolumeCase{"1", "42.2", "", "42"}, VolumeCase{"0", "17.5", "", "17.5"},
    VolumeCase{"2", "163", "", "162.5"}, VolumeCase{"2", "164", "", "165"}, VolumeCase{"1", "120", "", "100"},
    VolumeCase{"1", "-5", "", "0"}, VolumeCase{"1", "1e300", "", "100"},
    VolumeCase{"1", "42", "2", "42.5"}, VolumeCase{"1", "42", "0", "42"}, VolumeCase{"1", "80", "0", "50"},
    VolumeCase{"2", "162.5", "1", "100"}, VolumeCase{"0", "17.5", "2", "17.5"}));

TEST_F(CylinderTest, DragFromFortyMillilitresRestsOnItsVolumeAndPostsIt)
{
    ObjPtr o = makeObject(302, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(cylinder(o)->level(), 80);  // 40 mL of 100
    GetFramework()->clearMessages();
    drag(c, "control_1", 0, -0.3, false);  // 40.15 mL: still "40"
    EXPECT_TRUE(postedSince().isEmpty());
    drag(c, "control_1", 0, -3.7, true);  // 4 units up: 42 mL
    EXPECT_EQ(postedSince(), QStringList{"idVolume=42"});
    EXPECT_EQ(cylinder(o)->level(), 84);
    drag(c, "control_1", 0, -1000);
    EXPECT_EQ(shown(c, "idVolume"), "100");
    drag(c, "control_1", 0, 1000);
    EXPECT_EQ(shown(c, "idVolume"), "0");
}
