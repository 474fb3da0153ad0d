// The calibration scale: ticks and numbers that follow the strip's length, zero at the
// top; the unit; the length percentage; a sweep that ends drawn as a fresh strip would
// be.
#include "panel.h"
#include <cmath>
#include <mechanics/Calibration.h>

namespace {

Calibration *scale(const ObjPtr &o) { return static_cast<Calibration *>(o->content()); }

// Moves the bottom end to `length` below the top with one final drag.
void dragTo(CSVGBase *c, double length) { drag(c, "control_1", 0, length - node(c, "control_1")->rect().center().y()); }

struct CalibrationTest : ApparatusTest {};

struct Length {
    double length;
    int ticks, numbers;
};
class CalibrationLength : public CalibrationTest, public ::testing::WithParamInterface<Length> {};

} // namespace

TEST_P(CalibrationLength, TicksFillTheStripFromFiveBelowTheTop)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    dragTo(c, GetParam().length);
    EXPECT_NEAR(scale(o)->length(), std::max(60.0, std::min(1000.0, GetParam().length)), 1e-9);
    const int last = GetParam().ticks, j = GetParam().numbers - 1;
    EXPECT_FALSE(node(c, qPrintable(QStringLiteral("line_%1").arg(last + 1))));
    EXPECT_FALSE(node(c, qPrintable(QStringLiteral("text_%1").arg(10 * j + 10))));
    EXPECT_EQ(num(c, QStringLiteral("line_%1").arg(last).toUtf8().constData(), "y1"), 5 + 4.0 * (last - 1));
    // Every fifth tick medium and every tenth long; numbers count the long ones.
    for (int k = 1; k <= last; ++k) {
        const int i = k - 1;
        EXPECT_EQ(num(c, qPrintable(QStringLiteral("line_%1").arg(k)), "x2"), i % 10 == 0 ? 17 : i % 5 == 0 ? 12 : 8) << k;
    }
    EXPECT_EQ(node(c, qPrintable(QStringLiteral("text_%1").arg(10 * j)))->text(), QString::number(j));
}

INSTANTIATE_TEST_SUITE_P(Calibration, CalibrationLength, ::testing::Values(
    Length{60, 13, 2}, Length{30, 13, 2}, Length{61.9, 13, 2}, Length{62, 14, 2}, Length{210, 51, 6},
    Length{213.99, 51, 6}, Length{214, 52, 6}, Length{1000, 248, 25}, Length{5000, 248, 25}, Length{415, 102, 11}));

TEST_F(CalibrationTest, SweepUpAndDownDrawsWhatAFreshStripDraws)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    for (int i = 0; i < 800; ++i)
        c->moveControlPoint(node(c, "control_1"), QPointF(0, 1), false);
    for (int i = 0; i < 923; ++i)
        c->moveControlPoint(node(c, "control_1"), QPointF(0, -1), false);
    c->moveControlPoint(node(c, "control_1"), QPointF(0, 200.5), true);
    ObjPtr fresh = makeObject(111, true);
    dragTo(fresh->content(), scale(o)->length());
    EXPECT_EQ(scale(fresh)->length(), scale(o)->length());
    EXPECT_TRUE(sameDocument(svgText(fresh->content()), svgText(c)));
}

TEST_F(CalibrationTest, UnitChoiceWritesTheUnitAndKeepsTheNumbers)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    expectShown(c, "idUnit=1 idPosValue=15");
    EXPECT_EQ(node(c, "unit")->text(), "cm");
    EXPECT_TRUE(typeIn(c, "idUnit", "2"));
    EXPECT_EQ(node(c, "unit")->text(), "N");
    EXPECT_TRUE(typeIn(c, "idUnit", "0"));
    EXPECT_EQ(node(c, "unit")->text(), "");
    EXPECT_EQ(node(c, "text_50")->text(), "5");
    EXPECT_FALSE(typeIn(c, "idUnit", "3"));
}

TEST_F(CalibrationTest, TypedLengthIsHeldAndADragPostsItWhenItChanges)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    drag(c, "control_1", 0, 94);
    EXPECT_EQ(postedSince(mark), QStringList{"idPosValue=25"});
    mark = messageCount();
    drag(c, "control_1", 0, 5000);
    drag(c, "control_1", 0, 1);
    EXPECT_EQ(postedSince(mark), QStringList{"idPosValue=100"});
    expectTyped(c, "idPosValue", {{"0", 60}, {"50.4", 530}, {"300", 1000}, {"-5", 60}, {"long", 60}, {"", 60}},
                [&] { return scale(o)->length(); });
}
