// The propeller: the handle kept on the first blade's tip circle, the rotor's angle,
// the blades regenerated evenly.
#include "panel.h"
#include <mechanics/Propeller.h>

namespace {

constexpr double kPi = 3.141592653589793;
const QPointF kHub(60, 60);

// Where blade k's tip is drawn (its outline's tip point, through the rotor and its own turn).
QPointF bladeTip(CSVGBase *c, int k)
{
    QSvgNode *blade = c->document()->namedNode(QString("blade_%1").arg(k));
    return blade->children().front()->documentTransform().map(QPointF(60, 10));
}

struct Propeller : ApparatusTest {};

} // namespace

struct TurnCase {
    QPointF to;  // where the pointer takes the handle, from the hub
    const char *degrees;
};

class PropellerTurn : public Propeller, public ::testing::WithParamInterface<TurnCase> {};

TEST_P(PropellerTurn, HandleTurnsTheRotorAndStaysOnItsCircle)
{
    ObjPtr o = makeObject(300, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(handleCentre(c, "control_1"), QPointF(60, 10));  // blade_1 points up
    GetFramework()->clearMessages();
    const TurnCase &t = GetParam();
    c->moveControlPoint(node(c, "control_1"), kHub + t.to - handleCentre(c, "control_1"), true);
    EXPECT_EQ(shown(c, "idAngle"), t.degrees);
    EXPECT_EQ(postedSince(), QString(t.degrees) == "90" ? QStringList() : QStringList{QString("idAngle=") + t.degrees});
    const QPointF h = handleCentre(c, "control_1");
    EXPECT_NEAR(std::hypot(h.x() - kHub.x(), h.y() - kHub.y()), CPropeller::kTipRadius, 1e-9);
    // blade_1's tip is under the handle.
    EXPECT_NEAR(bladeTip(c, 1).x(), h.x(), 1e-9);
    EXPECT_NEAR(bladeTip(c, 1).y(), h.y(), 1e-9);
    // The drawing holds the tip's whole circle: nothing resizes it.
    EXPECT_TRUE(c->document()->viewBox().contains(QRectF(5, 5, 110, 110)));
}

INSTANTIATE_TEST_SUITE_P(Propeller, PropellerTurn, ::testing::Values(
    TurnCase{{30, 0}, "0"}, TurnCase{{-20, -20}, "135"}, TurnCase{{-45, 0.001}, "180"}, TurnCase{{0, 80}, "-90"},
    TurnCase{{0, -2}, "90"}, TurnCase{{0, 0}, "90"}));

struct BladeCase {
    const char *index;
    long blades;
};

class PropellerBlades : public Propeller, public ::testing::WithParamInterface<BladeCase> {};

// Evenly spaced, blade_1 first and the others anticlockwise, whatever the rotor's turn.
TEST_P(PropellerBlades, BladesAreRegeneratedEvenlyAnticlockwise)
{
    ObjPtr o = makeObject(300, true);
    CSVGBase *c = o->content();
    typeIn(c, "idAngle", "20");
    EXPECT_TRUE(typeIn(c, "idBladeCount", GetParam().index) || GetParam().blades == 3);  // 3 blades by default
    typeIn(c, "idBladeColor", "#c62828");
    ASSERT_EQ(seriesCount(c, "blade"), GetParam().blades);
    for (int k = 1; k <= GetParam().blades; ++k) {
        const QPointF tip = bladeTip(c, k) - kHub;
        const double expected = 20 + 360.0 * (k - 1) / GetParam().blades;
        const double r = expected * kPi / 180;
        EXPECT_NEAR(tip.x(), std::cos(r) * 50, 1e-9) << k;
        EXPECT_NEAR(tip.y(), -std::sin(r) * 50, 1e-9) << k;
        EXPECT_EQ(node(c, QString("blade_%1").arg(k).toLatin1())->children().front()->fillColor(), QColor("#c62828"));
    }
}

INSTANTIATE_TEST_SUITE_P(Propeller, PropellerBlades, ::testing::Values(
    BladeCase{"0", 2}, BladeCase{"1", 3}, BladeCase{"2", 4}, BladeCase{"3", 3}));
