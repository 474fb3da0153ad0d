// Lenses: the circle kit's own rules, outlines rebuilt from the handles, the half
// lenses' direction, handle bounds, undo and persistence.
#include "helpers.h"
#include <QJsonObject>
#include <QtMath>
#include <QUndoStack>
#include <bases/GenCircle.h>
#include <optics/LensSemiConcave.h>
#include <optics/LensSemiRaised.h>
#include <svgpathdata.h>

namespace {

constexpr double kHalfPi = 1.5707963267948966;

QPainterPath lensShape(CSVGBase *c) { return node(c, "lens")->shape(); }
QRectF rectOf(CSVGBase *c, const char *id) { return node(c, id)->rect(); }
double num(CSVGBase *c, const char *id, const char *attr) { return node(c, id)->numAttribute(QLatin1String(attr)); }

bool setting(CSVGBase *c, const QString &key, const QString &value, bool flags = true)
{
    QMap<QString, QString> v{{key, value}};
    return c->SetSettingArray(v, flags, flags);
}

QString shown(CSVGBase *c, const char *key)
{
    for (const QJsonValue &v : settingsOf(c))
        if (v.toObject().value("id").toString() == QLatin1String(key))
            return v.toObject().value("value").toVariant().toString();
    return QString();
}

// The outline is one or more closed runs of finite lines and cubics (or nothing at all,
// for handles that leave no lens).
void expectClosedFiniteOutline(CSVGBase *c, bool mayBeEmpty = false)
{
    const QString d = node(c, "lens")->attribute("d");
    if (mayBeEmpty && d.isEmpty())
        return;
    ASSERT_FALSE(d.isEmpty());
    const auto segs = SvgPathData::parse(d);
    ASSERT_FALSE(segs.isEmpty());
    EXPECT_EQ(segs.first().cmd, QLatin1Char('M'));
    EXPECT_EQ(segs.last().cmd, QLatin1Char('Z'));
    for (const SvgPathSegment &s : segs) {
        EXPECT_TRUE(QString("MLCZ").contains(s.cmd)) << d.toStdString();
        for (double v : s.args)
            EXPECT_TRUE(std::isfinite(v)) << d.toStdString();
    }
    EXPECT_FALSE(d.contains("nan", Qt::CaseInsensitive));
}

struct LensTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearMessages();
    }
};

} // namespace

// ------------------------------------------------------------- the circle kit

TEST(GenCircle, EqualXGivesRightAngleAndAHorizontalPerpendicular)
{
    ObjPtr o = makeObject(600);
    auto *g = static_cast<CGenCircle *>(o->content());
    double angle = 0, k = 1, b = 0;
    QPointF mid;
    g->GetPointSlopeAngleAndCenter(QPointF(4, -2), QPointF(4, 10), angle, mid);
    EXPECT_EQ(angle, kHalfPi);
    EXPECT_EQ(mid, QPointF(4, 4));
    g->GetVerticalLine(angle, mid, k, b);
    EXPECT_EQ(k, 0);
    EXPECT_EQ(b, 4);
    g->GetVerticalLine(0, QPointF(7, 9), k, b);
    EXPECT_EQ(k, CGenCircle::kVerticalSlope);
    EXPECT_EQ(b, 7);
}

TEST(GenCircle, AnglesWithinOneHundredthOfRightAngleAreHorizontal)
{
    ObjPtr o = makeObject(600);
    auto *g = static_cast<CGenCircle *>(o->content());
    for (double a : {1.565, -1.565, 1.575, -1.575}) {
        double k = 1, b = 0;
        g->GetVerticalLine(a, QPointF(2, 3), k, b);
        EXPECT_EQ(k, 0) << a;
        EXPECT_EQ(b, 3) << a;
    }
    double k = 0, b = 0;
    g->GetVerticalLine(1.55, QPointF(2, 3), k, b);
    EXPECT_NEAR(k, -1 / std::tan(1.55), 1e-12);
    EXPECT_NEAR(b, 3 - k * 2, 1e-12);
}

