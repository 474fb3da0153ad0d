// The spring balance: the pointer at the tick its reading names, the three ranges and
// their numbers, typed readings, limits, the spring's turns.
#include "panel.h"
#include <mechanics/Springbalance.h>

namespace {

double pointerY(CSVGBase *c) { return node(c, "pointer")->documentTransform().map(QPointF(40, 90)).y(); }
double tickY(CSVGBase *c, int k) { return node(c, QString("line_%1").arg(k).toLatin1().constData())->numAttribute("y1"); }

QStringList numbers(CSVGBase *c)
{
    QStringList out;
    for (int i = 0; i <= 50; i += 10)
        if (QSvgNode *n = node(c, QString("text_%1").arg(i).toLatin1().constData()))
            out << n->text();
    return out;
}

struct Springbalance : ApparatusTest {};

} // namespace

struct RangeCase {
    const char *range, *typed, *to, *reads;  // `to`: another range chosen afterwards
    long tick;  // line_k the pointer stands at
    QStringList numbers;
};

class SpringbalanceRange : public Springbalance, public ::testing::WithParamInterface<RangeCase> {};

// A typed reading moves the hook, and the pointer then stands at the tick the reading
// names; another range keeps the hook where it is and rescales the reading.
TEST_P(SpringbalanceRange, PointerStandsAtTheTickItsReadingNames)
{
    ObjPtr o = makeObject(203, true);
    CSVGBase *c = o->content();
    const RangeCase &t = GetParam();
    typeIn(c, "idRange", t.range);
    typeIn(c, "idForceValue", t.typed);
    if (*t.to)
        typeIn(c, "idRange", t.to);
    EXPECT_EQ(numbers(c), t.numbers);
    EXPECT_EQ(settingItem(c, "idForceValue").value("max").toString(), t.numbers.last());
    EXPECT_EQ(shown(c, "idForceValue"), t.reads);
    EXPECT_DOUBLE_EQ(pointerY(c), tickY(c, t.tick));
}

INSTANTIATE_TEST_SUITE_P(Springbalance, SpringbalanceRange, ::testing::Values(
    RangeCase{"1", "3.6", "", "3.6", 37, {"0", "1", "2", "3", "4", "5"}},
    RangeCase{"0", "1.85", "", "1.85", 38, {"0", "0.5", "1", "1.5", "2", "2.5"}},
    RangeCase{"1", "9", "", "5.0", 51, {"0", "1", "2", "3", "4", "5"}},  // held to the full scale
    RangeCase{"1", "-2", "", "0.0", 1, {"0", "1", "2", "3", "4", "5"}},
    RangeCase{"0", " 2.5 ", "", "2.50", 51, {"0", "0.5", "1", "1.5", "2", "2.5"}},
    RangeCase{"1", "3.6", "2", "7.2", 37, {"0", "2", "4", "6", "8", "10"}},
    RangeCase{"1", "3.6", "0", "1.80", 37, {"0", "0.5", "1", "1.5", "2", "2.5"}}));

TEST_F(Springbalance, DragRestsOnItsReadingAndPostsIt)
{
    ObjPtr o = makeObject(203, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(pointerY(c), tickY(c, 1));  // a new balance reads 0
    GetFramework()->clearMessages();
    drag(c, "control_1", 0, 1, false);  // 0.033 N: still "0.0"
    EXPECT_TRUE(postedSince().isEmpty());
    drag(c, "control_1", 0, 107, true);  // 108 units: 3.6 N
    EXPECT_EQ(postedSince(), QStringList{"idForceValue=3.6"});
    EXPECT_EQ(shown(c, "idForceValue"), "3.6");
    EXPECT_DOUBLE_EQ(pointerY(c), tickY(c, 37));
    // Off the scale either way, the hook stops at its ends.
    drag(c, "control_1", 0, 500);
    EXPECT_EQ(shown(c, "idForceValue"), "5.0");
    drag(c, "control_1", 0, -900);
    EXPECT_EQ(shown(c, "idForceValue"), "0.0");
    // A nudge of a unit from a reading still moves the pointer one step.
    drag(c, "control_1", 0, 1);
    EXPECT_EQ(shown(c, "idForceValue"), "0.1");
}

TEST_F(Springbalance, SpringTurnsShareTheStretchEvenly)
{
    ObjPtr o = makeObject(203, true);
    CSVGBase *c = o->content();
    for (const char *v : {"0", "2.5", "5"}) {
        SCOPED_TRACE(v);
        typeIn(c, "idForceValue", v);
        ASSERT_TRUE(node(c, "turn_12"));
        EXPECT_FALSE(node(c, "turn_13"));
        auto top = [&](int k) {
            return node(c, QString("turn_%1").arg(k).toLatin1().constData())->children()[1]->numAttribute("y1");
        };
        const double pitch = top(2) - top(1);
        EXPECT_GT(pitch, 0);
        for (int k = 2; k <= 12; ++k)
            EXPECT_NEAR(top(k) - top(k - 1), pitch, 1e-9) << k;
        // The last turn ends on the carriage above the pointer.
        EXPECT_LT(top(12) + pitch, pointerY(c));
    }
}
