#include "host/drawing/geometry/Crossings.h"

#include "tests/host/drawing/geometry/SampleEntities.h"

#include <random>

namespace geometry {
namespace {

double flatDistance(const Vector &a, const Vector &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

EllipticArc circle(const Vector &centre, double radius)
{
    return {centre, {radius, 0, 0}, {0, radius, 0}};
}

Nurbs wave()
{
    return splineThrough(std::vector<Vector>{{-4, -1, 0}, {-2, 2, 0}, {0, -2, 0}, {2, 2, 0}, {4, -1, 0}});
}

// Counted over short chords.
std::size_t crossingsOfChords(const Course &a, const Course &b)
{
    constexpr int Chords = 1000;
    const auto side = [](const Vector &from, const Vector &to, const Vector &place) {
        return (to.x - from.x) * (place.y - from.y) < (to.y - from.y) * (place.x - from.x);
    };
    const auto places = [&](const Course &course) {
        std::vector<Vector> all;
        for (int i = 0; i <= Chords; ++i)
            all.push_back(course.at(course.first() + (course.last() - course.first()) * i / Chords));
        return all;
    };
    const std::vector<Vector> p = places(a), q = places(b);
    std::size_t count = 0;
    for (std::size_t i = 0; i < Chords; ++i)
        for (std::size_t j = 0; j < Chords; ++j)
            count += side(p[i], p[i + 1], q[j]) != side(p[i], p[i + 1], q[j + 1]) &&
                     side(q[j], q[j + 1], p[i]) != side(q[j], q[j + 1], p[i + 1]);
    return count;
}

TEST(Crossings, LinesCrossOnceOrWhereTheyGoOn)
{
    const Course a(Line{{0, 0, 0}, {4, 4, 0}}), b(Line{{0, 4, 0}, {4, 0, 0}}), apart(Line{{6, 0, 0}, {6, 1, 0}});
    const auto found = crossings(a, b);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].place, (Vector{2, 2, 0}));
    EXPECT_TRUE(crossings(a, apart).empty());
    EXPECT_TRUE(crossings(a, apart, Span::Extended).empty());
    ASSERT_EQ(crossings(a, apart, Span::Extended, Span::Extended).size(), 1u);
    EXPECT_EQ(crossings(a, apart, Span::Extended, Span::Extended)[0].place, (Vector{6, 6, 0}));
}

TEST(Crossings, ParallelLinesAndEqualCirclesCrossNowhere)
{
    EXPECT_TRUE(crossings(Course(Line{{0, 0, 0}, {4, 0, 0}}), Course(Line{{0, 0, 0}, {4, 0, 0}})).empty());
    EXPECT_TRUE(crossings(Course(circle({}, 2)), Course(circle({}, 2))).empty());
}

TEST(Crossings, ATangentTouchesOnce)
{
    const auto touching = crossings(Course(Line{{-3, 2, 0}, {3, 2, 0}}), Course(circle({}, 2)));
    ASSERT_EQ(touching.size(), 1u);
    EXPECT_LT(flatDistance(touching[0].place, {0, 2, 0}), 1e-7);
    const auto circles = crossings(Course(circle({}, 2)), Course(circle({5, 0, 0}, 3)));
    ASSERT_EQ(circles.size(), 1u);
    EXPECT_LT(flatDistance(circles[0].place, {2, 0, 0}), 1e-7);
}

TEST(Crossings, AnArcEndsWhereItEnds)
{
    EllipticArc arc = circle({}, 2);
    arc.end = FullTurn / 4;
    const Course line(Line{{-3, 1, 0}, {3, 1, 0}});
    EXPECT_EQ(crossings(line, Course(arc)).size(), 1u);
    EXPECT_EQ(crossings(line, Course(arc), Span::Bounded, Span::Extended).size(), 2u);
}

TEST(Crossings, ASplineIsMetByALineACircleAndASpline)
{
    const Course spline{Curve(wave())}, turned(transformed(Curve(wave()), Matrix::rotation(FullTurn / 4)));
    EXPECT_EQ(crossings(Course(Line{{-5, 0, 0}, {5, 0, 0}}), spline).size(), 4u);
    const Course round(circle({}, 1.1));
    EXPECT_EQ(crossings(spline, round).size(), crossingsOfChords(spline, round));
    for (const Crossing &crossing : crossings(spline, turned))
        EXPECT_LT(flatDistance(spline.at(crossing.first), turned.at(crossing.second)), 1e-9);
    EXPECT_EQ(crossings(spline, turned).size(), crossingsOfChords(spline, turned));
}

// Two ellipses cross as often as one of them changes between inside and outside of the other.
TEST(Crossings, OfRandomEllipsesLieOnBothAndNoneIsMissing)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-3, 3), size(0.5, 4), angle(0, FullTurn);
    const auto ellipse = [&] {
        const Matrix turn = Matrix::rotation(angle(random));
        return EllipticArc{{place(random), place(random), 0}, turn.x * size(random), turn.y * size(random)};
    };
    for (int round = 0; round < 300; ++round) {
        const EllipticArc a = ellipse(), b = ellipse();
        const auto inside = [&](double t) {
            const Vector from = b.at(t) - a.centre;
            const double u = dot(from, a.cosineAxis) / dot(a.cosineAxis, a.cosineAxis),
                         v = dot(from, a.sineAxis) / dot(a.sineAxis, a.sineAxis);
            return u * u + v * v < 1;
        };
        std::size_t changes = 0;
        constexpr int Samples = 20000;
        for (int i = 0; i < Samples; ++i)
            changes += inside(FullTurn * i / Samples) != inside(FullTurn * (i + 1) / Samples);
        const auto found = crossings(Course(a), Course(b));
        EXPECT_EQ(found.size(), changes) << round;
        for (const Crossing &crossing : found) {
            EXPECT_LT(flatDistance(a.at(crossing.first), crossing.place), 1e-9);
            EXPECT_LT(flatDistance(b.at(crossing.second), crossing.place), 1e-9);
        }
    }
}

TEST(Course, APartOfASplineRunsAlongIt)
{
    const Course spline{Curve(wave())};
    const Course part(spline.part(0.3, 2.6));
    for (int i = 0; i <= 20; ++i) {
        const Vector place = part.at(part.last() * i / 20);
        EXPECT_LT(flatDistance(spline.at(spline.nearest(place)), place), 1e-9);
    }
    EXPECT_LT(flatDistance(part.at(0), spline.at(0.3)), 1e-12);
    EXPECT_LT(flatDistance(part.at(part.last()), spline.at(2.6)), 1e-12);
}

TEST(Course, TheMiddleHasHalfOfTheLengthBeforeIt)
{
    const Course ellipse(EllipticArc{{}, {4, 0, 0}, {0, 1, 0}, 0, 2});
    const double middle = ellipse.middle();
    EXPECT_NEAR(ellipse.lengthBetween(0, middle), ellipse.lengthBetween(middle, 2), 1e-9);
    EXPECT_DOUBLE_EQ(Course(circle({}, 2)).lengthBetween(0, 1), 2);
}

} // namespace
} // namespace geometry
