// The vernier calipers: the reading names the vernier tick that meets a main-scale
// tick, on every vernier; the jaw snaps to the reading; typed values, division changes,
// what a drag posts, capture and reopening.
#include "panelhelpers.h"
#include <mechanics/VernierCalipers.h>

namespace {

CVernierCalipers *calipers(const ObjPtr &o) { return static_cast<CVernierCalipers *>(o->content()); }

// Where a tick stands on the page: the slider's shift included.
double tickX(CSVGBase *c, const QString &id) { return c->document()->namedNode(id)->documentBounds().x(); }

// The vernier ticks that stand exactly on a main-scale tick.
QVector<int> alignedTicks(CSVGBase *c, int divisions)
{
    QVector<int> out;
    for (int k = 1; k <= divisions + 1; ++k) {
        const double x = tickX(c, QStringLiteral("vernier_%1").arg(k));
        for (int m = 1; m <= 151; ++m)
            if (std::fabs(tickX(c, QStringLiteral("main_%1").arg(m)) - x) < 1e-9)
                out << k - 1;
    }
    return out;
}

// The vernier tick nearest to lining up with any main tick.
int bestAligned(CSVGBase *c, int divisions)
{
    int best = -1;
    double gap = 1e9;
    for (int k = 1; k <= divisions + 1; ++k) {
        const double x = tickX(c, QStringLiteral("vernier_%1").arg(k));
        const double mm = (x - tickX(c, "main_1")) / 4;
        const double d = std::fabs(mm - std::round(mm));
        if (d < gap - 1e-12) {
            gap = d;
            best = k - 1;
        }
    }
    return best;
}

struct CalipersTest : ApparatusTest {};

struct Reading {
    int vernier;        // index of the divisions choice
    const char *typed;
    const char *shown;
    int tick;           // the vernier tick that lines up
};

const int kDivisions[] = {10, 20, 50};

void PrintTo(const Reading &r, std::ostream *os) { *os << kDivisions[r.vernier] << " divisions, \"" << r.typed << '"'; }

class CalipersReading : public CalipersTest, public ::testing::WithParamInterface<Reading> {};

} // namespace

