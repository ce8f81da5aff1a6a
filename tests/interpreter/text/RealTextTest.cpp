#include "host/interpreter/text/RealText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct Row
{
    double number;
    const char16_t *text;
};

class RealText : public testing::TestWithParam<Row>
{
};

TEST_P(RealText, printsSixSignificantDigitsAndAlwaysAPointOrExponent)
{
    EXPECT_EQ(lisp::realText(GetParam().number), GetParam().text);
}

constexpr double Infinity = std::numeric_limits<double>::infinity();

constexpr Row rows[] = {
    {0.0, u"0.0"},
    {1.0, u"1.0"},
    {-1.0, u"-1.0"},
    {0.5, u"0.5"},
    {-0.25, u"-0.25"},
    {3.14159265358979, u"3.14159"},
    {2.0 / 3.0, u"0.666667"},
    {100000.0, u"100000.0"},
    {123456.789, u"123457.0"},
    {999999.4, u"999999.0"},
    {999999.6, u"1.0e+06"},
    {1e6, u"1.0e+06"},
    {1234567.0, u"1.23457e+06"},
    {2147483648.0, u"2.14748e+09"},
    {0.0001, u"0.0001"},
    {1e-5, u"1.0e-05"},
    {1.5e-7, u"1.5e-07"},
    {1e100, u"1.0e+100"},
    {-2.5e-300, u"-2.5e-300"},
    {1e16, u"1.0e+16"},
    {Infinity, u"inf"},
    {-Infinity, u"-inf"},
};

INSTANTIATE_TEST_SUITE_P(rows, RealText, testing::ValuesIn(rows));

} // namespace