TEST(GenCircle, CrossingRuleKeepsItsOddOutcomes)
{
    ObjPtr o = makeObject(600);
    auto *g = static_cast<CGenCircle *>(o->content());
    QPointF p;
    EXPECT_FALSE(g->GetCrossoverPointBySlope(0, 5, 2, 1, p));
    EXPECT_EQ(p, QPointF(-1, -1));
    EXPECT_FALSE(g->GetCrossoverPointBySlope(2, 1, 0, 5, p));
    EXPECT_EQ(p, QPointF(-1, -1));
    EXPECT_TRUE(g->GetCrossoverPointBySlope(65535, 3, 0, 7, p));
    EXPECT_EQ(p, QPointF(3, 7));
    EXPECT_TRUE(g->GetCrossoverPointBySlope(0, 7, 65535, 3, p));
    EXPECT_EQ(p, QPointF(3, 7));
    // Against a sloped line the sentinel is only a steep slope.
    EXPECT_TRUE(g->GetCrossoverPointBySlope(65535, 3, 2, 1, p));
    const double x = (3.0 - 1.0) / (2.0 - 65535.0);
    EXPECT_DOUBLE_EQ(p.x(), x);
    EXPECT_DOUBLE_EQ(p.y(), 2 * x + 1);
    EXPECT_TRUE(g->GetCrossoverPointBySlope(1, 0, -1, 4, p));
    EXPECT_EQ(p, QPointF(2, 2));
    EXPECT_TRUE(g->GetCrossoverPointBySlope(65535, 1, 65535, 2, p));
    EXPECT_FALSE(std::isfinite(p.x()));
}

TEST(GenCircle, CircleThroughThreePointsAndItsFailurePath)
{
    ObjPtr o = makeObject(600);
    auto *g = static_cast<CGenCircle *>(o->content());
    QPointF c;
    double r = 0;
    const QPointF centre(5, -3);
    auto at = [&](double deg) { return centre + 10 * QPointF(std::cos(qDegreesToRadians(deg)), std::sin(qDegreesToRadians(deg))); };
    ASSERT_TRUE(g->GetCircle(at(100), at(200), at(330), c, r));
    EXPECT_NEAR(c.x(), 5, 1e-9);
    EXPECT_NEAR(c.y(), -3, 1e-9);
    EXPECT_NEAR(r, 10, 1e-9);
    // Three points on a vertical: both perpendiculars horizontal, the crossing fails and
    // the radius is still measured from (-1, -1).
    EXPECT_FALSE(g->GetCircle(QPointF(2, -10), QPointF(2, 0), QPointF(2, 10), c, r));
    EXPECT_EQ(c, QPointF(-1, -1));
    EXPECT_DOUBLE_EQ(r, std::hypot(3, 9));
    EXPECT_DOUBLE_EQ(g->GetLineDistance(QPointF(1, 1), QPointF(4, 5)), 5);
}

// ------------------------------------------------------------- every lens

struct EveryLens : LensTest, ::testing::WithParamInterface<int> {};

TEST_P(EveryLens, TemplateOutlineIsClosedInsideTheDrawingWithConstructionHidden)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    expectClosedFiniteOutline(c);
    EXPECT_TRUE(c->document()->viewBox().contains(lensShape(c).boundingRect()));
    for (const char *id : {"circle_1", "circle_2", "lens_rect"})
        if (QSvgNode *n = node(c, id)) {
            EXPECT_FALSE(n->isVisible()) << id;
        }
    EXPECT_GT(num(c, "circle_1", "r"), 0);
    // Hit test: the lens and its handles, not the whole box.
    QPainterPath outline;
    c->getOutlinePath(&outline);
    const QPainterPath lens = lensShape(c);
    const QRectF vb = c->document()->viewBox();
    int inside = 0;
    for (double x = vb.left() + 0.3; x < vb.right(); x += 2)
        for (double y = vb.top() + 0.3; y < vb.bottom(); y += 2)
            if (lens.contains(QPointF(x, y))) {
                EXPECT_TRUE(outline.contains(QPointF(x, y))) << x << "," << y;
                ++inside;
            }
    EXPECT_GT(inside, 100);
    for (QSvgNode *h : c->controlNodes())
        EXPECT_TRUE(outline.contains(h->rect().center()));
    EXPECT_FALSE(outline.contains(vb.topLeft() + QPointF(0.5, 0.5)));
    EXPECT_EQ(c->getPropName(5002), "IDS_SVG_PHYSICAL_COLOR");
}

TEST_P(EveryLens, ReshapedLensComesBackIdenticalAndDragsAlike)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    const int last = c->controlNodes().size();
    drag(c, last == 3 ? "control_3" : "control_2", 0, 37.25);
    drag(c, "control_1", 9.5, 0);
    if (last == 3)
        drag(c, "control_2", -6, 0);
    QDataStream::Status status;
    ObjPtr copy = loadBytes(GetParam(), saveBytes(c), &status);
    EXPECT_EQ(status, QDataStream::Ok);
    EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(c)));
    EXPECT_EQ(copy->itemSize(), o->itemSize());
    for (ObjPtr *p : {&o, &copy}) {
        drag((*p)->content(), "control_1", -4, 0);
        drag((*p)->content(), last == 3 ? "control_3" : "control_2", 0, -11);
    }
    EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(c)));
    EXPECT_EQ(shown(copy->content(), "idPosValue"), shown(c, "idPosValue"));
}

