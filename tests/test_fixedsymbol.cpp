// Fixed circuit and ray-diagram symbols: size, colour names, and that nothing the
// host does to the object changes the drawing.
#include "helpers.h"

namespace {

struct Fixed {
    int type;
    QSizeF size;
    const char *colorName; // panel name of attribute 5002
};

const Fixed kFixed[] = {
    {602, {15, 112}, "IDS_SVG_PHYSICAL_COLOR"},
    {605, {15, 112}, "IDS_SVG_PHYSICAL_COLOR"},
    {704, {78, 32}, "IDS_SVG_PHYSICAL_WIRE_COLOR"},
    {706, {43, 30}, "IDS_SVG_PHYSICAL_COLOR"},
    {707, {43, 31}, "IDS_SVG_PHYSICAL_COLOR"},
    {708, {45, 31}, "IDS_SVG_PHYSICAL_COLOR"},
    {709, {45, 31}, "IDS_SVG_PHYSICAL_COLOR"},
    {712, {20, 28}, "IDS_SVG_PHYSICAL_WIRE_COLOR"},
    {714, {23, 40}, "IDS_SVG_PHYSICAL_COLOR"},
};

struct FixedSymbol : ::testing::TestWithParam<Fixed> {
    const Fixed &s() const { return GetParam(); }
};

} // namespace

TEST_P(FixedSymbol, DrawsItsTemplateAtItsSize)
{
    ObjPtr o = makeObject(s().type, true);
    ASSERT_TRUE(o->content());
    CSVGBase *c = o->content();
    EXPECT_EQ(c->getSVGType(), s().type);
    EXPECT_EQ(c->document()->viewBox(), QRectF(QPointF(0, 0), s().size));
    EXPECT_EQ(c->document()->size(), s().size);
    EXPECT_EQ(o->itemSize(), s().size);
    EXPECT_TRUE(c->controlNodes().isEmpty());
    EXPECT_TRUE(settingsOf(c).isEmpty());
}

TEST_P(FixedSymbol, ColourNamesForThePanel)
{
    ObjPtr o = makeObject(s().type);
    CSVGBase *c = o->content();
    EXPECT_EQ(c->getPropName(5002), s().colorName);
    const bool lamp = s().type == 704;
    EXPECT_EQ(c->getPropName(5005), lamp ? "IDS_SVG_PHYSICAL_LIGHTCOLOR" : "");
    EXPECT_EQ(c->getPropName(5100), "");
    EXPECT_EQ(c->propItems().size(), lamp ? 2u : 1u);
    ASSERT_TRUE(c->propItemByAttribute(5002));
    EXPECT_EQ(c->propItemByAttribute(5002)->name(), s().colorName);
}

TEST_P(FixedSymbol, MovingScalingAndSavingLeaveTheDrawingAlone)
{
    ObjPtr a = makeObject(s().type, true), b = makeObject(s().type, true);
    const QString drawn = svgText(a->content());
    EXPECT_EQ(svgText(b->content()), drawn);
    a->setPos(120, -40);
    a->setSize2(QSizeF(s().size.width() * 3, s().size.height() * 0.5), true);
    EXPECT_EQ(svgText(a->content()), drawn);

    QDataStream::Status st;
    ObjPtr back = loadBytes(s().type, saveBytes(a->content()), &st);
    EXPECT_EQ(st, QDataStream::Ok);
    EXPECT_EQ(back->itemSize(), a->itemSize());
    EXPECT_EQ(svgText(back->content()), drawn);

    QJsonObject json;
    a->content()->saveJson(json);
    ObjPtr fromJson = makeObject(s().type);
    fromJson->content()->loadJson(json);
    EXPECT_EQ(fromJson->itemSize(), a->itemSize());

    ObjPtr bad = loadBytes(s().type, QByteArray("\x00\x01", 2), &st);
    EXPECT_NE(st, QDataStream::Ok);
    EXPECT_EQ(svgText(bad->content()), drawn);
}

// The panel's colour must reach a drawing whose shapes carry no ids, and clearing it
// must give the template's look back.
TEST_P(FixedSymbol, HostColourRecoloursTheWholeSymbol)
{
    ObjPtr o = makeObject(s().type, true);
    CSVGBase *c = o->content();
    const QString drawn = svgText(c);
    auto setColour = [c](int id, const QColor &colour) {
        QByteArray b;
        {
            QDataStream out(&b, QIODevice::WriteOnly);
            out << colour;
        }
        QDataStream in(b);
        c->SetAttribute(id, in, false, false);
    };
    auto paints = [c] {
        static const QRegularExpression paint(QStringLiteral("(?:fill|stroke)[=:]'?\"?(#[0-9a-fA-F]{6})"));
        QStringList found;
        auto it = paint.globalMatch(svgText(c));
        while (it.hasNext())
            found << it.next().captured(1).toLower();
        found.removeDuplicates();
        found.sort();
        return found;
    };
    setColour(5002, QColor(0x12, 0xab, 0x34));
    const bool lamp = s().type == 704;
    EXPECT_EQ(paints(), lamp ? QStringList({"#12ab34", "#ffffff"}) : QStringList({"#12ab34"}));
    if (lamp) {
        setColour(5005, QColor(0xff, 0xcc, 0x00));
        EXPECT_EQ(paints(), QStringList({"#12ab34", "#ffcc00"}));
        setColour(5005, QColor());
    }
    setColour(5002, QColor());
    EXPECT_EQ(svgText(c), drawn);
}

INSTANTIATE_TEST_SUITE_P(Circuit, FixedSymbol, ::testing::ValuesIn(kFixed),
                         [](const ::testing::TestParamInfo<Fixed> &i) { return std::to_string(i.param.type); });
