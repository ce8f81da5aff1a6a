#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/edit/Similarity.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace drawing {

// What a group of an entity is, for who moves the entity.
enum class GroupRole {
    Place,     // in world coordinates
    Offset,    // a vector there, with a length
    Direction, // a vector of length 1
    Extrusion,
    ObjectPlace, // in the entity's own coordinates
    ObjectAngle, // degrees, there
    Rotation,    // the same; 0 where it is missing
    Length,      // or those along three axes
    Elevation,   // of all places in the object's own coordinates; 0 where it is missing
    Bulge,       // changes its sign in a mirror
    Deviation,   // degrees from another direction of the entity: likewise
};

struct RoleRow
{
    int code;
    GroupRole role;
};

struct TransformSchema
{
    const char16_t *type;
    std::span<const RoleRow> rows;
    // What a mirror, or the type, wants beyond the rows; null: nothing. Gets the new groups.
    void (*finish)(GroupList &groups, const ObjectSimilarity &similarity, bool mirrorsTexts) = nullptr;
    // Behind the subclass marker of this text other rows hold; null: there is none.
    const char16_t *laterMarker = nullptr;
    std::span<const RoleRow> laterRows = {};
};

// Null for a type whose geometry is not known. Hatches and multileaders are not here (see HatchTransform.h and
// MultileaderTransform.h).
const TransformSchema *transformSchema(std::u16string_view type);

// Whether what is written at this angle, in degrees, or in this direction of the world, is read without turning one's
// head round.
bool isUpright(double angle);
bool isUpright(const geometry::Vector &direction, const geometry::Vector &normal);

// Flags of polylines whose vertices are in world coordinates: those in space, and meshes.
inline constexpr std::int64_t InSpaceFlags = 8 | 16 | 64;

// The vertices of polylines in space, whose places are in world coordinates.
extern const TransformSchema spaceVertexSchema;

} // namespace drawing
