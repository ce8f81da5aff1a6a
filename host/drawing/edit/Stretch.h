#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Matrix.h"

#include <vector>

// What becomes of entities that are stretched in one direction, as those of a block that is inserted with different
// scales.
namespace drawing {

// Whether the matrix keeps shapes: its three scales are the same.
bool isSimilarity(const geometry::Matrix &matrix);

// Whether an entity becomes another one by stretching. All others are what they are, with their points elsewhere.
bool isShapedAnew(const Database &database, RecordId entity);

// What such an entity becomes: circles and arcs become ellipses, polylines with arcs their segments, inserts get other
// scales, and letters and hatches are stretched. Of an insert with attributes it gives the insert alone. None when that
// cannot be: before R13, which knows no ellipses; inserts that would be sheared.
std::vector<GroupList> stretched(const Drawing &drawing, RecordId entity, const geometry::Matrix &matrix);

} // namespace drawing
