// Field diagrams: the magnetic field region (marks that fill it evenly, regenerated as
// it is sized or its choices change) and the electric field between two plates.
#include "panel.h"
#include <electromagnetism/Electricfield.h>
#include <electromagnetism/Magneticfield.h>


namespace {

struct MagneticfieldTest : Of<CMagneticfield, 506> {
    // Puts the corner handle's centre where the region reaches (w, h).
    void sizeTo(double w, double h)
    {
        const QRectF r = obj->region();
        const QPointF corner = node(c, "control_1")->rect().center();
        drag(c, "control_1", r.x() + w - corner.x(), r.y() + h - corner.y());
    }
};

struct Sizing {
    double width, height;
    int density; // 0 sparse (40), 1 normal (30), 2 dense (20)
};

struct MagneticfieldFill : MagneticfieldTest, ::testing::WithParamInterface<Sizing> {};

} // namespace

// Whatever the size, every mark lies whole inside the region, one per cell.
TEST_P(MagneticfieldFill, NoMarkIsCutAtTheBorder)
{
    const Sizing s = GetParam();
    setDirect(c, "idDensity", QString::number(s.density));
    sizeTo(s.width, 1000); // rows come and go on the way
    sizeTo(s.width, s.height);
    const double pitch = obj->spacing();
    const QRectF r = obj->region();
    ASSERT_EQ(r.size(), QSizeF(s.width, s.height));
    const int n = int(std::floor(s.width / pitch)) * int(std::floor(s.height / pitch));
    ASSERT_EQ(seriesCount(c, "mark"), n);
    QRectF all;
    for (int k = 1; k <= n; ++k)
        all |= node(c, QStringLiteral("mark_%1").arg(k).toLatin1().constData())->documentBounds();
    EXPECT_TRUE(r.contains(all));
    // The grid is centred: equal margins either side.
    EXPECT_NEAR(all.left() - r.left(), r.right() - all.right(), 1e-9);
    EXPECT_NEAR(all.top() - r.top(), r.bottom() - all.bottom(), 1e-9);
    EXPECT_TRUE(reopens(c));
}

INSTANTIATE_TEST_SUITE_P(Sizes, MagneticfieldFill,
                         ::testing::Values(Sizing{200, 160, 1}, Sizing{40, 40, 0}, Sizing{59.5, 41, 2}, Sizing{1000, 1000, 2},
                                           Sizing{333, 77, 0}, Sizing{1000, 40, 1}));

// Arrowed lines span the region, one per row (right, left) or column (up, down), as it
// is resized along them and across them.
TEST_F(MagneticfieldTest, LinesRunTheRegionOnePerRowOrColumn)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idFieldDirection", "idDensity", "idFieldColor", "idShowBorder", "idWidth", "idHeight"}));
    for (int direction : {2, 3, 4, 5}) {
        setDirect(c, "idFieldDirection", QString::number(direction));
        for (const QSizeF size : {QSizeF(200, 160), QSizeF(200, 400), QSizeF(330, 400), QSizeF(100, 100)}) {
            sizeTo(size.width(), size.height());
            const bool rows = direction < 4;
            const int n = int(std::floor((rows ? size.height() : size.width()) / 30));
            ASSERT_EQ(seriesCount(c, "mark"), n) << direction;
            for (int k : {1, n}) {
                const QRectF b = node(c, QStringLiteral("mark_%1").arg(k).toLatin1().constData())->documentBounds();
                EXPECT_NEAR(rows ? b.width() : b.height(), rows ? size.width() : size.height(), 1e-9) << direction << " " << k;
            }
        }
    }
    setDirect(c, "idFieldDirection", "1"); // back to a grid of dots
    EXPECT_EQ(seriesCount(c, "mark"), 3 * 3);
}

TEST_F(MagneticfieldTest, HandleAndPercentagesSizeTheRegion)
{
    GetFramework()->clearMessages();
    drag(c, "control_1", 96, 0);
    EXPECT_EQ(lastPosted(), QStringList({"idWidth=26"})); // (296 - 40) * 100 / 960
    sizeTo(5, 5000);
    EXPECT_EQ(obj->region().size(), QSizeF(40, 1000));
    EXPECT_EQ(shown(c, "idWidth"), "0");
    EXPECT_EQ(shown(c, "idHeight"), "100");
    GetFramework()->clearMessages();
    setDirect(c, "idWidth", "50.4");
    setDirect(c, "idHeight", "not a number");
    EXPECT_EQ(obj->region().size(), QSizeF(520, 1000));
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    EXPECT_EQ(seriesCount(c, "mark"), 17 * 33);
}

