#pragma once

#include "host/commands/Context.h"
#include "host/drawing/geometry/Course.h"

namespace commands {

using geometry::Vector;

// A line, circle or arc that a circle is to touch, and the place on it where it was picked. As seen from above.
struct Side
{
    RecordId entity;
    Vector picked;
    geometry::Course course;
};

std::optional<Side> pickedSide(Context &context, const PickedEntity &object); // none: it is something else

struct Touching
{
    Vector centre, first, second; // where the circle touches the two
    bool isFound = false;
};

// Of all circles of the radius that touch both, the one that does so nearest to where they were picked. Lines count
// without end, arcs all around.
Touching touching(const Side &first, const Side &second, double radius);

} // namespace commands
