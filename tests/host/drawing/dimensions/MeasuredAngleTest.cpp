#include "host/drawing/dimensions/MeasuredAngle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace drawing {
namespace {

using geometry::counterclockwise;
using geometry::FullTurn;
using geometry::radians;
using geometry::Vector;

const MeasuredLine level{{0, 0, 0}, {60, 0, 0}}, slanted{{10, 10, 0}, {40, 40, 0}};

void expectAngle(const std::optional<MeasuredAngle> &angle, double start, double sweep)
{
    ASSERT_TRUE(angle);
    EXPECT_NEAR(counterclockwise(radians(start), angle->start + FullTurn / 2), FullTurn / 2, 1e-9) << start;
    EXPECT_NEAR(angle->sweep, radians(sweep), 1e-9) << start;
}

TEST(MeasuredAngle, IsTheOneOfFourInWhichThePlaceLies)
{
    expectAngle(angleBetween(level, slanted, {50, 20, 0}), 0, 45);
    expectAngle(angleBetween(level, slanted, {5, 25, 0}), 45, 135);
    expectAngle(angleBetween(level, slanted, {-50, -20, 0}), 180, 45);
    expectAngle(angleBetween(level, slanted, {5, -25, 0}), 225, 135);
    expectAngle(angleBetween(slanted, level, {5, -25, 0}), 225, 135);
}

TEST(MeasuredAngle, TheSidesSayHowFarTheLinesGo)
{
    const auto angle = angleBetween(level, slanted, {5, 25, 0});
    ASSERT_TRUE(angle);
    EXPECT_NEAR(angle->radius, std::hypot(5, 25), 1e-12);
    EXPECT_NEAR(angle->first.begin, -60, 1e-9); // on the other side of the vertex
    EXPECT_NEAR(angle->first.end, 0, 1e-9);
    EXPECT_NEAR(angle->second.begin, std::hypot(10, 10), 1e-9);
    EXPECT_NEAR(angle->second.end, std::hypot(40, 40), 1e-9);
}

TEST(MeasuredAngle, ParallelLinesHaveNone)
{
    EXPECT_FALSE(angleBetween(level, {{0, 5, 0}, {-7, 5, 0}}, {5, 25, 0}));
    EXPECT_FALSE(angleBetween(level, level, {5, 25, 0}));
    EXPECT_FALSE(angleBetween(level, {{3, 3, 0}, {3, 3, 0}}, {5, 25, 0}));
}

TEST(MeasuredAngle, AboutAVertexIsTheOneOfTwoInWhichThePlaceLies)
{
    const Vector vertex{180, 80, 0}, right{200, 80, 0}, above{180, 110, 0};
    expectAngle(angleAbout(vertex, right, above, {190, 90, 0}), 0, 90);
    expectAngle(angleAbout(vertex, above, right, {190, 90, 0}), 0, 90);
    expectAngle(angleAbout(vertex, right, above, {170, 70, 0}), 90, 270);
    const MeasuredAngle angle = angleAbout(vertex, above, right, {170, 70, 0});
    EXPECT_DOUBLE_EQ(angle.first.end, 30);
    EXPECT_DOUBLE_EQ(angle.second.begin, 20);
}

} // namespace
} // namespace drawing
