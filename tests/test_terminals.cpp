// Where wires attach: every terminal of the table lies on the drawing (a post, a lead's
// end), inside the view box, for every type that has terminals.
#include "helpers.h"
#include <QImage>
#include <QPainter>

namespace {

std::vector<int> typesWithTerminals()
{
    int n = 0;
    const PhysicalTypeInfo *t = physical_TypeTable(&n);
    std::vector<int> out;
    for (int i = 0; i < n; ++i) {
        int count = 0;
        if (physical_Terminals(t[i].type, &count) && count > 0)
            out.push_back(t[i].type);
    }
    return out;
}

struct Terminals : ::testing::TestWithParam<int> {};

} // namespace

TEST_P(Terminals, EveryTerminalLiesOnTheDrawing)
{
    ObjPtr o = makeObject(GetParam(), true);
    QSvgTinyDocument *doc = o->content()->document();
    const QRectF vb = doc->viewBox();
    constexpr double k = 4; // pixels per unit
    QImage img(QSize(int(vb.width() * k) + 1, int(vb.height() * k) + 1), QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::white);
    {
        QPainter p(&img);
        doc->render(&p, QRectF(0, 0, vb.width() * k, vb.height() * k), false);
    }
    int n = 0;
    const QPointF *t = physical_Terminals(GetParam(), &n);
    ASSERT_GT(n, 0);
    for (int i = 0; i < n; ++i) {
        EXPECT_TRUE(vb.adjusted(-0.01, -0.01, 0.01, 0.01).contains(t[i])) << i;
        // Something is drawn within a unit and a half of the point.
        const QPoint c(int((t[i].x() - vb.x()) * k), int((t[i].y() - vb.y()) * k));
        bool inked = false;
        for (int dy = -6; dy <= 6 && !inked; ++dy)
            for (int dx = -6; dx <= 6 && !inked; ++dx) {
                const QPoint q = c + QPoint(dx, dy);
                inked = img.rect().contains(q) && qGray(img.pixel(q)) < 235;
            }
        EXPECT_TRUE(inked) << "terminal " << i << " at " << t[i].x() << "," << t[i].y();
    }
    // Types without terminals report none.
    int none = -1;
    EXPECT_EQ(physical_Terminals(99, &none), nullptr);
    EXPECT_EQ(none, 0);
}

INSTANTIATE_TEST_SUITE_P(Wiring, Terminals, ::testing::ValuesIn(typesWithTerminals()),
                         [](const ::testing::TestParamInfo<int> &i) { return std::to_string(i.param); });
