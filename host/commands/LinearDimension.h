#pragma once

#include "host/commands/NewDimension.h"

namespace commands {

enum class Direction { Free, Horizontal, Vertical, Turned, Aligned };

// A linear or aligned dimension. Places are in the user's coordinates.
struct LinearDimension
{
    Vector first, second, at; // `at` lies on the dimension line
    Direction direction = Direction::Free;
    double angle = 0; // of the dimension line when it is turned, in radians
    DimensionLabel label = {};

    double lineAngle() const;
    Vector across() const; // to the left of the dimension line, of length 1
};

std::u16string shownLength(Context &context, const LinearDimension &dimension);
RecordId addLinear(Context &context, const LinearDimension &dimension);

// What the drawing has, with its dimension line turned as it is; none: no such dimension, or it is erased.
std::optional<LinearDimension> linearDimension(Context &context, RecordId entity);

} // namespace commands
