#pragma once

#include <cstdint>
#include <span>
#include <string_view>

// What the types of entities are made of: for each type its subclasses, for each of these its groups in the order of
// the DXF reference ("ENTITIES section"), with the value that a group has where a file leaves it out.
namespace drawing {

struct SchemaRow
{
    enum class Presence : std::uint8_t {
        Required, // an entity cannot be made without it
        Optional, // not shown where it is not there
        Current,  // the same; an entity that is made without it gets the value of the header variable `text`
        Default   // is there with its default where a file leaves it out
    };

    int code;
    Presence presence = Presence::Optional;
    double number = 0;               // of a default; of a point the z: (0 0 number); of a variable that is not there
    std::string_view text = {};      // of a default text, ASCII; a variable's name
    bool repeatsAfterVertex = false; // once for each point (10) of the entity
};

struct SubclassSchema
{
    std::string_view marker;
    std::span<const SchemaRow> rows;

    bool has(int code) const;
};

// Whether programs have to give the subclass markers when they make an entity: types that are older than markers do
// without them.
enum class Markers : std::uint8_t { Needed, Added };

struct EntitySchema
{
    std::string_view type;
    std::span<const SubclassSchema> subclasses;
    Markers markers = Markers::Added;
    std::int64_t flags = 0; // of the groups 70 that tell kinds of a type apart: POLYLINE and VERTEX

    const SchemaRow *rowWithDefault(int code) const; // null: such a group is listed only where a file has it
};

// Null for a type that is not described. `flags` is the entity's group 70.
const EntitySchema *schemaOf(std::string_view type, std::int64_t flags = 0);

// Groups that any entity may have, in its subclass AcDbEntity: layer, colour, linetype and so on.
bool isCommonCode(int code);

} // namespace drawing
