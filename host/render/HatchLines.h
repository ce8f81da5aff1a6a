#pragma once

#include "host/drawing/geometry/Shapes.h"
#include "host/render/Dashes.h"

namespace render {

// The closed outlines of an area as points, in the plane they are seen in.
using Outlines = std::vector<std::vector<geometry::Vector>>;

// Cuts the lines of a hatch pattern by the outlines: inside are the places from which a line leaves through them an odd
// number of times. Dashes start where the pattern puts them, not at the outlines. Gives false, and nothing, when there
// would be more lines than can be told apart.
bool hatch(const Outlines &outlines, const geometry::PatternLine &pattern, DashSink &sink);

} // namespace render
