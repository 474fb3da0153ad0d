// Field diagrams: the magnetic field region (marks that fill it evenly, regenerated as
// it is sized or its choices change) and the electric field between two plates.
#include "panel.h"
#include <electromagnetism/Electricfield.h>
#include <electromagnetism/Magneticfield.h>

using namespace Panel;

namespace {

struct MagneticfieldTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(506);
        field = static_cast<CMagneticfield *>(c);
    }
    // Puts the corner handle's centre where the region reaches (w, h).
    void sizeTo(double w, double h)
    {
        const QRectF r = field->region();
        const QPointF corner = node(c, "control_1")->rect().center();
        drag(c, "control_1", r.x() + w - corner.x(), r.y() + h - corner.y());
    }
    CSVGBase *c = nullptr;
    CMagneticfield *field = nullptr;
};

struct Sizing {
    double width, height;
    int density; // 0 sparse (40), 1 normal (30), 2 dense (20)
};

struct MagneticfieldFill : MagneticfieldTest, ::testing::WithParamInterface<Sizing> {};

} // namespace

TEST_F(MagneticfieldTest, DefaultRegionHoldsSixByFiveCrosses)
{
    EXPECT_EQ(keys(c), QStringList({"idFieldDirection", "idDensity", "idFieldColor", "idShowBorder", "idWidth", "idHeight"}));
    EXPECT_EQ(item(c, "idFieldDirection").value("label").toString(), "IDS_PHYSICSOBJ_FIELD_DIRECTION");
    EXPECT_EQ(item(c, "idDensity").value("value").toInt(), 1);
    EXPECT_EQ(item(c, "idFieldColor").value("value").toString(), "#1e63d6");
    EXPECT_EQ(field->region().size(), QSizeF(200, 160));
    EXPECT_EQ(field->spacing(), 30);
    EXPECT_EQ(count(c, "mark"), 6 * 5);
    EXPECT_EQ(node(c, "name")->text(), "B");
    const auto &a = field->attributes();
    EXPECT_EQ(a.value(5100).propId, 1101);
    EXPECT_EQ(a.value(5103).propId, 1104);
    EXPECT_TRUE(a.value(5103).boolValue);
}

// Whatever the size, every mark lies whole inside the region, one per cell.
TEST_P(MagneticfieldFill, NoMarkIsCutAtTheBorder)
{
    const Sizing s = GetParam();
    set(c, "idDensity", QString::number(s.density));
    sizeTo(s.width, s.height);
    const double pitch = field->spacing();
    const QRectF r = field->region();
    ASSERT_EQ(r.size(), QSizeF(s.width, s.height));
    const int n = int(std::floor(s.width / pitch)) * int(std::floor(s.height / pitch));
    ASSERT_EQ(count(c, "mark"), n);
    QRectF all;
    for (int k = 1; k <= n; ++k)
        all |= node(c, QStringLiteral("mark_%1").arg(k).toLatin1().constData())->documentBounds();
    EXPECT_TRUE(r.contains(all)) << "marks over " << all.x() << "," << all.y() << " " << all.width() << "x" << all.height();
    // The grid is centred: equal margins either side.
    EXPECT_NEAR(all.left() - r.left(), r.right() - all.right(), 1e-9);
    EXPECT_NEAR(all.top() - r.top(), r.bottom() - all.bottom(), 1e-9);
    EXPECT_TRUE(reopens(c));
}

INSTANTIATE_TEST_SUITE_P(Sizes, MagneticfieldFill,
                         ::testing::Values(Sizing{200, 160, 1}, Sizing{40, 40, 0}, Sizing{59.5, 41, 2}, Sizing{1000, 1000, 2},
                                           Sizing{333, 77, 0}, Sizing{1000, 40, 1}));

TEST_F(MagneticfieldTest, LinesRunTheRegionOnePerRowOrColumn)
{
    const struct {
        int direction, lines;
    } cases[] = {{2, 5}, {3, 5}, {4, 6}, {5, 6}};
    for (const auto &k : cases) {
        set(c, "idFieldDirection", QString::number(k.direction));
        EXPECT_EQ(count(c, "mark"), k.lines) << k.direction;
        const QRectF b = node(c, "mark_1")->documentBounds();
        const QRectF r = field->region();
        if (k.direction < 4)
            EXPECT_NEAR(b.width(), r.width(), 1e-9);
        else
            EXPECT_NEAR(b.height(), r.height(), 1e-9);
    }
    set(c, "idFieldDirection", "1"); // back to a grid of dots
    EXPECT_EQ(count(c, "mark"), 30);
    EXPECT_EQ(count(c, "mark"), 30);
}

TEST_F(MagneticfieldTest, HandleAndPercentagesSizeTheRegion)
{
    GetFramework()->clearMessages();
    drag(c, "control_1", 96, 0);
    EXPECT_EQ(posted(), QStringList({"idWidth=26"})); // (296 - 40) * 100 / 960
    sizeTo(5, 5000);
    EXPECT_EQ(field->region().size(), QSizeF(40, 1000));
    EXPECT_EQ(shown(c, "idWidth"), "0");
    EXPECT_EQ(shown(c, "idHeight"), "100");
    GetFramework()->clearMessages();
    set(c, "idWidth", "50.4");
    set(c, "idHeight", "not a number");
    EXPECT_EQ(field->region().size(), QSizeF(520, 1000));
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    EXPECT_EQ(count(c, "mark"), 17 * 33);
}

