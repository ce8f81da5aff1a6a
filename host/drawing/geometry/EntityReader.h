#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/geometry/Vector.h"

#include <algorithm>
#include <initializer_list>

namespace geometry {

// Where the value of a group goes; of several groups with the code the last one's stays there.
struct GroupTarget
{
    GroupTarget(int groupCode, double &target) : code(groupCode), value(&target) {}
    GroupTarget(int groupCode, Vector &target) : code(groupCode), value(&target) {}
    GroupTarget(int groupCode, std::int64_t &target) : code(groupCode), value(&target) {}
    GroupTarget(int groupCode, std::u16string &target) : code(groupCode), value(&target) {}

    int code;
    std::variant<double *, Vector *, std::int64_t *, std::u16string *> value;
};

// The groups of an entity that describe it: without extended data, and without an object embedded in it, whose groups
// mean other things.
class EntityReader
{
public:
    EntityReader(const drawing::Database &database, drawing::RecordId entity) : m_reader(database.reader(entity)) {}

    bool next(drawing::Item &item) { return m_reader.next(item) && describes(item); }
    std::u16string text(const drawing::Item &item) const { return m_reader.text(item); }

    // Everything up to the end; what has no target is passed over. A target may have any code but that of a y or z.
    void readInto(std::initializer_list<GroupTarget> targets)
    {
        for (drawing::Item item; m_reader.nextRaw(item) && describes(item);) {
            const auto target = std::ranges::find(targets, item.code, &GroupTarget::code);
            if (target == targets.end())
                continue;
            m_reader.readValue(item);
            put(item, *target);
        }
    }

private:
    static bool describes(const drawing::RawGroup &group)
    {
        constexpr int FirstExtended = 1000;
        return group.code != drawing::groupcode::EmbeddedObject && group.code < FirstExtended;
    }

    void put(const drawing::Item &item, const GroupTarget &target) const
    {
        if (auto *const *real = std::get_if<double *>(&target.value))
            **real = item.real;
        else if (auto *const *vector = std::get_if<Vector *>(&target.value))
            **vector = vectorOf(item.point);
        else if (auto *const *integer = std::get_if<std::int64_t *>(&target.value))
            **integer = item.integer;
        else
            *std::get<std::u16string *>(target.value) = text(item);
    }

    drawing::GroupReader m_reader;
};

// Codes that mean the same in every entity that has them.
namespace code {
inline constexpr int Thickness = 39, Extrusion = 210;
} // namespace code

} // namespace geometry
