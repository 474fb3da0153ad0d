// The vernier calipers: the reading names the vernier tick that meets a main-scale
// tick, on every vernier; the jaw snaps to the reading; typed values, division changes
// and what a drag posts.
#include "panel.h"
#include <mechanics/VernierCalipers.h>

namespace {

CVernierCalipers *calipers(const ObjPtr &o) { return static_cast<CVernierCalipers *>(o->content()); }

// Where a tick stands on the page: the slider's shift included.
double tickX(CSVGBase *c, const QString &id) { return c->document()->namedNode(id)->documentBounds().x(); }

// How far each vernier tick stands from the nearest main-scale tick, in mm; one past
// the scale's end is far from any.
QVector<double> gaps(CSVGBase *c, int divisions)
{
    QVector<double> out;
    for (int k = 1; k <= divisions + 1; ++k) {
        const double mm = (tickX(c, QStringLiteral("vernier_%1").arg(k)) - tickX(c, "main_1")) / 4;
        out << (mm > 150 + 1e-9 ? 1e9 : std::fabs(mm - std::round(mm)));
    }
    return out;
}

// The vernier ticks that stand exactly on a main-scale tick, and the one nearest to it.
QVector<int> alignedTicks(CSVGBase *c, int divisions)
{
    QVector<int> out;
    const QVector<double> g = gaps(c, divisions);
    for (int i = 0; i < g.size(); ++i)
        if (g[i] < 1e-9)
            out << i;
    return out;
}
int bestAligned(CSVGBase *c, int divisions)
{
    const QVector<double> g = gaps(c, divisions);
    return int(std::min_element(g.begin(), g.end()) - g.begin());
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
    expectShown(c, "idCaliperValue=0.0 idVernierDivisions=0");
    EXPECT_FALSE(node(c, "main_152"));
    for (int m = 1; m <= 151; ++m) {
        const QSvgNode *t = c->document()->namedNode(QStringLiteral("main_%1").arg(m));
        EXPECT_EQ(t->numAttribute("x1"), 80 + 4 * (m - 1));
        const double length = t->numAttribute("y1") - t->numAttribute("y2");
        EXPECT_EQ(length, (m - 1) % 10 == 0 ? 18 : (m - 1) % 5 == 0 ? 13 : 9) << m;
    }
    for (int j = 0; j <= 15; ++j)
        EXPECT_EQ(c->document()->namedNode(QStringLiteral("main_text_%1").arg(j))->text(), QString::number(j));
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
    Reading{0, "-2", "0.0", 0}, Reading{0, " 7.0 ", "7.0", 0}, Reading{0, "nan", "0.0", 0},
    Reading{0, "twelve", "0.0", 0}, Reading{0, "149.96", "150.0", 0},
    Reading{1, "23.45", "23.45", 9}, Reading{1, "23.425", "23.45", 9}, Reading{1, "0.97", "0.95", 19},
    Reading{1, "100.1", "100.10", 2}, Reading{2, "61.82", "61.82", 41}, Reading{2, "12.345", "12.34", 17},
    Reading{2, "0.01", "0.02", 1}, Reading{2, "149.99", "150.00", 0}, Reading{2, "5.98", "5.98", 49}));

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
    c->moveControlPoint(node(c, "control_1"), QPointF(-0.35, 0), true); // 23.4 mm, snapped
    EXPECT_EQ(postedSince(mark), QStringList{"idCaliperValue=23.4"});
    EXPECT_NEAR(calipers(o)->opening(), 23.4, 1e-12);
    EXPECT_EQ(alignedTicks(c, 10), QVector<int>{4});
    mark = messageCount();
    calipers(o)->posChangedByControl();
    EXPECT_EQ(postedSince(mark), QStringList{"idCaliperValue=23.4"});
    // A jaw left between readings (a drag never finished) reopens where it was.
    c->moveControlPoint(node(c, "control_1"), QPointF(3.3, 0), false);
    ObjPtr copy = loadBytes(110, saveBytes(c));
    EXPECT_EQ(calipers(copy)->opening(), calipers(o)->opening());
    EXPECT_EQ(svgText(copy->content()), svgText(c));
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
    EXPECT_FALSE(typeIn(c, "idVernierDivisions", "3"));
}
