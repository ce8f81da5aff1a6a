#include "host/drawing/geometry/Bezier.h"
#include "host/drawing/geometry/CurveBox.h"
#include "host/drawing/geometry/Flatten.h"

#include <gtest/gtest.h>

namespace geometry {
namespace {

const EllipticArc Circle{{5, 0, 0}, {10, 0, 0}, {0, 10, 0}};

Nurbs quarterCircle()
{
    const double weight = std::sqrt(0.5);
    return {2, {0, 0, 0, 1, 1, 1}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {1, weight, 1}};
}

TEST(Curves, FlattenedPointsLieOnTheCurveAndChordsWithinTheTolerance)
{
    for (const double tolerance : {1.0, 0.1, 1e-4}) {
        std::vector<Vector> points{startOf(Circle)};
        flatten(Circle, tolerance, points);
        EXPECT_GE(points.size(), 5u);
        for (std::size_t i = 1; i < points.size(); ++i) {
            const Vector middle = interpolated(points[i - 1], points[i], 0.5);
            EXPECT_NEAR(length(points[i] - Circle.centre), 10, 1e-12);
            EXPECT_GE(length(middle - Circle.centre), 10 - tolerance * 1.000001);
        }
        const double enough = FullTurn / std::sqrt(8 * tolerance / 10) + 2; // no waste
        EXPECT_LE(static_cast<double>(points.size()), enough + 4);
    }
}

TEST(Curves, FlattenedSplinesStayWithinTheTolerance)
{
    std::vector<Vector> points{{1, 0, 0}};
    flatten(quarterCircle(), 1e-5, points);
    EXPECT_EQ(points.back(), (Vector{0, 1, 0}));
    for (std::size_t i = 1; i < points.size(); ++i)
        EXPECT_GE(length(interpolated(points[i - 1], points[i], 0.5)), 1 - 1e-5);
    EXPECT_LT(points.size(), 600u);
}

TEST(Curves, FlattenedClosedPathsEndWhereTheyBegin)
{
    const Curve circle = Circle;
    const auto points = flattened({{&circle, 1}, true}, 0.1);
    EXPECT_EQ(points.front(), points.back());
}

TEST(Curves, PiecesOfSplinesAreTheSplines)
{
    const Nurbs cubic{3,
                      {0, 1, 2, 3, 4, 5, 7, 8, 9},
                      {{0, 0, 0}, {1, 3, 0}, {4, -2, 1}, {6, 6, 0}, {9, 0, 0}},
                      {1, 2, 0.5, 1, 1}}; // from knot 3 to 5, not clamped
    const auto pieces = bezierPieces(cubic);
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_NEAR(length(pieces[0].at(1) - pieces[1].at(0)), 0, 1e-14);
    const Nurbs again = nurbsOf(pieces);
    EXPECT_TRUE(isValid(again));
    EXPECT_NEAR(length(startOf(again) - startOf(cubic)), 0, 1e-14);
    EXPECT_NEAR(length(endOf(again) - endOf(cubic)), 0, 1e-14);
    EXPECT_NEAR(length(quarterCircle().points[0] - bezierPieces(quarterCircle())[0].at(0)), 0, 1e-15);
    EXPECT_NEAR(length(bezierPieces(quarterCircle())[0].at(0.3)), 1, 1e-15);
}

TEST(Curves, ReversedCurvesGoTheOtherWay)
{
    EllipticArc spiral{{1, 2, 3}, {4, 0, 0}, {0, 2, 0}, 0.5, 2, 1, 3};
    for (const Curve &curve : {Curve(Line{{1, 2, 3}, {4, 5, 6}}), Curve(spiral), Curve(quarterCircle())}) {
        EXPECT_NEAR(length(startOf(reversed(curve)) - endOf(curve)), 0, 1e-12);
        EXPECT_NEAR(length(endOf(reversed(curve)) - startOf(curve)), 0, 1e-12);
    }
    const EllipticArc back = std::get<EllipticArc>(reversed(spiral));
    EXPECT_NEAR(length(back.at((back.start + back.end) / 2) - spiral.at(1.25)), 0, 1e-12);
}

TEST(Curves, SplineThroughPointsHasTheTangentsThatAreGiven)
{
    const Vector points[] = {{0, 0, 0}, {1, 2, 0}, {3, 1, 1}};
    const auto pieces = bezierPieces(splineThrough(points, Vector{0, 5, 0}, Vector{1, 0, 0}));
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_NEAR(length(pieces[0].points[3] - points[1]), 0, 1e-14);
    EXPECT_NEAR((pieces[0].points[1] - pieces[0].points[0]).x, 0, 1e-14);
    const Vector end = pieces[1].points[3] - pieces[1].points[2];
    EXPECT_NEAR(end.y, 0, 1e-14);
    EXPECT_GT(end.x, 0);
    // As quick and bent as quickly behind the point as before it, in the distances as parameter.
    const double h = length(points[1] - points[0]), k = length(points[2] - points[1]);
    EXPECT_NEAR(length((pieces[0].points[3] - pieces[0].points[2]) * (1 / h) -
                       (pieces[1].points[1] - pieces[1].points[0]) * (1 / k)),
                0, 1e-14);
}

TEST(Curves, BoxOfASplineWithItsTopInsideIsNotThatOfItsPoints)
{
    Box box;
    addBox(Nurbs{2, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {1, 2, 0}, {2, 0, 0}}, {1, 1, 1}}, box);
    EXPECT_NEAR(box.maximum.y, 1, 1e-14);
    EXPECT_EQ(box.maximum.x, 2);
}

TEST(Curves, CounterclockwiseAnglesAreMoreThanNothingAndAtMostATurn)
{
    EXPECT_EQ(counterclockwise(0, 0), FullTurn);
    EXPECT_EQ(counterclockwise(0, FullTurn), FullTurn);
    EXPECT_DOUBLE_EQ(counterclockwise(1, 0.5), FullTurn - 0.5);
    EXPECT_NEAR(counterclockwise(radians(350), radians(370)), radians(20), 1e-14);
}

TEST(Matrices, InverseAndProductUndoEachOther)
{
    const Matrix matrix = Matrix::translation({1, 2, 3}) * Matrix::rotation(0.5) * Matrix::scale(2, -3, 4);
    const Vector place{5, 6, 7};
    EXPECT_NEAR(length((inverse(matrix) * matrix).place(place) - place), 0, 1e-14);
    EXPECT_LT(matrix.determinant(), 0);
    EXPECT_EQ(Matrix::mirror({1, 0, 0}, {2, 0, 0}).place({3, 4, 5}), (Vector{-1, 4, 5}));
    EXPECT_NEAR(length(Matrix::rotation({0, 0, 2}, 0.5).place(place) - Matrix::rotation(0.5).place(place)), 0, 1e-14);
}

TEST(Matrices, ArbitraryAxesOfDirectionsNearTheWorldsZComeFromItsY)
{
    EXPECT_EQ(Matrix::ofExtrusion({0, 0, -1}).x, (Vector{-1, 0, 0}));
    EXPECT_EQ(Matrix::ofExtrusion({1, 0, 0}).x, (Vector{0, 1, 0}));
    EXPECT_EQ(Matrix::ofExtrusion({0, 0, 0}), Matrix{});
    const double near = 0.0156, far = 0.0157; // about a 64th
    EXPECT_GT(Matrix::ofExtrusion({0, near, 1}).x.x, 0.99);
    EXPECT_LT(Matrix::ofExtrusion({0, far, 1}).x.x, -0.99);
}

} // namespace
} // namespace geometry
