#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/edit/Similarity.h"

namespace drawing {

// The groups of an entity at its new place; none for types whose geometry is not known. Vertices of plane polylines
// need the extrusion of their polyline, which they lack themselves.
std::optional<GroupList> transformed(const GroupList &groups, const Similarity &similarity,
                                     const std::optional<geometry::Vector> &extrusion = std::nullopt);

// Changes the entity with its vertices or attributes; false when that cannot be, then nothing is changed. Of a
// dimension its picture, which is a block of its own, goes along.
bool transformEntity(Drawing &drawing, RecordId entity, const Similarity &similarity);

// Appends a copy behind the last entity of the same container and gives it; NoRecord when that cannot be.
RecordId copyEntity(Drawing &drawing, RecordId entity);
RecordId copyEntity(Drawing &drawing, RecordId entity, RecordId container);

} // namespace drawing
