#pragma once

#include "host/drawing/Group.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace geometry {

// A place or a direction in space; lengths in drawing units.
struct Vector
{
    double x = 0, y = 0, z = 0;

    bool operator==(const Vector &) const = default;
    Vector &operator+=(const Vector &other) { return *this = {x + other.x, y + other.y, z + other.z}; }
    friend Vector operator+(Vector a, const Vector &b) { return a += b; }
    friend Vector operator-(const Vector &a, const Vector &b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vector operator-(const Vector &a) { return {-a.x, -a.y, -a.z}; }
    friend Vector operator*(const Vector &a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
    friend Vector operator*(double factor, const Vector &a) { return a * factor; }
};

inline Vector vectorOf(const drawing::Point &point)
{
    return {point.x, point.y, point.z};
}
inline double dot(const Vector &a, const Vector &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vector cross(const Vector &a, const Vector &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(const Vector &a)
{
    return std::hypot(a.x, a.y, a.z);
}
inline bool isFinite(const Vector &a)
{
    return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}
// Of length 1; the fallback where there is no direction.
inline Vector normalized(const Vector &a, const Vector &fallback = {0, 0, 1})
{
    const double size = length(a);
    return size > 0 && std::isfinite(size) ? a * (1 / size) : fallback;
}
inline Vector interpolated(const Vector &a, const Vector &b, double t)
{
    return a * (1 - t) + b * t;
}
inline double radians(double degrees)
{
    return degrees * (std::numbers::pi / 180);
}
inline constexpr double FullTurn = 2 * std::numbers::pi;

// How far it is from one angle counterclockwise to the other: more than 0, at most a full turn. Equal angles, and ones
// that were a full turn apart before rounding, are a full turn apart; also what is no number.
inline double counterclockwise(double start, double end)
{
    constexpr double Rounding = 1e-12;
    const double turn = end - start, sweep = turn - FullTurn * std::floor(turn / FullTurn);
    return sweep < Rounding || sweep > FullTurn - Rounding || !std::isfinite(sweep) ? FullTurn : sweep;
}

// The same angle within a few turns, so that turns can be counted; 0 for what is no number.
inline double reducedAngle(double angle)
{
    constexpr double Usual = 4 * FullTurn; // which keep their last digits
    if (std::abs(angle) <= Usual)
        return angle;
    return std::isfinite(angle) ? std::fmod(angle, FullTurn) : 0;
}

// The smallest box with edges along the axes; empty until something was added.
struct Box
{
    Vector minimum{INFINITY, INFINITY, INFINITY}, maximum{-INFINITY, -INFINITY, -INFINITY};

    bool operator==(const Box &) const = default;
    bool isEmpty() const { return !(minimum.x <= maximum.x && minimum.y <= maximum.y && minimum.z <= maximum.z); }
    void add(const Vector &place)
    {
        minimum = {std::min(minimum.x, place.x), std::min(minimum.y, place.y), std::min(minimum.z, place.z)};
        maximum = {std::max(maximum.x, place.x), std::max(maximum.y, place.y), std::max(maximum.z, place.z)};
    }
    void add(const Box &other)
    {
        if (other.isEmpty())
            return;
        add(other.minimum);
        add(other.maximum);
    }
};

} // namespace geometry
