#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/geometry/Vector.h"

namespace geometry {

// Where the value of a group goes: a real, a point, an integer or a text. Of several groups with the code the last
// one's stays there. Any code but that of a y or z.
template <class Value> struct Into
{
    Into(int groupCode, Value &target) : code(groupCode), value(target) {}

    int code;
    Value &value;
};

// The groups of an entity that describe it: without extended data, and without an object embedded in it, whose groups
// mean other things.
class EntityReader
{
public:
    EntityReader(const drawing::Database &database, drawing::RecordId entity) : m_reader(database.reader(entity)) {}

    bool next(drawing::Item &item) { return m_reader.next(item) && describes(item); }
    std::u16string text(const drawing::Item &item) const { return m_reader.text(item); }

    // Everything up to the end; what goes nowhere is passed over.
    template <class... Values> void readInto(Into<Values>... targets)
    {
        for (drawing::Item item; m_reader.nextRaw(item) && describes(item);)
            if (((item.code == targets.code) || ...)) {
                m_reader.readValue(item);
                ((item.code == targets.code ? put(item, targets.value) : void()), ...);
            }
    }

private:
    static bool describes(const drawing::RawGroup &group)
    {
        constexpr int FirstExtended = 1000;
        return group.code != drawing::groupcode::EmbeddedObject && group.code < FirstExtended;
    }

    static void put(const drawing::Item &item, double &value) { value = item.real; }
    static void put(const drawing::Item &item, Vector &value) { value = vectorOf(item.point); }
    static void put(const drawing::Item &item, std::int64_t &value) { value = item.integer; }
    void put(const drawing::Item &item, std::u16string &value) const { value = text(item); }

    drawing::GroupReader m_reader;
};

// Codes that mean the same in every entity that has them.
namespace code {
inline constexpr int Thickness = 39, Extrusion = 210;
} // namespace code

} // namespace geometry
