#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/geometry/Matrix.h"

#include <optional>

namespace drawing {

// The groups of a HATCH under any affine matrix: arcs of its boundaries become elliptic ones, boundaries that are
// polylines with arcs get edges, and each line of its pattern goes where it is taken. None when the matrix leaves a
// line of its plane.
std::optional<GroupList> stretchedHatch(const GroupList &hatch, const geometry::Matrix &matrix);

} // namespace drawing
