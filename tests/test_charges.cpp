// The point charge (radial lines whose heads point out of + and into −, the length
// handle) and the electron (a velocity arrow turned and stretched by its tip).
#include "panel.h"
#include <electromagnetism/Electriccharge.h>
#include <electromagnetism/Negativeelectron.h>


namespace {

constexpr double kPi = 3.141592653589793;
const QPointF kSphere(126, 126);

QVector<double> numbers(const QString &d)
{
    QVector<double> out;
    for (const QString &s : d.split(QRegularExpression("[ ,MLZ]+"), Qt::SkipEmptyParts))
        out << s.toDouble();
    return out;
}

using ElectricchargeTest = Of<CElectriccharge, 508>;

struct Charge {
    int sign;  // 0 positive, 1 negative
    int count; // 0, 1, 2: 8, 12, 16 lines
};

struct ElectricchargeLines : ElectricchargeTest, ::testing::WithParamInterface<Charge> {};

} // namespace

// Line k leaves at (k - 1) / n of a turn anticlockwise; its head points away from +
// and towards −.
TEST_P(ElectricchargeLines, HeadsPointTheWayOfTheSign)
{
    const Charge ch = GetParam();
    setDirect(c, "idChargeSign", QString::number(ch.sign));
    setDirect(c, "idLineCount", QString::number(ch.count));
    const int n = obj->lineCount();
    ASSERT_EQ(n, 8 + 4 * ch.count);
    ASSERT_EQ(seriesCount(c, "line"), n);
    for (int k = 1; k <= n; ++k) {
        const QVector<double> v = numbers(node(c, QStringLiteral("line_%1").arg(k).toLatin1().constData())->attribute("d"));
        ASSERT_EQ(v.size(), 10) << k;
        const QPointF end(v[2] - kSphere.x(), kSphere.y() - v[3]);
        double a = std::atan2(end.y(), end.x()) * 180 / kPi;
        if (a < -1e-9)
            a += 360;
        EXPECT_NEAR(a, 360.0 * (k - 1) / n, 1e-9) << k;
        const double tip = std::hypot(v[4] - kSphere.x(), v[5] - kSphere.y());
        const double base = std::hypot((v[6] + v[8]) / 2 - kSphere.x(), (v[7] + v[9]) / 2 - kSphere.y());
        if (ch.sign == 0)
            EXPECT_GT(tip, base) << k;
        else
            EXPECT_LT(tip, base) << k;
    }
    EXPECT_EQ(node(c, "sign")->attribute("d").contains('V'), ch.sign == 0);
}

INSTANTIATE_TEST_SUITE_P(Signs, ElectricchargeLines,
                         ::testing::Values(Charge{0, 0}, Charge{0, 2}, Charge{1, 0}, Charge{1, 1}, Charge{1, 2}));

TEST_F(ElectricchargeTest, LengthHandleGrowsTheItemAboutTheSphere)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idChargeSign", "idShowFieldLines", "idLineCount", "idLength"}));
    EXPECT_EQ(settingItem(c, "idLineCount").value("options").toArray(), QJsonArray({"8", "12", "16"}));
    EXPECT_EQ(obj->lineLength(), 100);
    GetFramework()->clearMessages();
    drag(c, "control_1", 70, 40);
    EXPECT_EQ(obj->lineLength(), 170);
    EXPECT_EQ(lastPosted(), QStringList({"idLength=53"})); // (170 - 20) * 100 / 280
    const QPointF sphere = node(c, "sphere")->documentBounds().center();
    EXPECT_NEAR(c->document()->viewBox().center().x(), sphere.x(), 1e-9);
    EXPECT_NEAR(c->document()->viewBox().center().y(), sphere.y(), 1e-9);
    drag(c, "control_1", 1000, 0);
    EXPECT_EQ(obj->lineLength(), 300);
    setDirect(c, "idLength", "0");
    EXPECT_EQ(obj->lineLength(), 20);
    EXPECT_EQ(node(c, "sphere")->documentBounds().center(), sphere);
}

TEST_F(ElectricchargeTest, HiddenLinesChoicesAndRestore)
{
    sendEvent(c, 2804);
    setDirect(c, "idShowFieldLines", "false");
    setDirect(c, "idLineCount", "3"); // no such choice
    setDirect(c, "idLineCount", "2");
    EXPECT_FALSE(node(c, "lines")->isVisible());
    EXPECT_EQ(seriesCount(c, "line"), 16);
    drag(c, "control_1", -50, 0);
    sendEvent(c, 2805);
    EXPECT_TRUE(node(c, "lines")->isVisible());
    EXPECT_EQ(seriesCount(c, "line"), 8);
    EXPECT_EQ(obj->lineLength(), 100);
}

// ------------------------------------------------------------------- electron

using NegativeelectronTest = Of<CNegativeelectron, 509>;

TEST_F(NegativeelectronTest, TipMovesFreelyWithinItsLengths)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idShowVelocity", "idAngle"}));
    EXPECT_EQ(obj->length(), 100);
    GetFramework()->clearMessages();
    drag(c, "control_1", -100, -100); // straight up from the centre
    EXPECT_NEAR(obj->angle(), 90, 1e-9);
    EXPECT_NEAR(obj->length(), 100, 1e-9);
    EXPECT_EQ(lastPosted(), QStringList({"idAngle=90"}));
    EXPECT_NEAR(node(c, "velocity")->numAttribute("rotate_angle"), -90, 1e-9);
    drag(c, "control_1", 0, 95); // nearly onto the electron: held to 20
    EXPECT_NEAR(obj->length(), 20, 1e-9);
    EXPECT_NEAR(obj->angle(), 90, 1e-9);
    drag(c, "control_1", -2000, 0); // far away: held to 400
    EXPECT_NEAR(obj->length(), 400, 1e-9);
    EXPECT_EQ(shown(c, "idAngle"), "177");
    // The arrow's head reaches the handle.
    const QRectF arrow = node(c, "velocity")->documentBounds();
    EXPECT_NEAR(arrow.left(), node(c, "control_1")->rect().center().x(), 1);
    EXPECT_TRUE(reopens(c));
}

TEST_F(NegativeelectronTest, TypedAngleKeepsTheLengthAndRestores)
{
    sendEvent(c, 2804);
    drag(c, "control_1", 50, 0);
    GetFramework()->clearMessages();
    setDirect(c, "idAngle", "-90");
    EXPECT_NEAR(obj->angle(), -90, 1e-9);
    EXPECT_NEAR(obj->length(), 150, 1e-9);
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    setDirect(c, "idAngle", "fast");
    EXPECT_NEAR(obj->angle(), -90, 1e-9);
    setDirect(c, "idShowVelocity", "false");
    EXPECT_FALSE(node(c, "velocity")->isVisible());
    EXPECT_FALSE(node(c, "v_label")->isVisible());
    sendEvent(c, 2805);
    EXPECT_TRUE(node(c, "velocity")->isVisible());
    EXPECT_NEAR(obj->angle(), 0, 1e-9);
    EXPECT_NEAR(obj->length(), 100, 1e-9);
}
