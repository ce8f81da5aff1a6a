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

// The block that shows a dimension; NoRecord when there is none. It is its own when the name says that it was made for
// it.
RecordId pictureOf(const Drawing &drawing, const GroupList &dimension);
inline constexpr std::u16string_view PicturePrefix = u"*D";

// Where a copy goes: to the end of a block, or of the ENTITIES section with its two spaces.
struct Destination
{
    RecordId container;
    bool isPaperSpace;
};

Destination destinationOf(const Database &database, RecordId entity); // where the entity is
// As addEntity() of EntityMaking.h.
RecordId addEntityTo(Drawing &drawing, const GroupList &groups, const Destination &where);

// What a copy has of its original: all but the handle, the extension dictionary and the reactors.
GroupList groupsForCopy(GroupList groups);

// Adds a copy, with its vertices or attributes, and gives it; NoRecord when that cannot be.
RecordId copyEntity(Drawing &drawing, RecordId entity); // to where the original is
RecordId copyEntity(Drawing &drawing, RecordId entity, const Destination &where);
// At its new place; NoRecord also where transformEntity() gives false: a copy would lie on its original.
RecordId copyTransformed(Drawing &drawing, RecordId entity, const Destination &where, const Similarity &similarity);
RecordId copyTransformed(Drawing &drawing, RecordId entity, const Similarity &similarity);

} // namespace drawing
