// The document model: parsing every element kind, the path grammar, the writer and the id index.
#include "helpers.h"
#include <QImage>
#include <QPainter>
#include <svgpathdata.h>

namespace {

std::unique_ptr<QSvgTinyDocument> parse(const char *text)
{
    return std::unique_ptr<QSvgTinyDocument>(QSvgTinyDocument::load(QByteArray(text)));
}

const char *kAllKinds = R"SVG(<?xml version="1.0" encoding="utf-8"?>
<!-- made by hand -->
<!DOCTYPE svg PUBLIC "-//W3C//DTD SVG 1.1//EN" "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd">
<svg xmlns="http://www.w3.org/2000/svg" style="width:200px;height:100px" viewBox="0 0 200 100">
 <defs><linearGradient id="grad" x1="0" y1="0" x2="1" y2="0"><stop offset="0" stop-color="#ff0000"/><stop offset="1" stop-color="#0000ff"/></linearGradient></defs>
 <g id="grp" transform="translate(10,5)" rotate_x="20" rotate_y="20" custom="kept">
  <rect id="r" x="0" y="0" width="40" height="20" rx="3" ry="3" fill="url(#grad)" stroke="#000" stroke-width="2" stroke-miterlimit="10"/>
  <line id="l" x1="0" y1="30" x2="40" y2="30" stroke="#123456" stroke-dasharray="4,2" vector-effect="non-scaling-stroke"/>
 </g>
 <path id="p" d="M10 60 l10 0 h5 v5 c1 1 2 2 3 3 s4 4 5 5 q1 1 2 2 t3 3 a5 5 0 0 1 10 0 z"/>
 <polygon id="pg" points="100,10 120,10 110,30"/>
 <polyline id="pl" points="130,10 140,20 150,10" fill="none" stroke="black"/>
 <ellipse id="e" cx="170" cy="20" rx="10" ry="5"/>
 <circle id="c" cx="170" cy="60" r="8"/>
 <text id="t" x="100" y="90" font-family="ArialMT" font-size="12">Hello</text>
 <foo:widget xmlns:foo="urn:x" id="u" foo:size="3">opaque</foo:widget>
</svg>)SVG";

} // namespace

TEST(Document, ParsesEveryElementKind)
{
    auto doc = parse(kAllKinds);
    ASSERT_TRUE(doc);
    EXPECT_EQ(doc->size(), QSizeF(200, 100)); // width and height from the style attribute
    EXPECT_EQ(doc->viewBox(), QRectF(0, 0, 200, 100));
    const std::pair<const char *, QSvgNode::Type> kinds[] = {
        {"grp", QSvgNode::Group}, {"r", QSvgNode::Rect}, {"l", QSvgNode::Line}, {"p", QSvgNode::Path},
        {"pg", QSvgNode::Polygon}, {"pl", QSvgNode::Polyline}, {"e", QSvgNode::Ellipse}, {"c", QSvgNode::Circle},
        {"t", QSvgNode::Text}, {"grad", QSvgNode::LinearGradient}, {"u", QSvgNode::Other}};
    for (const auto &k : kinds) {
        QSvgNode *n = doc->namedNode(QLatin1String(k.first));
        ASSERT_TRUE(n) << k.first;
        EXPECT_EQ(n->type(), k.second) << k.first;
    }
    EXPECT_EQ(doc->namedNode("t")->text(), QStringLiteral("Hello"));
    EXPECT_EQ(doc->namedNode("grp")->numAttribute("rotate_x"), 20);
    EXPECT_EQ(doc->namedNode("e")->rect(), QRectF(160, 15, 20, 10));
    EXPECT_EQ(doc->namedNode("c")->rect(), QRectF(162, 52, 16, 16));
    EXPECT_EQ(doc->namedNode("pg")->rect(), QRectF(100, 10, 20, 20));
}

