#pragma once

#include "host/drawing/Blocks.h"
#include "host/drawing/geometry/Extents.h"

#include <gtest/gtest.h>

#include <ostream>

namespace geometry {

inline void PrintTo(const Vector &place, std::ostream *out)
{
    *out << '(' << place.x << ' ' << place.y << ' ' << place.z << ')';
}
inline void PrintTo(const Box &box, std::ostream *out)
{
    PrintTo(box.minimum, out);
    PrintTo(box.maximum, out);
}

inline drawing::Group place(int code, double x, double y, double z = 0)
{
    return {code, drawing::Point{x, y, z, 3}};
}
inline drawing::Group integer(int code, std::int64_t value)
{
    return {code, value};
}

// An empty drawing to add entities to; their groups come without type.
class GeometryTest : public testing::Test
{
protected:
    using Groups = drawing::GroupList;

    drawing::RecordId add(std::u16string type, Groups groups) { return addIn(entities(), std::move(type), groups); }
    drawing::RecordId addIn(drawing::RecordId container, std::u16string type, Groups groups)
    {
        groups.insert(groups.begin(), {0, std::move(type)});
        const auto id = database().add(drawing::RecordKind::Entity, groups, database().endOf(container));
        EXPECT_NE(id, drawing::NoRecord);
        return id;
    }
    drawing::RecordId addBlock(std::u16string name, drawing::Point base = {})
    {
        return drawing::addBlock(database(), m_drawing.tables(), {std::move(name), base});
    }
    drawing::RecordId addInsert(std::u16string block, Groups groups = {place(10, 0, 0)})
    {
        groups.insert(groups.begin(), {2, std::move(block)});
        return add(u"INSERT", std::move(groups));
    }
    drawing::RecordId entities() { return drawing::ensureEntities(database()); }
    drawing::Database &database() { return m_drawing.database(); }

    Box extents(drawing::RecordId id)
    {
        const auto box = extentsOf(m_drawing, id);
        EXPECT_TRUE(box);
        return box.value_or(Box{});
    }
    bool hasExtents(drawing::RecordId id) { return extentsOf(m_drawing, id).has_value(); }

    // To within rounding.
    static void expectBox(const Box &box, const Vector &minimum, const Vector &maximum)
    {
        for (const auto axis : {&Vector::x, &Vector::y, &Vector::z}) {
            EXPECT_NEAR(box.minimum.*axis, minimum.*axis, 1e-12) << testing::PrintToString(box);
            EXPECT_NEAR(box.maximum.*axis, maximum.*axis, 1e-12) << testing::PrintToString(box);
        }
    }

    drawing::Drawing m_drawing;
};

} // namespace geometry
