// Numbers in attributes: written as QString::number(v, 'g', 15) writes them and read
// back as QString::toDouble reads them, whatever shortcut the model takes.
#include "helpers.h"
#include <random>
#include <svgnode.h>

TEST(Numbers, FormatMatchesQtGeneral15)
{
    std::mt19937_64 rng(20261121);
    std::uniform_real_distribution<double> mantissa(-1000, 1000);
    std::uniform_int_distribution<int> exponent(-40, 40);
    std::vector<double> values = {0.1, 0.5, 1e15, 1e16, 1e-5, 1e-4, 99999999999999.99, 999999999999999.5, 9.9999999999999995,
                                  123456.0009765625, 10000000000.03125, 4.9406564584124654e-324, 2.2250738585072014e-308,
                                  1.7976931348623157e308, -0.30000000000000004, 107 - 114 * std::sin(0.89011791851710809)};
    for (int i = 0; i < 40000; ++i) {
        const double v = mantissa(rng) * std::pow(10.0, exponent(rng));
        values.push_back(v);
        values.push_back(std::round(v * 1000) / 1000);
        values.push_back(std::round(v) + 0.5);                            // ties at the last digits
        values.push_back(std::round(v * 1e6) + std::ldexp(1.0, -(i % 30)));
        values.push_back(39 + std::cos(v) * 30 - 4);                       // what drags write
    }
    int differ = 0;
    for (double v : values) {
        if (v == 0)
            continue;
        const QString ours = SvgNumbers::format(v), qt = QString::number(v, 'g', 15);
        if (ours != qt && ++differ < 10)
            ADD_FAILURE() << qPrintable(ours) << " vs " << qPrintable(qt);
    }
    EXPECT_EQ(differ, 0);
    EXPECT_EQ(SvgNumbers::format(0.0), "0");
    EXPECT_EQ(SvgNumbers::format(-0.0), "0");
}

TEST(Numbers, AttributesReadBackAfterEveryChange)
{
    QSvgRect r;
    r.setAttribute("x", "12.5");
    EXPECT_DOUBLE_EQ(r.numAttribute("x"), 12.5);
    r.setNumAttribute("x", 1.0 / 3);
    EXPECT_DOUBLE_EQ(r.numAttribute("x"), 0.333333333333333); // fifteen digits, as written
    r.translate(1, 0);
    EXPECT_DOUBLE_EQ(r.numAttribute("x"), 1.33333333333333);
    r.setAttribute("x", "+7e1px");
    EXPECT_DOUBLE_EQ(r.numAttribute("x"), 70);
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