TEST(Document, RejectsWhatIsNotSvg)
{
    for (const char *bad : {"", "<html/>", "<svg><rect></svg>", "not xml at all", "<?xml version=\"1.0\"?>"})
        EXPECT_FALSE(parse(bad)) << bad;
    std::string deep = "<svg>";
    for (int i = 0; i < 5000; ++i) deep += "<g>";
    EXPECT_FALSE(parse(deep.c_str())); // nesting is bounded, not a stack overflow
}

TEST(Document, WriteThenParseGivesTheSameDocument)
{
    auto doc = parse(kAllKinds);
    doc->namedNode("grp")->setNumAttribute("rotate_angle", 30);
    doc->namedNode("c")->setVisible(false);
    const QByteArray once = doc->toSvg();
    auto again = std::unique_ptr<QSvgTinyDocument>(QSvgTinyDocument::load(once));
    ASSERT_TRUE(again);
    EXPECT_EQ(QString::fromUtf8(again->toSvg()), QString::fromUtf8(once));
    EXPECT_FALSE(again->namedNode("c")->isVisible());
    EXPECT_EQ(again->namedNode("grp")->attribute("transform"), QStringLiteral("translate(10,5)"));
    EXPECT_EQ(again->namedNode("u")->attribute("foo:size"), QStringLiteral("3"));
    EXPECT_EQ(again->namedNode("u")->text(), QStringLiteral("opaque"));
    // Ordinary renderers see the rotation as a transform about the pivot.
    EXPECT_TRUE(once.contains("translate(10,5) rotate(30 20 20)"));
}

// An element with many attributes reads as one with few: every attribute, references
// resolved, in order, with names still unique across the whole element.
TEST(Document, WideElementsReadLikeNarrowOnes)
{
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg'><rect id='r' width='4' height='4'";
    for (int i = 0; i < 300; ++i)
        svg += " a" + QByteArray::number(i) + "='v" + QByteArray::number(i) + " &amp;&#x3A9;&lt;\t'";
    svg += " display='none'/><circle id='c' r='1'/></svg>";
    auto doc = std::unique_ptr<QSvgTinyDocument>(QSvgTinyDocument::load(svg));
    ASSERT_TRUE(doc) << qPrintable(QSvgTinyDocument::lastError());
    QSvgNode *r = doc->namedNode("r");
    ASSERT_TRUE(r);
    EXPECT_EQ(r->attributes().size(), 303); // id, width, height and the 300; display becomes the flag
    EXPECT_EQ(r->attributes()[3].name, "a0");
    EXPECT_EQ(r->attribute("a299"), QString::fromUtf8("v299 &\u03A9< "));
    EXPECT_FALSE(r->isVisible());
    EXPECT_TRUE(doc->namedNode("c"));
    // Written and read again, the same document.
    auto again = std::unique_ptr<QSvgTinyDocument>(QSvgTinyDocument::load(doc->toSvg()));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->toSvg(), doc->toSvg());

    for (const char *bad : {" a5='x'", " a200='x'", " b='<'", " b='&nope;'", " b='&#0;'"}) {
        QByteArray dup = svg;
        dup.replace(" display='none'", bad);
        EXPECT_FALSE(std::unique_ptr<QSvgTinyDocument>(QSvgTinyDocument::load(dup))) << bad;
    }
}

// What a user types can hold characters XML cannot carry; the written document is
// still well formed, whatever the text.
TEST(Document, TextThatXmlCannotCarryIsWrittenWellFormed)
{
    auto doc = parse("<svg viewBox='0 0 10 10'><text id='t' x='1' y='5'>a</text></svg>");
    const QString hostile = QString("x") + QChar(0xD800) + "y" + QChar(0x0001) + "z" + QChar(0xDC00) + QChar(0xFFFF) +
                            QString::fromUtf8("\U0001D11E");
    doc->namedNode("t")->setText(hostile);
    doc->namedNode("t")->setAttribute("title", hostile);
    auto again = std::unique_ptr<QSvgTinyDocument>(QSvgTinyDocument::load(doc->toSvg()));
    ASSERT_TRUE(again) << qPrintable(QSvgTinyDocument::lastError());
    const QString mended = QString("x\uFFFDy\uFFFDz\uFFFD\uFFFD") + QString::fromUtf8("\U0001D11E");
    EXPECT_EQ(again->namedNode("t")->text(), mended);
    EXPECT_EQ(again->namedNode("t")->attribute("title"), mended);
}

