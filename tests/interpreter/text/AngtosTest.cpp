#include "host/interpreter/text/AngularUnits.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

namespace {

constexpr double Degree = std::numbers::pi / 180;

struct Row
{
    double angle;
    int units, precision;
    const char16_t *text;
    int zeroSuppression = 0, unitMode = 0;
};

class Angtos : public testing::TestWithParam<Row>
{
};

TEST_P(Angtos, writesTheAngleInTheUnits)
{
    const Row &row = GetParam();
    EXPECT_EQ(
        lisp::angtos(row.angle, *lisp::angularUnits(row.units), row.precision, {row.unitMode, row.zeroSuppression}),
        row.text);
}

constexpr Row units[] = {
    {0.785398, 0, 4, u"45.0000"},
    {-0.785398, 0, 4, u"315.0000"}, // negative angles go to the other side
    {7 * std::numbers::pi, 0, 2, u"180.00"},
    {3.14159, 0, 0, u"180"},
    {3.14159, 1, 4, u"179d59'59\""},
    {3.14159, 2, 4, u"199.9998g"},
    {3.14159, 3, 4, u"3.1416r"},
    {3.14159, 4, 2, u"W"},
    {0.5 * Degree, 0, 3, u"0.500"},
    {0.5 * Degree, 0, 3, u".500", 4},
    {0.5 * Degree, 0, 3, u".5", 12},
    {50 * Degree, 2, 2, u"55.56g"},
    {1.5, 3, 4, u"1.5r", 8},
};

constexpr Row minutes[] = {
    {30.7564 * Degree, 1, 0, u"31d"},           //
    {30.7564 * Degree, 1, 1, u"30d50'"},        // tens of minutes
    {30.7564 * Degree, 1, 2, u"30d45'"},        //
    {30.7564 * Degree, 1, 3, u"30d45'20\""},    // tens of seconds
    {30.7564 * Degree, 1, 4, u"30d45'23\""},    //
    {30.7564 * Degree, 1, 6, u"30d45'23.04\""}, //
    {30.75 * Degree, 1, 6, u"30d45'0\"", 8},    //
    {59.99999 * Degree, 1, 4, u"60d0'0\""},     // seconds and minutes carry
    {359.99999 * Degree, 1, 4, u"0d0'0\""},     // and so do degrees
    {359.99999 * Degree, 0, 2, u"0.00"},        //
    {399.99999 / 200 * std::numbers::pi, 2, 2, u"0.00g"},
    {22.5 * Degree, 0, 0, u"23"}, // half-way away from zero
};

constexpr Row bearings[] = {
    {0, 4, 0, u"E"},
    {90 * Degree, 4, 0, u"N"},
    {180 * Degree, 4, 0, u"W"},
    {270 * Degree, 4, 0, u"S"},
    {45 * Degree, 4, 0, u"N 45d E"},
    {135 * Degree, 4, 0, u"N 45d W"},
    {225 * Degree, 4, 0, u"S 45d W"},
    {-0.785398, 4, 0, u"S 45d E"},
    {-0.785398, 4, 0, u"S45dE", 0, 1},
    {45 * Degree, 4, 4, u"N 45d0'0\" E"},
    {30 * Degree, 4, 2, u"N 60d0' E"},
    {90.0001 * Degree, 4, 2, u"N"},
    {359.9999 * Degree, 4, 2, u"E"},
    {0.0001 * Degree, 4, 2, u"E"},
};

INSTANTIATE_TEST_SUITE_P(units, Angtos, testing::ValuesIn(units));
INSTANTIATE_TEST_SUITE_P(minutes, Angtos, testing::ValuesIn(minutes));
INSTANTIATE_TEST_SUITE_P(bearings, Angtos, testing::ValuesIn(bearings));

TEST(AngularUnits, knowFiveModes)
{
    EXPECT_EQ(lisp::angularUnits(-1), std::nullopt);
    EXPECT_EQ(lisp::angularUnits(0), lisp::AngularUnits::Degrees);
    EXPECT_EQ(lisp::angularUnits(4), lisp::AngularUnits::Surveyor);
    EXPECT_EQ(lisp::angularUnits(5), std::nullopt);
}

TEST(Angtos, keepsThePrecisionWithinItsLimits)
{
    EXPECT_EQ(lisp::angtos(1.0, lisp::AngularUnits::Radians, -5, {}), u"1r");
    EXPECT_EQ(lisp::angtos(1.0, lisp::AngularUnits::Radians, 99, {}), u"1.00000000r");
    EXPECT_EQ(lisp::angtos(0.0, lisp::AngularUnits::DegreesMinutesSeconds, 99, {}), u"0d0'0.0000\"");
}

TEST(Angtos, writesWhatIsNoNumber)
{
    EXPECT_EQ(lisp::angtos(std::numeric_limits<double>::infinity(), lisp::AngularUnits::Surveyor, 4, {}), u"inf");
}

} // namespace
