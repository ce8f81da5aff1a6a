#pragma once

#include "host/commands/Context.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/geometry/Course.h"

namespace commands {

// A line, circle or arc that a circle is to touch, and the place on it where it was picked. In the coordinates of a
// plane, as seen from above it.
struct Side
{
    RecordId entity;
    Vector picked;
    geometry::Course course;
};

// None: the object is something else.
std::optional<Side> pickedSide(Context &context, const PickedEntity &object, const WorkPlane &plane);
bool isParallelToPlane(const Side &side);

struct Touching
{
    Vector centre, first, second; // where the circle touches the two
    bool isFound = false;
};

// Of all circles of the radius that touch both, the one that does so nearest to where they were picked. Lines count
// without end, arcs all around.
Touching touching(const Side &first, const Side &second, double radius);

} // namespace commands