TEST_F(CalipersTest, NewCalipersAreClosedWithTheWholeMainScale)
{
    ObjPtr o = makeObject(110, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(shown(c, "idCaliperValue"), "0.0");
    EXPECT_EQ(shown(c, "idVernierDivisions"), "0");
    EXPECT_TRUE(settingItem(c, "idVernierDivisions").value("refreshAfterSet").toBool());
    const QJsonObject value = settingItem(c, "idCaliperValue");
    EXPECT_EQ(value.value("valueType"), "float");
    EXPECT_EQ(value.value("max"), "150");
    EXPECT_EQ(value.value("unit"), "mm");
    EXPECT_TRUE(node(c, "main_151"));
    EXPECT_FALSE(node(c, "main_152"));
    for (int m = 1; m <= 151; ++m) {
        const QSvgNode *t = c->document()->namedNode(QStringLiteral("main_%1").arg(m));
        EXPECT_EQ(t->numAttribute("x1"), 80 + 4 * (m - 1));
        const double length = t->numAttribute("y1") - t->numAttribute("y2");
        EXPECT_EQ(length, (m - 1) % 10 == 0 ? 18 : (m - 1) % 5 == 0 ? 13 : 9) << m;
    }
    for (int j = 0; j <= 15; ++j)
        EXPECT_EQ(c->document()->namedNode(QStringLiteral("main_text_%1").arg(j))->text(), QString::number(j));
    EXPECT_FALSE(node(c, "main_text_16"));
    EXPECT_TRUE(node(c, "vernier_11"));
    EXPECT_FALSE(node(c, "vernier_12"));
    EXPECT_EQ(alignedTicks(c, 10), (QVector<int>{0, 10}));
}

TEST_P(CalipersReading, TheReadingNamesTheTickThatLinesUp)
{
    ObjPtr o = makeObject(110, true);
    CSVGBase *c = o->content();
    const int n = kDivisions[GetParam().vernier];
    typeIn(c, "idVernierDivisions", QString::number(GetParam().vernier));
    typeIn(c, "idCaliperValue", GetParam().typed);
    EXPECT_EQ(shown(c, "idCaliperValue"), GetParam().shown);
    // The zero tick stands at the opening; the named tick meets the main scale, and the
    // last one too when it is the zero's turn.
    EXPECT_NEAR(tickX(c, "vernier_1") - tickX(c, "main_1"), calipers(o)->reading() * 4, 1e-9);
    QVector<int> expected{GetParam().tick};
    if (GetParam().tick == 0 && calipers(o)->reading() + n - 1 <= 150)
        expected << n;
    EXPECT_EQ(alignedTicks(c, n), expected);
    EXPECT_NEAR(calipers(o)->opening(), calipers(o)->reading(), 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Calipers, CalipersReading, ::testing::Values(
    Reading{0, "23.4", "23.4", 4}, Reading{0, "23.45", "23.5", 5}, Reading{0, "23.44", "23.4", 4},
    Reading{0, "0.05", "0.1", 1}, Reading{0, "150", "150.0", 0}, Reading{0, "151", "150.0", 0},
    Reading{0, "-2", "0.0", 0}, Reading{0, " 7.0 ", "7.0", 0}, Reading{0, "149.96", "150.0", 0},
    Reading{1, "23.45", "23.45", 9}, Reading{1, "23.425", "23.45", 9}, Reading{1, "0.97", "0.95", 19},
    Reading{1, "100.1", "100.10", 2}, Reading{2, "61.82", "61.82", 41}, Reading{2, "12.345", "12.34", 17},
    Reading{2, "0.01", "0.02", 1}, Reading{2, "149.99", "150.00", 0}, Reading{2, "5.98", "5.98", 49}));

TEST_F(CalipersTest, TextThatIsNoNumberLeavesTheJawWhereItIs)
{
    ObjPtr o = makeObject(110, true);
    CSVGBase *c = o->content();
    typeIn(c, "idCaliperValue", "12.3");
    for (const char *bad : {"", "twelve", "inf", "nan", "1e999"})
        EXPECT_FALSE(typeIn(c, "idCaliperValue", bad)) << bad;
    EXPECT_EQ(shown(c, "idCaliperValue"), "12.3");
    EXPECT_EQ(undoStack()->count(), 1);
}

TEST_F(CalipersTest, DragFollowsTheHandThenSnapsToTheReading)
{
    ObjPtr o = makeObject(110, true);
    CSVGBase *c = o->content();
    int mark = messageCount();
    c->moveControlPoint(node(c, "control_1"), QPointF(93.9, 30), false); // 23.475 mm
    EXPECT_NEAR(calipers(o)->opening(), 23.475, 1e-12);
    EXPECT_EQ(shown(c, "idCaliperValue"), "23.5");
    EXPECT_EQ(bestAligned(c, 10), 5); // the tick nearest to lining up is the one named
    EXPECT_EQ(postedSince(mark), QStringList{"idCaliperValue=23.5"});
    mark = messageCount();
    c->moveControlPoint(node(c, "control_1"), QPointF(0.05, 0), false); // still 23.5: nothing posted
    EXPECT_EQ(postedSince(mark), QStringList());
    c->moveControlPoint(node(c, "control_1"), QPointF(-0.4, 0), true); // 23.4 mm, snapped
    EXPECT_EQ(postedSince(mark), QStringList{"idCaliperValue=23.4"});
    EXPECT_NEAR(calipers(o)->opening(), 23.4, 1e-12);
    EXPECT_EQ(alignedTicks(c, 10), QVector<int>{4});
    EXPECT_EQ(undoStack()->count(), 1);
    undoStack()->undo();
    EXPECT_EQ(shown(c, "idCaliperValue"), "0.0");

    // Past the ends the jaw stops at 0 and 150 mm.
    drag(c, "control_1", 5000, 0);
    EXPECT_EQ(shown(c, "idCaliperValue"), "150.0");
    drag(c, "control_1", -5000, 0);
    EXPECT_EQ(shown(c, "idCaliperValue"), "0.0");
}

TEST_F(CalipersTest, EveryDragStepOnEveryVernierNamesTheNearestTick)
{
    for (int v = 0; v < 3; ++v) {
        ObjPtr o = makeObject(110, true);
        CSVGBase *c = o->content();
        typeIn(c, "idVernierDivisions", QString::number(v));
        const double precision = calipers(o)->precision();
        for (int step = 0; step < 240; ++step) {
            c->moveControlPoint(node(c, "control_1"), QPointF(0.37, 0), false);
            // Halfway between two readings both ticks are as near: nothing to tell.
            const double half = calipers(o)->opening() / precision - std::floor(calipers(o)->opening() / precision);
            if (std::fabs(half - 0.5) < 1e-6)
                continue;
            const double fraction = calipers(o)->reading() - std::floor(calipers(o)->reading() + 1e-9);
            const int named = int(std::lround(fraction / precision));
            const int best = bestAligned(c, kDivisions[v]);
            // At a whole millimetre the zero and the last tick both line up.
            EXPECT_TRUE(best == named || (named == 0 && best == kDivisions[v])) << v << " " << calipers(o)->opening();
        }
    }
}

TEST_F(CalipersTest, ANewVernierRoundsTheReadingAndMovesTheJaw)
{
    ObjPtr o = makeObject(110, true);
    CSVGBase *c = o->content();
    typeIn(c, "idVernierDivisions", "1");
    typeIn(c, "idCaliperValue", "23.45");
    EXPECT_TRUE(node(c, "vernier_21"));
    EXPECT_EQ(node(c, "vernier_text_20")->text(), "100");
    EXPECT_EQ(node(c, "precision")->text(), "0.05 mm");
    const int mark = messageCount();
    EXPECT_TRUE(typeIn(c, "idVernierDivisions", "0"));
    EXPECT_EQ(shown(c, "idCaliperValue"), "23.5");
    EXPECT_EQ(alignedTicks(c, 10), QVector<int>{5});
    EXPECT_FALSE(node(c, "vernier_12"));
    EXPECT_FALSE(node(c, "vernier_text_15"));
    EXPECT_EQ(postedSince(mark), QStringList());
    typeIn(c, "idVernierDivisions", "2");
    EXPECT_EQ(shown(c, "idCaliperValue"), "23.50");
    EXPECT_EQ(node(c, "vernier_text_45")->text(), "9");
    EXPECT_EQ(undoStack()->count(), 4);
    undoStack()->undo();
    undoStack()->undo();
    EXPECT_EQ(shown(c, "idCaliperValue"), "23.45");
    EXPECT_TRUE(node(c, "vernier_21"));
    EXPECT_FALSE(typeIn(c, "idVernierDivisions", "3"));
}

TEST_F(CalipersTest, RestorePutsBackVernierAndReading)
{
    ObjPtr o = makeObject(110, true);
    CSVGBase *c = o->content();
    typeIn(c, {{"idVernierDivisions", "2"}, {"idCaliperValue", "48.36"}});
    EXPECT_EQ(shown(c, "idCaliperValue"), "48.36");
    const QString captured = svgText(c);
    capture(c);
    typeIn(c, "idVernierDivisions", "0");
    drag(c, "control_1", 150, 0);
    EXPECT_TRUE(c->editRestore());
    EXPECT_EQ(svgText(c), captured);
    EXPECT_EQ(shown(c, "idCaliperValue"), "48.36");
}

TEST_F(CalipersTest, PosChangedByControlPostsTheReading)
{
    ObjPtr o = makeObject(110, true);
    typeIn(o->content(), "idCaliperValue", "3.3");
    const int mark = messageCount();
    calipers(o)->posChangedByControl();
    EXPECT_EQ(postedSince(mark), QStringList{"idCaliperValue=3.3"});
}

TEST_F(CalipersTest, ReopensExactlyEvenInTheMiddleOfADrag)
{
    ObjPtr o = makeObject(110, true);
    CSVGBase *c = o->content();
    typeIn(c, "idVernierDivisions", "1");
    dragInSteps(c, "control_1", QPointF(211.3, 0));
    expectReopensAndDragsAlike(c, "control_1", QPointF(-17.7, 0));
    // A jaw left between readings (a drag never finished) reopens where it was.
    c->moveControlPoint(node(c, "control_1"), QPointF(3.3, 0), false);
    const double opening = calipers(o)->opening();
    ObjPtr copy = loadBytes(110, saveBytes(c));
    EXPECT_EQ(calipers(copy)->opening(), opening);
    EXPECT_EQ(svgText(copy->content()), svgText(c));
}
