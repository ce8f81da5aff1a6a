#pragma once

#include "host/drawing/Group.h"

// What the codes of groups mean in the lists that programs see.
namespace drawing {

// A group that a program's list never changes, wherever it stands.
bool isFixed(int code);

// Codes 50 to 58: radians in lists, degrees in drawings. Other groups stay as they are.
constexpr bool isAngle(int code)
{
    constexpr int FirstAngle = 50, LastAngle = 58;
    return code >= FirstAngle && code <= LastAngle;
}
double inRadians(double degrees);
Group inRadians(Group group);
Group inDegrees(Group group);

} // namespace drawing