TEST_P(EveryLens, TypedPercentageIsTruncatedAndCaptureRestoresIt)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    for (const char *v : {"0", "33", "100"}) {
        setting(c, "idPosValue", v);
        EXPECT_EQ(shown(c, "idPosValue"), v);
        expectClosedFiniteOutline(c);
    }
    setting(c, "idPosValue", "33");
    const double pos = rectOf(c, GetParam() < 603 ? "control_1" : "control_2").x();
    QByteArray none;
    QDataStream empty(&none, QIODevice::ReadOnly);
    c->SetAttribute(2804, empty, false, false);
    setting(c, "idPosValue", "90");
    drag(c, "control_2", 0, 20);
    c->SetAttribute(2805, empty, false, false);
    EXPECT_DOUBLE_EQ(rectOf(c, GetParam() < 603 ? "control_1" : "control_2").x(), pos);
    // A percentage past the ends is taken as typed; text that is no integer, or a place
    // past the extent every drawing keeps within, changes nothing.
    setting(c, "idPosValue", "150");
    EXPECT_EQ(shown(c, "idPosValue"), "150");
    for (const char *refused : {"junk", "12.5", "100000000"}) {
        setting(c, "idPosValue", refused);
        EXPECT_EQ(shown(c, "idPosValue"), "150") << refused;
    }
}

