#pragma once

#include "host/drawing/geometry/TextLayouts.h"

#include <unordered_map>

namespace render {

// The text styles of a drawing, each read once.
class TextStyles
{
public:
    explicit TextStyles(const drawing::Database &database) : m_database(database) {}

    // Stays valid; NoRecord gives a plain one.
    const geometry::TextStyle &of(drawing::RecordId style) const
    {
        const auto known = m_styles.find(style);
        return known != m_styles.end()
                   ? known->second
                   : m_styles.emplace(style, geometry::textStyleOf(m_database, style)).first->second;
    }

private:
    const drawing::Database &m_database;
    mutable std::unordered_map<drawing::RecordId, geometry::TextStyle> m_styles;
};

} // namespace render
