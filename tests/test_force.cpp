// The force arrow: direction and magnitude from its tip, the upright name and value,
// typed values, the name through save, capture and undo.
#include "panel.h"
#include <mechanics/Force.h>

namespace {

constexpr double kPi = 3.141592653589793;

CForce *force(const ObjPtr &o) { return static_cast<CForce *>(o->content()); }
QPointF tail(const ObjPtr &o) { return QPointF(node(o->content(), "tail")->numAttribute("cx"), node(o->content(), "tail")->numAttribute("cy")); }

// Drags the tip so that it ends at `where` seen from the tail (as a pointer would).
void dragTipTo(const ObjPtr &o, QPointF where, bool final = true)
{
    CSVGBase *c = o->content();
    c->moveControlPoint(node(c, "control_1"), tail(o) + where - handleCentre(c, "control_1"), final);
}

struct Force : ApparatusTest {};

} // namespace

struct TipCase {
    QPointF to;        // where the pointer takes the tip, from the tail
    double angle;      // degrees, as drawn
    double newtons;
    const char *value, *degrees;
};

class ForceTip : public Force, public ::testing::WithParamInterface<TipCase> {};

TEST_P(ForceTip, SetsDirectionAndMagnitudeAndTheHandleStaysOnTheTip)
{
    ObjPtr o = makeObject(200, true);
    CSVGBase *c = o->content();
    const TipCase &t = GetParam();
    dragTipTo(o, t.to);
    EXPECT_NEAR(force(o)->angle(), t.angle, 1e-9);
    EXPECT_NEAR(force(o)->magnitude(), t.newtons, 1e-9);
    EXPECT_EQ(shown(c, "idForceValue"), t.value);
    EXPECT_EQ(shown(c, "idAngle"), t.degrees);
    EXPECT_NEAR(node(c, "arrow")->numAttribute("rotate_angle"), -t.angle, 1e-9);
    const double r = t.angle * kPi / 180, len = t.newtons * CForce::kUnitsPerNewton;
    const QPointF tip = tail(o) + QPointF(std::cos(r), -std::sin(r)) * len;
    EXPECT_NEAR(handleCentre(c, "control_1").x(), tip.x(), 1e-9);
    EXPECT_NEAR(handleCentre(c, "control_1").y(), tip.y(), 1e-9);
    // The drawn head ends on the tip.
    const QPointF head = node(c, "arrow")->localTransform().map(static_cast<QSvgPolygon *>(node(c, "head"))->points().first());
    EXPECT_NEAR(head.x(), tip.x(), 1e-9);
    EXPECT_NEAR(head.y(), tip.y(), 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Force, ForceTip, ::testing::Values(
    TipCase{{0, -100}, 90, 2.5, "2.5", "90"},
    TipCase{{-60, -60}, 135, std::hypot(60, 60) / 40, "2.1", "135"},
    TipCase{{-120, 0}, 180, 3, "3.0", "180"},
    TipCase{{-120, 0.0001}, -180 + std::atan2(0.0001, 120) * 180 / kPi, 3, "3.0", "180"},  // just below: still reads 180
    TipCase{{30, 40}, -53.13010235415598, 1.25, "1.3", "-53"},
    TipCase{{1, 1}, -45, 0.1, "0.1", "-45"},          // held to 0.1 N
    TipCase{{0, 0}, 0, 0.1, "0.1", "0"},              // on the tail: keeps its direction
    TipCase{{-900, 900}, -135, 25, "25.0", "-135"})); // held to 25 N

TEST_F(Force, DragFromTheNewArrowPostsOnlyWhatItChanged)
{
    ObjPtr o = makeObject(200, true);
    CSVGBase *c = o->content();
    // A new arrow points right at 2 N.
    EXPECT_EQ(handleCentre(c, "control_1"), tail(o) + QPointF(80, 0));
    GetFramework()->clearMessages();
    dragTipTo(o, {81, 0}, false);  // 2.025 N, still "2.0" and 0 degrees
    EXPECT_TRUE(postedSince().isEmpty());
    dragTipTo(o, {100, 0}, false);
    EXPECT_EQ(postedSince(), QStringList{"idForceValue=2.5"});
    GetFramework()->clearMessages();
    dragTipTo(o, {0, -100});
    EXPECT_EQ(postedSince(), (QStringList{"idAngle=90"}));
}

TEST_F(Force, LabelStaysUprightAndClearOfTheArrowWhateverItsDirection)
{
    ObjPtr o = makeObject(200, true);
    CSVGBase *c = o->content();
    typeIn(c, "idShowValue", "true");
    for (int deg = -165; deg <= 180; deg += 15) {
        SCOPED_TRACE(deg);
        typeIn(c, "idAngle", QString::number(deg));
        QSvgNode *name = node(c, "name");
        EXPECT_EQ(name->text(), "F = 2.0 N");
        EXPECT_TRUE(name->documentTransform().isIdentity());  // never turned with the arrow
        const QRectF box = name->rect();
        const QPointF dir(std::cos(deg * kPi / 180), -std::sin(deg * kPi / 180));
        const QPointF tip = tail(o) + dir * 80;
        for (int i = 0; i <= 100; ++i)
            EXPECT_FALSE(box.contains(tail(o) + (tip - tail(o)) * (i / 100.0))) << i;
        // Beyond the tip, in the arrow's direction.
        EXPECT_GT(QPointF::dotProduct(box.center() - tip, dir), 0);
    }
}

struct TypedCase {
    const char *key, *typed;
    double angle, newtons;
};

class ForceTyped : public Force, public ::testing::WithParamInterface<TypedCase> {};

// A typed magnitude keeps the direction, a typed direction the magnitude; values past
// the panel's range are held to it and text that is no number changes nothing.
TEST_P(ForceTyped, MovesTheTipAndKeepsTheOtherValue)
{
    ObjPtr o = makeObject(200, true);
    CSVGBase *c = o->content();
    dragTipTo(o, {0, -120});  // 90 degrees, 3 N
    const TypedCase &t = GetParam();
    typeIn(c, t.key, t.typed);
    EXPECT_NEAR(force(o)->angle(), t.angle, 1e-9);
    EXPECT_NEAR(force(o)->magnitude(), t.newtons, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Force, ForceTyped, ::testing::Values(
    TypedCase{"idForceValue", "7.25", 90, 7.25}, TypedCase{"idForceValue", "0", 90, 0.1},
    TypedCase{"idForceValue", "1e9", 90, 25}, TypedCase{"idForceValue", "abc", 90, 3},
    TypedCase{"idForceValue", "nan", 90, 3}, TypedCase{"idAngle", "135", 135, 3},
    TypedCase{"idAngle", "-44.5", -45, 3}, TypedCase{"idAngle", "-180", 180, 3},
    TypedCase{"idAngle", "200", 180, 3}, TypedCase{"idAngle", "x", 90, 3}));

// The name is saved ahead of the attribute stream, and a restore puts it back.
TEST_F(Force, NameIsSavedBeforeTheAttributesShownWithTheValueAndRestored)
{
    ObjPtr o = makeObject(200, true);
    CSVGBase *c = o->content();
    typeIn(c, "idForceName", "F\u2081 (\u62c9\u529b)");
    typeIn(c, "idShowValue", "true");
    dragTipTo(o, {-60, -60});
    QDataStream in(saveBytes(c));
    QString first;
    in >> first;
    EXPECT_EQ(first, "F\u2081 (\u62c9\u529b)");
    capture(c);
    typeIn(c, "idForceName", "");
    EXPECT_EQ(node(c, "name")->text(), "2.1 N");
    EXPECT_TRUE(c->editRestore());
    EXPECT_EQ(node(c, "name")->text(), "F\u2081 (\u62c9\u529b) = 2.1 N");
    typeIn(c, "idShowValue", "false");
    EXPECT_EQ(node(c, "name")->text(), "F\u2081 (\u62c9\u529b)");
}
