#pragma once

#include "host/commands/Context.h"
#include "host/commands/WorkPlane.h"

namespace commands {

struct Displacement
{
    Vector by; // in the world
    bool isBetweenPoints = false;
};

// "Base point, second point": the vector between them. Enter for the second takes the first for it.
Task<Displacement> askDisplacement(Context &context, const WorkPlane &plane, const Reply<Point> base);

} // namespace commands