TEST(Document, CleanExportLeavesOutHandlesAndHiddenNodes)
{
    auto doc = parse("<svg viewBox='0 0 10 10'><rect id='control_1' width='2' height='2'/><rect id='a' width='1' height='1'/>"
                     "<rect id='b' width='1' height='1'/></svg>");
    doc->namedNode("b")->setVisible(false);
    QSvgTinyDocument::WriteOptions o;
    o.handles = false;
    const QByteArray out = doc->toSvg(o);
    EXPECT_FALSE(out.contains("control_1"));
    EXPECT_FALSE(out.contains("id=\"b\""));
    EXPECT_TRUE(out.contains("id=\"a\""));
}

struct PathCase {
    const char *d;
    QRectF bounds;
};

class PathGrammar : public ::testing::TestWithParam<PathCase> {};

TEST_P(PathGrammar, BoundsAndStretchedHeight)
{
    const QRectF b = SvgPathData::toPainterPath(SvgPathData::parse(QLatin1String(GetParam().d))).boundingRect();
    const QRectF e = GetParam().bounds;
    EXPECT_NEAR(b.x(), e.x(), 1e-6) << GetParam().d;
    EXPECT_NEAR(b.y(), e.y(), 1e-6) << GetParam().d;
    EXPECT_NEAR(b.width(), e.width(), 1e-6) << GetParam().d;
    EXPECT_NEAR(b.height(), e.height(), 1e-6) << GetParam().d;
    // Stretched to twice its height it keeps its top, its width and its place across.
    if (e.height() > 0) {
        ObjPtr o = makeObject(107);
        const QString d = o->content()->changePathHeight(QLatin1String(GetParam().d), 2 * e.height(), 0);
        const QRectF s = SvgPathData::toPainterPath(SvgPathData::parse(d)).boundingRect();
        EXPECT_NEAR(s.x(), e.x(), 1e-6) << qPrintable(d);
        EXPECT_NEAR(s.y(), e.y(), 1e-6) << qPrintable(d);
        EXPECT_NEAR(s.width(), e.width(), 1e-6) << qPrintable(d);
        EXPECT_NEAR(s.height(), 2 * e.height(), 1e-6) << qPrintable(d);
    }
}

INSTANTIATE_TEST_SUITE_P(Document, PathGrammar, ::testing::Values(
    PathCase{"M0,0 L10,0 L10,10 Z", QRectF(0, 0, 10, 10)},
    PathCase{"m5 5 l10 0 l0 10z", QRectF(5, 5, 10, 10)},
    PathCase{"M0 0 H20 V5 h-5 v5", QRectF(0, 0, 20, 10)},
    PathCase{"M0 0 10 0 10 10", QRectF(0, 0, 10, 10)},               // implicit lineto after moveto
    PathCase{"M0,0C0,10 10,10 10,0", QRectF(0, 0, 10, 7.5)},
    PathCase{"M0,0c0,10,10,10,10,0s10,-10,10,0", QRectF(0, -7.5, 20, 15)},
    PathCase{"M0 0Q5 10 10 0T20 0", QRectF(0, -5, 20, 10)},
    PathCase{"M0 0A5 5 0 0 1 10 0", QRectF(0, -5, 10, 5)},             // half circle above
    PathCase{"M0 0a5 5 0 1 0 10 0", QRectF(0, 0, 10, 5)},
    PathCase{"M1e1,0.5e1 L-.5,-1E0", QRectF(-0.5, -1, 10.5, 6)},
    PathCase{"M0 0 L10 10 L5", QRectF(0, 0, 10, 10)}));                // a broken tail is dropped

