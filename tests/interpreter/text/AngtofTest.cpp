#include "host/interpreter/text/AngularUnits.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

constexpr double Degree = std::numbers::pi / 180;

struct Row
{
    const char16_t *text;
    int units;
    double angle;
};

class Angtof : public testing::TestWithParam<Row>
{
};

TEST_P(Angtof, readsTheAngle)
{
    const std::optional<double> angle = lisp::angtof(GetParam().text, *lisp::angularUnits(GetParam().units));
    ASSERT_TRUE(angle.has_value());
    EXPECT_NEAR(*angle, GetParam().angle, 1e-12);
}

const Row rows[] = {
    {u"45.0000", 0, 45 * Degree},
    {u"45.0000", 3, 45 - 14 * std::numbers::pi}, // radians beyond a full turn come back into it
    {u"-45", 0, 315 * Degree},
    {u"+45", 0, 45 * Degree},
    {u"360", 0, 0},
    {u"-1e-20", 0, 0},
    {u"50", 2, 45 * Degree},
    {u"50g", 0, 45 * Degree},
    {u"1.5R", 0, 1.5},
    {u"1.5r", 2, 1.5},
    {u"45d", 2, 45 * Degree},
    {u"45d30'", 1, 45.5 * Degree},
    {u"45D30'36\"", 0, 45.51 * Degree},
    {u"45d30", 1, 45.5 * Degree},
    {u"45d36\"", 1, 45.01 * Degree},
    {u"45.5", 1, 45.5 * Degree},
    {u"45.5", 4, 45.5 * Degree},
    {u"E", 4, 0},
    {u"n", 4, 90 * Degree},
    {u"W", 0, 180 * Degree},
    {u"S", 4, 270 * Degree},
    {u"N 45d E", 4, 45 * Degree},
    {u"N45dW", 4, 135 * Degree},
    {u"S 45d30'0\" W", 4, 224.5 * Degree},
    {u"s45de", 4, 315 * Degree},
    {u"N 0d E", 4, 90 * Degree},
};

INSTANTIATE_TEST_SUITE_P(rows, Angtof, testing::ValuesIn(rows));

class AngtofOfOtherText : public testing::TestWithParam<const char16_t *>
{
};

TEST_P(AngtofOfOtherText, givesNothing)
{
    for (int units = 0; units <= 4; ++units)
        EXPECT_EQ(lisp::angtof(GetParam(), *lisp::angularUnits(units)), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(texts, AngtofOfOtherText,
                         testing::Values(u"", u"x", u"-", u"45x", u"45d60'", u"45d30'60\"", u"45d30'x", u"N 91d E",
                                         u"N 45d", u"N 45d N", u"E 45d", u"NE", u"1e999", u"45 30"));

} // namespace
