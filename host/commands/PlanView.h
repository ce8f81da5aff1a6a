#pragma once

#include "host/commands/Context.h"
#include "host/drawing/geometry/Matrix.h"

namespace commands {

// Shows all of the drawing from above of a coordinate system, whose x axis goes to the right.
void showPlan(Context &context, const geometry::Matrix &plane);

} // namespace commands
