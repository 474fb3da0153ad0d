// Where wires attach: every terminal of the table is a point of the drawing (a post's
// centre, a lead's end), inside the view box, for every type that has terminals.
#include "helpers.h"
#include <QRegularExpression>
#include <algorithm>

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

// The points a drawing is made of where a wire may end: the ends of lines and of a path's
// first move, the centres of posts (circles, ellipses), and a ring's left and right.
QVector<QPointF> drawnPoints(const QString &svg)
{
    QVector<QPointF> out;
    auto num = [](const QString &tag, const char *name, bool *ok) {
        const QRegularExpression re(QStringLiteral("\\s%1=\"([-\\d.eE]+)\"").arg(QLatin1String(name)));
        const QRegularExpressionMatch m = re.match(tag);
        *ok = m.hasMatch();
        return m.captured(1).toDouble();
    };
    static const QRegularExpression element(QStringLiteral("<(line|circle|ellipse|path|polyline)\\b[^>]*>"));
    for (auto it = element.globalMatch(svg); it.hasNext();) {
        const QRegularExpressionMatch e = it.next();
        const QString tag = e.captured(0), kind = e.captured(1);
        bool a = false, b = false, c = false, d = false;
        if (kind == QLatin1String("line")) {
            const double x1 = num(tag, "x1", &a), y1 = num(tag, "y1", &b), x2 = num(tag, "x2", &c), y2 = num(tag, "y2", &d);
            out << QPointF(x1, y1) << QPointF(x2, y2);
        } else if (kind == QLatin1String("circle") || kind == QLatin1String("ellipse")) {
            const double cx = num(tag, "cx", &a), cy = num(tag, "cy", &b);
            double r = num(tag, "r", &c);
            if (!c)
                r = num(tag, "rx", &c);
            out << QPointF(cx, cy) << QPointF(cx - r, cy) << QPointF(cx + r, cy);
        } else {
            static const QRegularExpression move(QStringLiteral("(?:\\bd=\"M|points=\")\\s*([-\\d.]+)[ ,]([-\\d.]+)"));
            const QRegularExpressionMatch m = move.match(tag);
            if (m.hasMatch())
                out << QPointF(m.captured(1).toDouble(), m.captured(2).toDouble());
        }
    }
    return out;
}

TEST_P(Terminals, EveryTerminalIsAPointOfTheDrawing)
{
    ObjPtr o = makeObject(GetParam(), true);
    const QRectF vb = o->content()->document()->viewBox();
    const QVector<QPointF> drawn = drawnPoints(svgText(o->content()));
    int n = 0;
    const QPointF *t = physical_Terminals(GetParam(), &n);
    ASSERT_GT(n, 0);
    for (int i = 0; i < n; ++i) {
        EXPECT_TRUE(vb.adjusted(-0.01, -0.01, 0.01, 0.01).contains(t[i])) << i;
        // A wire snapped here ends exactly on a post's centre or a lead's end.
        const bool onIt = std::any_of(drawn.begin(), drawn.end(), [&](const QPointF &p) {
            return std::abs(p.x() - t[i].x()) < 1e-3 && std::abs(p.y() - t[i].y()) < 1e-3;
        });
        EXPECT_TRUE(onIt) << "terminal " << i << " at " << t[i].x() << "," << t[i].y();
    }
    // Types without terminals report none.
    int none = -1;
    EXPECT_EQ(physical_Terminals(99, &none), nullptr);
    EXPECT_EQ(none, 0);
}

INSTANTIATE_TEST_SUITE_P(Wiring, Terminals, ::testing::ValuesIn(typesWithTerminals()),
                         [](const ::testing::TestParamInfo<int> &i) { return std::to_string(i.param); });