TEST_F(MagneticfieldTest, ChoicesColourBorderAndRestore)
{
    event(c, 2804);
    EXPECT_TRUE(set(c, "idFieldColor", "#008000"));
    set(c, "idShowBorder", "false");
    set(c, "idDensity", "2");
    set(c, "idDensity", "3"); // no such choice: refused
    EXPECT_EQ(field->spacing(), 20);
    EXPECT_FALSE(node(c, "border")->isVisible());
    EXPECT_EQ(node(c, "marks")->attribute("stroke").toLower(), "#008000");
    EXPECT_EQ(count(c, "mark"), 10 * 8);
    sizeTo(100, 100);
    event(c, 2805);
    EXPECT_EQ(field->region().size(), QSizeF(200, 160));
    EXPECT_EQ(field->spacing(), 30);
    EXPECT_TRUE(node(c, "border")->isVisible());
    EXPECT_EQ(count(c, "mark"), 30);
    EXPECT_TRUE(reopens(c));
}

TEST_F(MagneticfieldTest, UndoGivesBackEveryMark)
{
    const QString before = svgText(c);
    sizeTo(1000, 1000);
    set(c, "idDensity", "2");
    EXPECT_EQ(count(c, "mark"), 2500);
    GetFramework()->undoStack()->undo();
    GetFramework()->undoStack()->undo();
    EXPECT_EQ(svgText(c), before);
    EXPECT_EQ(count(c, "mark"), 30);
    CSVGBase *other = make(506);
    EXPECT_TRUE(refusesCut(c, other));
}

// ------------------------------------------------------------------- plates

namespace {

struct ElectricfieldTest : Fixture {
    void SetUp() override
    {
        Fixture::SetUp();
        c = make(507);
        plates = static_cast<CElectricfield *>(c);
    }
    // Whether the head of line k has its tip (its first point) below its base.
    bool pointsDown(int k)
    {
        const QString d = node(c, QStringLiteral("arrow_%1").arg(k).toLatin1().constData())->attribute("d");
        const QStringList nums = d.split(QRegularExpression("[ ,MLZ]+"), Qt::SkipEmptyParts);
        return nums.size() >= 4 && nums[1].toDouble() > nums[3].toDouble();
    }
    CSVGBase *c = nullptr;
    CElectricfield *plates = nullptr;
};

} // namespace

TEST_F(ElectricfieldTest, DefaultPlatesAndLines)
{
    EXPECT_EQ(keys(c), QStringList({"idPositivePlate", "idShowPlates", "idLineColor", "idLength", "idSeparation"}));
    EXPECT_EQ(item(c, "idSeparation").value("label").toString(), "IDS_PHYSICSOBJ_SEPARATION");
    EXPECT_EQ(plates->plateLength(), 200);
    EXPECT_EQ(plates->separation(), 100);
    EXPECT_TRUE(plates->topPositive());
    EXPECT_EQ(count(c, "line"), 6);
    EXPECT_EQ(node(c, "name")->text(), "E");
    EXPECT_EQ(plates->attributes().value(5102).color, QColor(0xE0, 0x20, 0x20));
}

TEST_F(ElectricfieldTest, LinesRunFromPlusToMinus)
{
    for (int k = 1; k <= 6; ++k)
        EXPECT_TRUE(pointsDown(k)) << k;
    set(c, "idPositivePlate", "1");
    EXPECT_FALSE(plates->topPositive());
    for (int k = 1; k <= 6; ++k)
        EXPECT_FALSE(pointsDown(k)) << k;
    // The bottom plate now carries the plus: a vertical stroke in its sign.
    EXPECT_TRUE(node(c, "sign_bottom")->attribute("d").contains('V'));
    EXPECT_FALSE(node(c, "sign_top")->attribute("d").contains('V'));
    EXPECT_TRUE(reopens(c));
}

TEST_F(ElectricfieldTest, HandlesHoldLengthAndSeparationToTheirRanges)
{
    GetFramework()->clearMessages();
    drag(c, "control_1", 74, 0);
    EXPECT_EQ(plates->plateLength(), 274);
    EXPECT_EQ(count(c, "line"), 9);
    EXPECT_EQ(posted(), QStringList({"idLength=28"})); // (274 - 60) * 100 / 740
    drag(c, "control_1", 5000, 0);
    EXPECT_EQ(plates->plateLength(), 800);
    drag(c, "control_1", -5000, 0);
    EXPECT_EQ(plates->plateLength(), 60);
    EXPECT_EQ(count(c, "line"), 2);
    drag(c, "control_2", 0, -500);
    EXPECT_EQ(plates->separation(), 30);
    set(c, "idSeparation", "100");
    EXPECT_EQ(plates->separation(), 600);
    // Each line reaches from plate to plate.
    const QRectF line = node(c, "line_1")->documentBounds();
    EXPECT_NEAR(line.height(), 600, 1.5);
    // The upper plate never moved.
    EXPECT_EQ(node(c, "plate_top")->rect().top(), 22);
}

TEST_F(ElectricfieldTest, HiddenPlatesColourRestoreAndReopen)
{
    event(c, 2804);
    set(c, "idShowPlates", "false");
    set(c, "idLineColor", "#1e63d6");
    set(c, "idLineColor", "no colour");
    EXPECT_FALSE(node(c, "plate_top")->isVisible());
    EXPECT_EQ(plates->attributes().value(5102).color, QColor("#1e63d6"));
    drag(c, "control_2", 0, 40);
    EXPECT_TRUE(reopens(c));
    event(c, 2805);
    EXPECT_TRUE(node(c, "plate_top")->isVisible());
    EXPECT_EQ(plates->separation(), 100);
    EXPECT_EQ(plates->attributes().value(5102).color, QColor(0xE0, 0x20, 0x20));
    EXPECT_TRUE(refusesCut(c, make(507)));
}
