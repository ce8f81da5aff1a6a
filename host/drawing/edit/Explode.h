#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Matrix.h"

#include <vector>

namespace drawing {

// From the coordinates of a block's entities to those of the world, of the first copy of an INSERT.
geometry::Matrix insertMatrix(const Drawing &drawing, const GroupList &insert);

// Replaces an entity by its parts, at the end of its container: block references and dimensions by the entities of
// their block, polylines by lines and arcs. Gives the parts; none when the entity, or one of its parts, cannot be taken
// out, and then it stays.
std::vector<RecordId> explodeEntity(Drawing &drawing, RecordId entity);

} // namespace drawing