TEST_P(EveryLens, WildDragsLeaveAFiniteOutline)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    const double nan = std::nan("");
    for (const QPointF d : {QPointF(1e300, 1e300), QPointF(-1e300, -1e300), QPointF(nan, nan), QPointF(0.001, 0)}) {
        for (QSvgNode *h : c->controlNodes())
            c->moveControlPoint(h, d, true);
        expectClosedFiniteOutline(c);
    }
    EXPECT_FALSE(c->updateSVG(nullptr, QPointF(5, 5), true));
    // A stream whose handles lie absurdly far away loads into a bounded, usable lens.
    QByteArray bytes = saveBytes(c);
    QByteArray far;
    {
        QDataStream out(&far, QIODevice::WriteOnly);
        for (int i = 0; i < 2 * c->controlNodes().size(); ++i)
            out << (i % 2 ? -1e300 : 1e300);
    }
    bytes.replace(bytes.size() - far.size(), far.size(), far);
    ObjPtr copy = loadBytes(GetParam(), bytes);
    for (int step = 0; step < 2; ++step) {
        expectClosedFiniteOutline(copy->content(), true);
        const QRectF vb = copy->content()->document()->viewBox();
        EXPECT_LE(std::max(vb.width(), vb.height()), 4100);
        drag(copy->content(), "control_1", -3, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Lens, EveryLens, ::testing::Values(600, 601, 603, 604));

// ------------------------------------------------------------- convex

TEST_F(LensTest, ConvexTemplateFacesAreMirrorArcsThroughTipsAndVertices)
{
    ObjPtr o = makeObject(600, true);
    CSVGBase *c = o->content();
    for (const char *id : {"circle_1", "circle_2"}) {
        const QPointF ctr(num(c, id, "cx"), num(c, id, "cy"));
        const double r = num(c, id, "r");
        const double sx = QLatin1String(id) == QLatin1String("circle_1") ? 15 : -15;
        for (const QPointF p : {QPointF(0, -46), QPointF(sx, 0), QPointF(0, 46)})
            EXPECT_NEAR(std::hypot(p.x() - ctr.x(), p.y() - ctr.y()), r, 1e-9) << id;
    }
    EXPECT_DOUBLE_EQ(num(c, "circle_1", "cx"), -num(c, "circle_2", "cx"));
    const QPainterPath lens = lensShape(c);
    const QRectF b = lens.boundingRect();
    EXPECT_NEAR(b.left(), -15, 1e-3);
    EXPECT_NEAR(b.right(), 15, 1e-3);
    EXPECT_NEAR(b.top(), -46, 1e-3);
    EXPECT_NEAR(b.bottom(), 46, 1e-3);
    for (double y = -44; y <= 44; y += 4)
        for (double x = 0.5; x < 16; x += 1.5)
            EXPECT_EQ(lens.contains(QPointF(x, y)), lens.contains(QPointF(-x, y))) << x << "," << y;
}

TEST_F(LensTest, ConvexBoundsCoupleThicknessAndHeight)
{
    ObjPtr o = makeObject(600, true);
    CSVGBase *c = o->content();
    QSvgNode *h1 = node(c, "control_1"), *h2 = node(c, "control_2");
    EXPECT_DOUBLE_EQ(c->getXMax(h1), 46 * 0.5 - 8);
    EXPECT_DOUBLE_EQ(c->getYMin(h2), 2 * 15 - 8);
    EXPECT_DOUBLE_EQ(c->getXMin(h1), 3);
    drag(c, "control_1", 100, 0);
    EXPECT_DOUBLE_EQ(rectOf(c, "control_1").x(), 15);
}

TEST_F(LensTest, HeightDragGrowsAboutTheCentreOnlyOnceTheTopIsNegative)
{
    ObjPtr o = makeObject(600, true);
    CSVGBase *c = o->content();
    QSvgTinyDocument *doc = c->document();
    doc->setViewBox(QRectF(-19, 0, 38, 100));
    drag(c, "control_2", 0, 10);
    EXPECT_EQ(doc->viewBox(), QRectF(-19, 0, 38, 110));
    doc->setViewBox(QRectF(-19, -50, 38, 100));
    drag(c, "control_2", 0, 10);
    EXPECT_EQ(doc->viewBox(), QRectF(-19, -60, 38, 120));
    const QString d = node(c, "lens")->attribute("d");
    EXPECT_FALSE(c->updateSVG(nullptr, QPointF(0, 10), true));
    EXPECT_EQ(node(c, "lens")->attribute("d"), d);
}

TEST_F(LensTest, ThicknessDragEchoesThePercentagePanelEditDoesNot)
{
    for (int type : {600, 601}) {
        ObjPtr o = makeObject(type, true);
        CSVGBase *c = o->content();
        GetFramework()->clearMessages();
        drag(c, "control_1", 2, 0);
        ASSERT_EQ(GetFramework()->settingsMessages().size(), 1) << type;
        EXPECT_TRUE(GetFramework()->settingsMessages().last().contains("\"idPosValue\"")) << type;
        setting(c, "idPosValue", "10");
        drag(c, "control_2", 0, 5);
        EXPECT_EQ(GetFramework()->settingsMessages().size(), 1) << type;
    }
}

// ------------------------------------------------------------- half lenses

struct HalfLens : LensTest, ::testing::WithParamInterface<int> {};

TEST_P(HalfLens, LeftRightLeftMirrorsAndRestoresTheHandles)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    drag(c, "control_1", 7, 0);
    const QRectF right1 = rectOf(c, "control_1"), right2 = rectOf(c, "control_2");
    const QString rightSvg = svgText(c);
    const QString pRight = shown(c, "idPosValue");
    setting(c, "idLensDirection", "1");
    const double axis = (GetParam() == 601 ? rectOf(c, "control_2") : rectOf(c, "control_3")).center().x();
    EXPECT_NEAR(rectOf(c, "control_1").center().x(), 2 * axis - right1.center().x(), 1e-9);
    EXPECT_EQ(settingsOf(c)[0].toObject().value("value").toInt(), 1);
    EXPECT_NEAR(shown(c, "idPosValue").toInt(), pRight.toInt(), 1);
    expectClosedFiniteOutline(c);
    const QRectF lens = lensShape(c).boundingRect();
    EXPECT_LT(lens.center().x(), axis);
    const QString leftSvg = svgText(c);
    setting(c, "idLensDirection", "0");
    EXPECT_EQ(rectOf(c, "control_1"), right1);
    EXPECT_EQ(rectOf(c, "control_2"), right2);
    EXPECT_TRUE(sameDocument(svgText(c), rightSvg));
    setting(c, "idLensDirection", "1");
    EXPECT_TRUE(sameDocument(svgText(c), leftSvg));
    setting(c, "idLensDirection", "0");
    // Any other index keeps the direction.
    setting(c, "idLensDirection", "7");
    EXPECT_EQ(rectOf(c, "control_1"), right1);
}

