// Numbers in attributes: written as the shortest text that reads back as the same
// double, so that a drawing saved, reloaded or undone comes back bit for bit.
#include "helpers.h"
#include <cstring>
#include <random>
#include <svgnode.h>

namespace {
bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }
} // namespace

TEST(Numbers, WrittenShortestAndReadBackExactly)
{
    std::mt19937_64 rng(20261121);
    std::uniform_real_distribution<double> mantissa(-1000, 1000);
    std::uniform_int_distribution<int> exponent(-40, 40);
    std::vector<double> values = {0.1, 0.5, 1e15, 1e16, 1e-5, 1e-4, 99999999999999.99, 999999999999999.5, 9.9999999999999995,
                                  4.9406564584124654e-324, 2.2250738585072014e-308, 1.7976931348623157e308,
                                  -0.30000000000000004, 107 - 114 * std::sin(0.89011791851710809), 25.5 + 2e-13};
    for (int i = 0; i < 20000; ++i) {
        const double v = mantissa(rng) * std::pow(10.0, exponent(rng));
        values.push_back(v);
        values.push_back(std::round(v * 1000) / 1000);
        values.push_back(39 + std::cos(v) * 30 - 4); // what drags write
    }
    for (double v : values) {
        const QString text = SvgNumbers::format(v);
        const QChar *p = text.constData();
        const QVector<double> back = SvgNumbers::parseList(p, p + text.size());
        ASSERT_EQ(back.size(), 1) << qPrintable(text);
        ASSERT_TRUE(sameBits(back[0], v) || (v == 0 && back[0] == 0)) << qPrintable(text);
        // Never longer than the 17 significant digits that always suffice.
        EXPECT_LE(text.size(), QString::number(v, 'g', 17).size()) << qPrintable(text);
    }
    // Numbers people type keep the text they were typed as.
    for (const char *t : {"0.1", "7.667", "-51", "1e-05", "161.875", "0.30000000000000004"})
        EXPECT_EQ(SvgNumbers::format(QString::fromLatin1(t).toDouble()), QLatin1String(t));
    EXPECT_EQ(SvgNumbers::format(0.0), "0");
    EXPECT_EQ(SvgNumbers::format(-0.0), "0");
}

TEST(Numbers, AttributesReadBackAfterEveryChange)
{
    QSvgRect r;
    r.setAttribute("x", "12.5");
    EXPECT_DOUBLE_EQ(r.numAttribute("x"), 12.5);
    r.setNumAttribute("x", 1.0 / 3);
    EXPECT_TRUE(sameBits(r.numAttribute("x"), 1.0 / 3)); // the number itself, not fifteen digits of it
    EXPECT_EQ(r.attribute("x"), "0.3333333333333333");
    r.translate(1, 0);
    EXPECT_TRUE(sameBits(r.numAttribute("x"), 1.0 / 3 + 1));
    r.setAttribute("x", "+7e1px");
    EXPECT_DOUBLE_EQ(r.numAttribute("x"), 70);
    EXPECT_EQ(r.attribute("x"), "+7e1px"); // text set as text is written as it was
    r.setAttribute("x", "none");
    EXPECT_DOUBLE_EQ(r.numAttribute("x", -1), -1);
    r.setAttribute("x", "1e400"); // out of range reads as no number
    EXPECT_DOUBLE_EQ(r.numAttribute("x", -2), -2);
    r.setAttribute("x", "4");
    EXPECT_DOUBLE_EQ(r.numAttribute("x", -2), 4);
    r.removeAttribute("x");
    EXPECT_DOUBLE_EQ(r.numAttribute("x", 3), 3);
    // Names that differ only after the first letters.
    r.setAttribute("x_from", "1");
    r.setAttribute("y_from", "2");
    EXPECT_DOUBLE_EQ(r.numAttribute("y_from"), 2);
    EXPECT_DOUBLE_EQ(r.numAttribute("x_from"), 1);
}
