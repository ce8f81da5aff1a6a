#pragma once

#include "host/drawing/geometry/Bezier.h"

namespace geometry {

// Whether a curve ends where it ends, or goes on: a line in both directions, an arc all around. Splines never go on.
enum class Span { Bounded, Extended };

// A curve as something to walk along. The parameter of a line goes from 0 to 1, that of an arc is the one of its
// formula, that of a spline is the number of its Bezier piece plus the place in it. Distances and angles are those seen
// from above, in the world's plane.
class Course
{
public:
    explicit Course(const Curve &curve);

    const Curve &curve() const { return m_curve; }
    const Line *line() const { return std::get_if<Line>(&m_curve); }
    const EllipticArc *arc() const { return std::get_if<EllipticArc>(&m_curve); }
    double first() const;
    double last() const;
    bool isClosed() const; // ends where it begins
    Vector at(double parameter) const;
    Vector slope(double parameter) const; // the derivative; not of length 1

    double nearest(const Vector &place) const;                     // the parameter
    std::vector<double> feet(const Vector &from, Span span) const; // where a line from there stands upright on it
    std::vector<double> touches(const Vector &from) const;         // where a line from there touches it
    double lengthBetween(double from, double to) const;            // in space
    double middle() const;                                         // half of the length lies before it
    std::optional<double> parameterOf(const Vector &place, Span span) const; // of a place on it; none: it is not there

    // Of the curve from one parameter to a later one. Of a closed curve, or one that goes on, also over its end.
    Curve part(double from, double to) const;

    // The parameters, in order, where the function of the parameter is 0; it may also only touch 0, within `tolerance`.
    template <class Function> std::vector<double> roots(Function function, double tolerance, Span span) const;

private:
    std::vector<double> samples(Span span) const;

    Curve m_curve;
    std::vector<Bezier> m_pieces; // of a spline
};

namespace detail {

// The root between two places where the function has different signs.
template <class Function> double rootBetween(Function &function, double low, double high)
{
    const bool isLowNegative = function(low) < 0;
    for (double middle = (low + high) / 2; middle > low && middle < high; middle = (low + high) / 2)
        ((function(middle) < 0) == isLowNegative ? low : high) = middle;
    return (low + high) / 2;
}

// Where the distance from 0 is least, for a function with one such place between the two.
template <class Function> double leastBetween(Function &function, double low, double high)
{
    constexpr int Rounds = 100;
    for (int round = 0; round < Rounds; ++round) {
        const double a = low + (high - low) / 3, b = high - (high - low) / 3;
        (std::abs(function(a)) < std::abs(function(b)) ? high : low) =
            std::abs(function(a)) < std::abs(function(b)) ? b : a;
    }
    return (low + high) / 2;
}

} // namespace detail

template <class Function> std::vector<double> Course::roots(Function function, double tolerance, Span span) const
{
    const std::vector<double> at = samples(span);
    std::vector<double> values, found;
    for (const double parameter : at)
        values.push_back(function(parameter));
    for (std::size_t i = 0; i < at.size(); ++i) {
        const double value = values[i];
        const bool isEnd = i == 0 || i + 1 == at.size();
        if (value == 0 || (isEnd && std::abs(value) <= tolerance)) {
            found.push_back(at[i]);
            continue;
        }
        const auto crosses = [&](std::size_t a, std::size_t b) {
            return values[a] != 0 && (values[a] < 0) != (values[b] < 0);
        };
        if (!isEnd && std::abs(value) <= std::abs(values[i - 1]) && std::abs(value) <= std::abs(values[i + 1]) &&
            !crosses(i - 1, i) && !crosses(i, i + 1)) {
            const double least = detail::leastBetween(function, at[i - 1], at[i + 1]);
            if (std::abs(function(least)) <= tolerance)
                found.push_back(least);
        }
        if (i + 1 < at.size() && values[i + 1] != 0 && crosses(i, i + 1))
            found.push_back(detail::rootBetween(function, at[i], at[i + 1]));
    }
    return found;
}

} // namespace geometry
