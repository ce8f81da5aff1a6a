#pragma once

#include "host/interpreter/Machine.h"
#include "lisp/resbuf.h"

#include <optional>
#include <string_view>

// What typed coordinates, distances and angles are measured in and from.
struct CoordinateContext
{
    lisp::UnitVariables units;
    LispPoint lastPoint; // where "@" begins
    double angleBase;    // radians, direction of angle 0
    bool clockwise;      // in which direction typed angles grow
};

// A point as people type it: "X,Y", "X,Y,Z", "DISTANCE<ANGLE" and both behind "@" for relative ones; "@" alone is the
// last point; "*" and "#" before absolute coordinates are allowed. A missing Z is 0, or that of the last point if
// relative. Nothing when the whole text does not fit.
std::optional<LispPoint> pointFromText(std::u16string_view text, const CoordinateContext &context);

// A length in the current linear units.
std::optional<double> distanceFromText(std::u16string_view text, const CoordinateContext &context);

// Radians, counted as typed: from the angle base, in the direction in which angles grow.
std::optional<double> angleFromText(std::u16string_view text, const CoordinateContext &context);

// The direction of a typed angle: radians counter-clockwise from the X axis, 0 to a full turn.
double directionOf(double typedAngle, const CoordinateContext &context);
