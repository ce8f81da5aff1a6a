#pragma once

#include <cmath>
#include <numbers>

// What writing and reading angles share.
namespace lisp {

inline constexpr double FullTurn = 2.0 * std::numbers::pi; // radians
inline constexpr double DegreesPerTurn = 360.0;
inline constexpr double GradsPerTurn = 400.0;

// The same direction, at least 0 and less than a full turn.
inline double withinTurn(double angle)
{
    const double rest = std::fmod(angle, FullTurn);
    const double positive = rest < 0 ? rest + FullTurn : rest;
    return positive < FullTurn ? positive : 0.0; // a tiny negative angle is rounded up to the full turn
}

} // namespace lisp