TEST_F(MagneticfieldTest, ChoicesColourBorderAndRestore)
{
    sendEvent(c, 2804);
    EXPECT_TRUE(setDirect(c, "idFieldColor", "#008000"));
    setDirect(c, "idShowBorder", "false");
    setDirect(c, "idDensity", "2");
    setDirect(c, "idDensity", "3"); // no such choice: refused
    EXPECT_EQ(obj->spacing(), 20);
    EXPECT_FALSE(node(c, "border")->isVisible());
    EXPECT_EQ(node(c, "marks")->attribute("stroke").toLower(), "#008000");
    EXPECT_EQ(seriesCount(c, "mark"), 10 * 8);
    sizeTo(1000, 1000);
    EXPECT_EQ(seriesCount(c, "mark"), 2500);
    sendEvent(c, 2805);
    EXPECT_EQ(obj->region().size(), QSizeF(200, 160));
    EXPECT_EQ(obj->spacing(), 30);
    EXPECT_TRUE(node(c, "border")->isVisible());
    EXPECT_EQ(seriesCount(c, "mark"), 30);
}

// ------------------------------------------------------------------- plates

namespace {

struct ElectricfieldTest : Of<CElectricfield, 507> {
    // Whether the head of line k has its tip (its first point) below its base.
    bool pointsDown(int k)
    {
        const QString d = node(c, QStringLiteral("arrow_%1").arg(k).toLatin1().constData())->attribute("d");
        const QStringList nums = d.split(QRegularExpression("[ ,MLZ]+"), Qt::SkipEmptyParts);
        return nums.size() >= 4 && nums[1].toDouble() > nums[3].toDouble();
    }
};

} // namespace

TEST_F(ElectricfieldTest, LinesRunFromPlusToMinus)
{
    EXPECT_EQ(settingKeys(c), QStringList({"idPositivePlate", "idShowPlates", "idLineColor", "idLength", "idSeparation"}));
    EXPECT_EQ(seriesCount(c, "line"), 6);
    for (int k = 1; k <= 6; ++k)
        EXPECT_TRUE(pointsDown(k)) << k;
    setDirect(c, "idPositivePlate", "1");
    EXPECT_FALSE(obj->topPositive());
    for (int k = 1; k <= 6; ++k)
        EXPECT_FALSE(pointsDown(k)) << k;
    // The bottom plate now carries the plus: a vertical stroke in its sign.
    EXPECT_TRUE(node(c, "sign_bottom")->attribute("d").contains('V'));
    EXPECT_FALSE(node(c, "sign_top")->attribute("d").contains('V'));
    setDirect(c, "idShowPlates", "false");
    EXPECT_FALSE(node(c, "plate_top")->isVisible());
    EXPECT_FALSE(node(c, "plates_signs")->isVisible());
    setDirect(c, "idLineColor", "#1e63d6");
    setDirect(c, "idLineColor", "no colour");
    EXPECT_EQ(node(c, "lines")->attribute("stroke").toLower(), "#1e63d6");
}

TEST_F(ElectricfieldTest, HandlesHoldLengthAndSeparationToTheirRanges)
{
    GetFramework()->clearMessages();
    drag(c, "control_1", 74, 0);
    EXPECT_EQ(obj->plateLength(), 274);
    EXPECT_EQ(seriesCount(c, "line"), 9);
    EXPECT_EQ(lastPosted(), QStringList({"idLength=28"})); // (274 - 60) * 100 / 740
    drag(c, "control_1", 5000, 0);
    EXPECT_EQ(obj->plateLength(), 800);
    drag(c, "control_1", -5000, 0);
    EXPECT_EQ(obj->plateLength(), 60);
    EXPECT_EQ(seriesCount(c, "line"), 2);
    drag(c, "control_2", 0, -500);
    EXPECT_EQ(obj->separation(), 30);
    setDirect(c, "idSeparation", "100");
    EXPECT_EQ(obj->separation(), 600);
    // Each line reaches from plate to plate.
    const QRectF line = node(c, "line_1")->documentBounds();
    EXPECT_NEAR(line.height(), 600, 1.5);
    // The upper plate never moved.
    EXPECT_EQ(node(c, "plate_top")->rect().top(), 22);
}
