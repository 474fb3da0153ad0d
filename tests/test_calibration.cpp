// The calibration scale: ticks and numbers that follow the strip's length, zero at the
// top; the unit; the length percentage; a sweep that ends drawn as a fresh strip would
// be; capture and reopening.
#include "panelhelpers.h"
#include <cmath>
#include <mechanics/Calibration.h>

namespace {

Calibration *scale(const ObjPtr &o) { return static_cast<Calibration *>(o->content()); }

int members(CSVGBase *c, const char *prefix, int first, int step)
{
    int n = 0;
    while (node(c, qPrintable(QStringLiteral("%1_%2").arg(QLatin1String(prefix)).arg(first + n * step))))
        ++n;
    return n;
}

// Moves the bottom end to `length` below the top with one final drag.
void dragTo(CSVGBase *c, double length) { drag(c, "control_1", 0, length - node(c, "control_1")->rect().center().y()); }

struct CalibrationTest : ApparatusTest {};

struct Length {
    double length;
    int ticks, numbers;
};
class CalibrationLength : public CalibrationTest, public ::testing::WithParamInterface<Length> {};

} // namespace

TEST_F(CalibrationTest, NewScaleIsTwoHundredTenLongInCentimetres)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(scale(o)->length(), 210);
    EXPECT_EQ(scale(o)->tickCount(), 51);
    EXPECT_EQ(node(c, "unit")->text(), "cm");
    EXPECT_EQ(shown(c, "idUnit"), "1");
    EXPECT_EQ(shown(c, "idPosValue"), "15"); // (210 - 60) / 940
    EXPECT_EQ(num(c, "strip", "height"), 210);
}

TEST_P(CalibrationLength, TicksFillTheStripFromFiveBelowTheTop)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    dragTo(c, GetParam().length);
    EXPECT_NEAR(scale(o)->length(), std::max(60.0, std::min(1000.0, GetParam().length)), 1e-9);
    EXPECT_EQ(members(c, "line", 1, 1), GetParam().ticks);
    EXPECT_EQ(members(c, "text", 0, 10), GetParam().numbers);
    const int last = GetParam().ticks;
    const char *lastId = qPrintable(QStringLiteral("line_%1").arg(last));
    EXPECT_EQ(num(c, lastId, "y1"), 5 + 4.0 * (last - 1));
    EXPECT_LE(num(c, lastId, "y1"), scale(o)->length() - 5);
    // Every fifth tick medium and every tenth long; numbers count the long ones.
    for (int k = 1; k <= last; ++k) {
        const int i = k - 1;
        EXPECT_EQ(num(c, qPrintable(QStringLiteral("line_%1").arg(k)), "x2"), i % 10 == 0 ? 17 : i % 5 == 0 ? 12 : 8) << k;
    }
    const int j = GetParam().numbers - 1;
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
    EXPECT_TRUE(typeIn(c, "idUnit", "2"));
    EXPECT_EQ(node(c, "unit")->text(), "N");
    EXPECT_TRUE(typeIn(c, "idUnit", "0"));
    EXPECT_EQ(node(c, "unit")->text(), "");
    EXPECT_EQ(node(c, "text_50")->text(), "5");
    EXPECT_FALSE(typeIn(c, "idUnit", "3"));
    undoStack()->undo();
    EXPECT_EQ(node(c, "unit")->text(), "N");
}

TEST_F(CalibrationTest, TypedLengthPercentageIsHeldAndNotEchoed)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    const int mark = messageCount();
    for (const auto &t : QVector<QPair<QString, double>>{{"100", 1000}, {"0", 60}, {"50.4", 530}, {"300", 1000},
                                                          {"-5", 60}, {"long", 60}, {"", 60}}) {
        typeIn(c, "idPosValue", t.first);
        EXPECT_EQ(scale(o)->length(), t.second) << qPrintable(t.first);
    }
    EXPECT_EQ(postedSince(mark), QStringList());
}

TEST_F(CalibrationTest, DragPostsTheLengthPercentageWhenItChanges)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    drag(c, "control_1", 0, -3); // 207: still 15 %
    EXPECT_EQ(postedSince(mark), QStringList());
    drag(c, "control_1", 0, 97);
    EXPECT_EQ(postedSince(mark), QStringList{"idPosValue=25"});
    mark = messageCount();
    drag(c, "control_1", 0, 5000);
    drag(c, "control_1", 0, 1);
    EXPECT_EQ(postedSince(mark), QStringList{"idPosValue=100"});
}

TEST_F(CalibrationTest, RestoreAndReopenGiveTheSameStrip)
{
    ObjPtr o = makeObject(111, true);
    CSVGBase *c = o->content();
    typeIn(c, {{"idUnit", "2"}, {"idPosValue", "40"}});
    const QString captured = svgText(c);
    capture(c);
    typeIn(c, {{"idUnit", "0"}, {"idPosValue", "90"}});
    EXPECT_TRUE(c->editRestore());
    EXPECT_TRUE(sameDocument(svgText(c), captured));
    dragInSteps(c, "control_1", QPointF(0, 123.25));
    expectReopensAndDragsAlike(c, "control_1", QPointF(0, -301));
}
