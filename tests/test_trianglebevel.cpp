// The triangular incline: two single-axis handles reshape the wedge and the item follows.
#include "helpers.h"

namespace {

QVector<QPointF> points(const ObjPtr &o) { return static_cast<QSvgPolygon *>(node(o->content(), "triangle"))->points(); }
const QVector<QPointF> kTemplate{{4.5, 4.5}, {4.5, 111.166}, {183.832, 111.166}};

struct HandleCase {
    const char *handle;
    QPointF delta, applied;
    QVector<QPointF> shape;
    QRectF viewBox;
};

} // namespace

TEST(TriangleBevel, HandlesReshapeOnOneAxisWithinTheirBounds)
{
    const HandleCase cases[] = {
        {"control_1", {200, 30}, {200, 0}, {{4.5, 4.5}, {4.5, 111.166}, {383.832, 111.166}}, {0, 0, 388.332, 115.666}},
        {"control_2", {40, -100}, {0, -100}, {{4.5, -95.5}, {4.5, 111.166}, {183.832, 111.166}}, {0, -100, 188.332, 215.666}},
        // The apex never comes below 106.566, the base end never left of 0.
        {"control_2", {0, 500}, {0, 106.566}, {{4.5, 111.066}, {4.5, 111.166}, {183.832, 111.166}}, {0, 106.566, 188.332, 9.1}},
        {"control_1", {-500, 0}, {-179.332, 0}, {{4.5, 4.5}, {4.5, 111.166}, {4.5, 111.166}}, {0, 0, 9, 115.666}},
    };
    for (const HandleCase &c : cases) {
        ObjPtr o = makeObject(102, true);
        ASSERT_EQ(points(o), kTemplate);
        ASSERT_EQ(o->content()->document()->viewBox(), QRectF(0, 0, 188.332, 115.666));
        EXPECT_EQ(drag(o->content(), c.handle, c.delta.x(), c.delta.y()), c.applied) << c.handle;
        const QVector<QPointF> pts = points(o);
        ASSERT_EQ(pts.size(), 3);
        for (int i = 0; i < 3; ++i)
            EXPECT_LT(QLineF(pts[i], c.shape[i]).length(), 1e-9) << c.handle << i;
        const QRectF vb = o->content()->document()->viewBox();
        EXPECT_LT((vb.topLeft() - c.viewBox.topLeft()).manhattanLength(), 1e-9) << c.handle;
        EXPECT_NEAR(vb.width(), c.viewBox.width(), 1e-9) << c.handle;
        EXPECT_NEAR(vb.height(), c.viewBox.height(), 1e-9) << c.handle;
        EXPECT_NEAR(o->itemSize().height(), vb.height(), 1e-6) << c.handle;
    }
}

TEST(TriangleBevel, ForeignNodeEmptiesTheWedgeUntilTheNextHandleUpdate)
{
    ObjPtr o = makeObject(102);
    CSVGBase *c = o->content();
    EXPECT_EQ(c->getPropName(5002), "IDS_SVG_PHYSICAL_COLOR");
    EXPECT_FALSE(c->updateSVG(nullptr, QPointF(), true));
    drag(c, "control_2", 0, -20);
    EXPECT_TRUE(c->updateSVG(node(c, "triangle"), QPointF(), true));
    EXPECT_TRUE(points(o).isEmpty());
    drag(c, "control_1", 10, 0);
    EXPECT_EQ(points(o), (QVector<QPointF>{{4.5, -15.5}, {4.5, 111.166}, {193.832, 111.166}}));
}

