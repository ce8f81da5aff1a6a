#include "host/kernel/input/PointText.h"

#include <gtest/gtest.h>

#include <numbers>

constexpr double Pi = std::numbers::pi;

namespace {

CoordinateContext decimal()
{
    return {{}, {10, 20, 5}, 0, false};
}

void expectPoint(std::u16string_view text, LispPoint expected, const CoordinateContext &context = decimal())
{
    const std::optional<LispPoint> point = pointFromText(text, context);
    ASSERT_TRUE(point);
    EXPECT_NEAR(point->x, expected.x, 1e-12);
    EXPECT_NEAR(point->y, expected.y, 1e-12);
    EXPECT_NEAR(point->z, expected.z, 1e-12);
}

} // namespace

TEST(PointText, Coordinates)
{
    expectPoint(u"1,2", {1, 2, 0});
    expectPoint(u" -1.5 , 2e1 , 3 ", {-1.5, 20, 3});
    expectPoint(u"*1,2", {1, 2, 0});
    expectPoint(u"#1,2", {1, 2, 0});
}

TEST(PointText, DistanceAndAngle)
{
    expectPoint(u"2<90", {0, 2, 0});
    expectPoint(u"2<-90", {0, -2, 0});
}

TEST(PointText, RelativeToTheLastPoint)
{
    expectPoint(u"@", {10, 20, 5});
    expectPoint(u"@1,2", {11, 22, 5});
    expectPoint(u"@1,2,3", {11, 22, 8});
    expectPoint(u"@2<180", {8, 20, 5});
}

TEST(PointText, WhatDoesNotFitAsAWholeIsNoPoint)
{
    for (const std::u16string_view text :
         {u"", u"1", u"1,", u",1", u"1,2,3,4", u"1,x", u"a", u"1<", u"<1", u"1,2<3", u"@x", u"@@1,2"})
        EXPECT_FALSE(pointFromText(text, decimal())) << std::string(text.begin(), text.end());
}

TEST(PointText, UnitsAreThoseOfTheDrawing)
{
    CoordinateContext feet = decimal();
    feet.units.lunits = 4;
    expectPoint(u"1'6,2'", {18, 24, 0}, feet);
    CoordinateContext radians = decimal();
    radians.units.aunits = 3;
    EXPECT_NEAR(*angleFromText(u"1.5", radians), 1.5, 1e-12);
}

TEST(PointText, AnglesCountFromTheAngleBaseInItsDirection)
{
    CoordinateContext north = decimal();
    north.angleBase = Pi / 2;
    EXPECT_NEAR(directionOf(*angleFromText(u"45", north), north), Pi * 3 / 4, 1e-12);
    north.clockwise = true;
    EXPECT_NEAR(directionOf(*angleFromText(u"45", north), north), Pi / 4, 1e-12);
    expectPoint(u"2<90", {2, 0, 0}, north);
}