TEST(Document, TranslatingAPathMovesOnlyAbsoluteCoordinates)
{
    auto doc = parse("<svg viewBox='0 0 10 10'><path id='p' d='M40,60c0.5,1,3,3.5,3,7L50,70h2V80'/></svg>");
    QSvgNode *p = doc->namedNode("p");
    const QRectF before = p->rect();
    p->translate(2, -3);
    EXPECT_EQ(p->attribute("d"), QStringLiteral("M42,57c0.5,1,3,3.5,3,7L52,67h2V77"));
    EXPECT_EQ(p->rect(), before.translated(2, -3));
}

TEST(Document, IdIndexFollowsEveryEdit)
{
    auto doc = parse("<svg viewBox='0 0 10 10'><g id='g'><line id='line_1' x2='1'/></g></svg>");
    QSvgNode *l1 = doc->namedNode("line_1");
    auto copy = l1->clone();
    EXPECT_EQ(doc->namedNode("line_1"), l1); // an unplaced clone is not indexed
    copy->setAttribute("id", "line_2");
    QSvgNode *l2 = copy.get();
    doc->namedNode("g")->appendChild(std::move(copy));
    EXPECT_EQ(doc->namedNode("line_2"), l2);
    l2->setAttribute("id", "line_3");
    EXPECT_EQ(doc->namedNode("line_2"), nullptr);
    EXPECT_EQ(doc->namedNode("line_3"), l2);
    // Removing a group drops everything under it from the index.
    auto taken = doc->takeChild(doc->namedNode("g"));
    EXPECT_EQ(doc->namedNode("g"), nullptr);
    EXPECT_EQ(doc->namedNode("line_1"), nullptr);
    EXPECT_EQ(doc->namedNode("line_3"), nullptr);
    EXPECT_EQ(doc->indexedCount(), 0);
}

TEST(Document, DuplicateIdPassesToTheNextNodeWhenTheFirstGoes)
{
    auto doc = parse("<svg viewBox='0 0 10 10'><rect id='a' width='1' height='1'/><rect id='a' x='5' width='1' height='1'/></svg>");
    QSvgNode *first = doc->namedNode("a");
    EXPECT_EQ(first->rect().x(), 0);
    doc->takeChild(first);
    ASSERT_TRUE(doc->namedNode("a"));
    EXPECT_EQ(doc->namedNode("a")->rect().x(), 5);
}

TEST(Document, TransformedBoundsHonourRotateAngle)
{
    auto doc = parse("<svg viewBox='0 0 100 100'><g id='g' rotate_x='10' rotate_y='10'>"
                     "<rect id='r' x='10' y='8' width='20' height='4'/></g></svg>");
    QSvgNode *g = doc->namedNode("g");
    g->setNumAttribute("rotate_angle", 90);
    const QRectF b = g->transformedBounds();
    EXPECT_NEAR(b.x(), 8, 1e-9);
    EXPECT_NEAR(b.y(), 10, 1e-9);
    EXPECT_NEAR(b.width(), 4, 1e-9);
    EXPECT_NEAR(b.height(), 20, 1e-9);
}

TEST(Document, PainterDrawsGradientsTextAndSkipsHiddenNodes)
{
    auto doc = parse(kAllKinds);
    doc->namedNode("c")->setVisible(false);
    QImage img(200, 100, QImage::Format_ARGB32);
    img.fill(Qt::white);
    {
        QPainter p(&img);
        doc->render(&p);
    }
    // Left end of the gradient rect is red, right end blue (group translated by 10,5).
    const QColor left = img.pixelColor(13, 15), right = img.pixelColor(47, 15);
    EXPECT_GT(left.red(), 200);
    EXPECT_LT(left.blue(), 60);
    EXPECT_GT(right.blue(), 200);
    EXPECT_EQ(img.pixelColor(170, 60), QColor(Qt::white)); // hidden circle
    EXPECT_NE(img.pixelColor(170, 20), QColor(Qt::white)); // ellipse
    bool ink = false;
    for (int x = 100; x < 130 && !ink; ++x)
        for (int y = 80; y < 92 && !ink; ++y)
            ink = img.pixelColor(x, y).lightness() < 128;
    EXPECT_TRUE(ink) << "text was not drawn";
}
