#pragma once

#include "host/drawing/Database.h"

namespace geometry {

// The groups of an entity that describe it: without extended data, and without an object embedded in it, whose groups
// mean other things.
class EntityReader
{
public:
    EntityReader(const drawing::Database &database, drawing::RecordId entity) : m_reader(database.reader(entity)) {}

    bool next(drawing::Item &item)
    {
        constexpr int FirstExtended = 1000;
        return m_reader.next(item) && item.code != drawing::groupcode::EmbeddedObject && item.code < FirstExtended;
    }
    std::u16string text(const drawing::Item &item) const { return m_reader.text(item); }

private:
    drawing::GroupReader m_reader;
};

// Codes that mean the same in every entity that has them.
namespace code {
inline constexpr int Thickness = 39, Extrusion = 210;
} // namespace code

} // namespace geometry
