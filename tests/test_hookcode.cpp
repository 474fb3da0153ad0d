// Hook weights: the stack, the rod and the total follow the count and the mass of each;
// the two combo boxes refuse choices they do not offer.
#include "panel.h"
#include <mechanics/HookCode.h>

namespace {

QRectF discBox(CSVGBase *c, int k) { return c->document()->namedNode(QString("mass_%1").arg(k))->rect(); }

struct HookCode : ApparatusTest {};

} // namespace

struct StackCase {
    const char *count, *mass;
    long discs;
    const char *label;
};

class HookCodeStack : public HookCode, public ::testing::WithParamInterface<StackCase> {};

TEST_P(HookCodeStack, StackRodAndTotalFollowTheChoice)
{
    ObjPtr o = makeObject(207, true);
    CSVGBase *c = o->content();
    const StackCase &s = GetParam();
    typeIn(c, "idCount", s.count);
    typeIn(c, "idMassEach", s.mass);
    EXPECT_EQ(seriesCount(c, "mass"), s.discs);
    EXPECT_EQ(node(c, "mass_label")->text(), s.label);
    // Each disc sits on the one above; the last on the plate, where the rod ends.
    for (int k = 2; k <= s.discs; ++k)
        EXPECT_DOUBLE_EQ(discBox(c, k).top(), discBox(c, k - 1).bottom()) << k;
    const QRectF last = discBox(c, s.discs), plate = node(c, "plate")->rect();
    EXPECT_DOUBLE_EQ(plate.top(), last.bottom());
    EXPECT_DOUBLE_EQ(node(c, "rod")->rect().bottom(), plate.top());
    // The label stands clear to the right of the stack.
    EXPECT_GT(node(c, "mass_label")->rect().left(), last.right());
}

INSTANTIATE_TEST_SUITE_P(HookCode, HookCodeStack, ::testing::Values(
    StackCase{"0", "0", 1, "10 g"}, StackCase{"5", "1", 6, "300 g"}, StackCase{"5", "2", 6, "600 g"},
    StackCase{"2", "2", 3, "300 g"}, StackCase{"3", "0", 4, "40 g"}));

TEST_F(HookCode, ChoicesOutOfRangeAreRefused)
{
    ObjPtr o = makeObject(207, true);
    CSVGBase *c = o->content();
    EXPECT_EQ(seriesCount(c, "mass"), 2);  // two masses of 50 g when new
    EXPECT_EQ(node(c, "mass_label")->text(), "100 g");
    const QString before = svgText(c);
    for (const char *v : {"6", "-1", "x"})
        EXPECT_FALSE(typeIn(c, "idCount", v)) << v;
    // The masses offer three choices, though the count offers six.
    for (const char *v : {"3", "5", "-1"})
        EXPECT_FALSE(typeIn(c, "idMassEach", v)) << v;
    EXPECT_EQ(svgText(c), before);
    // Fewer masses, a shorter drawing.
    const double tall = c->document()->viewBox().height();
    EXPECT_TRUE(typeIn(c, "idCount", "0"));
    EXPECT_LT(c->document()->viewBox().height(), tall);
    // The masses' property item offers the masses, not the count's six choices.
    const QByteArray data = c->propItemByAttribute(5101)->comboData();
    QDataStream masses(data);
    int choices = 0, current = 0;
    QString first;
    masses >> choices >> current >> first;
    EXPECT_EQ(choices, 3);
    EXPECT_EQ(first, "IDS_SVG_PHYSICAL_MASS_10G");
}