TEST_P(HalfLens, LeftFacingLensComesBackIdenticalAndUndoTurnsItBack)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    const QString right = svgText(c);
    setting(c, "idLensDirection", "1");
    drag(c, "control_1", -5, 0);
    QDataStream::Status status;
    ObjPtr copy = loadBytes(GetParam(), saveBytes(c), &status);
    EXPECT_EQ(status, QDataStream::Ok);
    EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(c)));
    EXPECT_EQ(settingsOf(copy->content()), settingsOf(c));
    for (ObjPtr *p : {&o, &copy})
        drag((*p)->content(), "control_1", -3, 0);
    EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(c)));

    QUndoStack *stack = GetFramework()->undoStack();
    while (stack->canUndo())
        stack->undo();
    EXPECT_TRUE(sameDocument(svgText(c), right));
}

TEST_P(HalfLens, LeftBoundsMirrorTheRightOnes)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    const char *thick = GetParam() == 601 ? "control_1" : "control_2";
    QSvgNode *h = node(c, thick);
    const double w = h->rect().width();
    const double axis = (GetParam() == 601 ? rectOf(c, "control_2") : rectOf(c, "control_3")).center().x();
    const double lo = c->getXMin(h), hi = c->getXMax(h);
    setting(c, "idLensDirection", "1");
    EXPECT_NEAR(c->getXMin(h), 2 * axis - hi - w, 1e-9);
    EXPECT_NEAR(c->getXMax(h), 2 * axis - lo - w, 1e-9);
    setting(c, "idPosValue", "100");
    setting(c, "idLensDirection", "0");
    EXPECT_EQ(shown(c, "idPosValue"), "100");
}

INSTANTIATE_TEST_SUITE_P(Lens, HalfLens, ::testing::Values(601, 604));

// ------------------------------------------------------------- concave

struct ConcaveLens : LensTest, ::testing::WithParamInterface<int> {};

// Every arc stays within a semicircle whatever the handles do.
TEST_P(ConcaveLens, HandlesKeepTheArcNoDeeperThanASemicircle)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    const QPointF moves[] = {{40, 0}, {-30, 0}, {0, -90}, {0, 200}, {-80, 0}, {80, 0}};
    const char *handles[] = {"control_1", "control_2", "control_3", "control_3", "control_2", "control_1"};
    for (int i = 0; i < 6; ++i) {
        drag(c, handles[i], moves[i].x(), moves[i].y());
        const QPointF c1 = rectOf(c, "control_1").center(), c2 = rectOf(c, "control_2").center(),
                      c3 = rectOf(c, "control_3").center();
        const double axis = GetParam() == 603 ? 0 : c3.x();
        EXPECT_LE(c1.x() - c2.x(), (c3.y() - c1.y()) / 2 + 1e-9) << i;
        EXPECT_GE(c1.x() - c2.x(), -1e-9) << i;
        EXPECT_GE(c2.x(), axis - 1e-9) << i;
        EXPECT_NEAR(c2.y(), (c1.y() + c3.y()) / 2, 1e-9) << i;
        expectClosedFiniteOutline(c);
    }
}

TEST_P(ConcaveLens, FlatFaceFailsTheCircleAndKeepsTheRectangle)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    setting(c, "idPosValue", "100");
    EXPECT_EQ(rectOf(c, "control_2").x(), rectOf(c, "control_1").x());
    EXPECT_EQ(num(c, "circle_1", "r"), 0);
    const QRectF body = node(c, "lens_rect")->rect();
    EXPECT_TRUE(lensShape(c).boundingRect().contains(body.adjusted(0.01, 0.01, -0.01, -0.01)));
    EXPECT_NEAR(lensShape(c).boundingRect().width(), body.width(), 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Lens, ConcaveLens, ::testing::Values(603, 604));

TEST_F(LensTest, ConcaveTemplateHasSymmetricFacesAndAHalfwayWaist)
{
    ObjPtr o = makeObject(603, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(node(c, "lens_rect")->rect(), QRectF(-20, 4, 40, 92));
    EXPECT_DOUBLE_EQ(num(c, "circle_1", "cx"), -num(c, "circle_2", "cx"));
    EXPECT_EQ(shown(c, "idPosValue"), "55");
    const QPainterPath lens = lensShape(c);
    for (double y = 6; y <= 94; y += 4)
        for (double x = 0.25; x < 20; x += 1.5)
            EXPECT_EQ(lens.contains(QPointF(x, y)), lens.contains(QPointF(-x, y))) << x << "," << y;
    drag(c, "control_3", 0, 30);
    EXPECT_DOUBLE_EQ(rectOf(c, "control_2").center().y(), (4 + 126) / 2.0);
    EXPECT_EQ(c->document()->viewBox(), QRectF(-24, 0, 48, 130));
}
