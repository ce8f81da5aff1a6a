#pragma once

#include "host/drawing/Drawing.h"

#include <string>
#include <unordered_map>

namespace drawing {

// Which blocks the inserts and dimensions of a drawing show. Looks only at what has changed since it was asked last.
class BlockUsers
{
public:
    // Whether another one than this entity shows the block.
    bool isShownByOther(const Drawing &drawing, std::u16string_view block, RecordId entity);

private:
    void lookAtChanges(const Drawing &drawing);
    void look(const Database &database, RecordId id);

    std::uint32_t m_drawing = 0; // its number; 0: none yet
    std::uint64_t m_changeCount = 0;
    std::unordered_map<RecordId, std::u16string> m_shown; // by entity the name of its block, folded
    std::unordered_map<std::u16string, std::size_t> m_users;
};

} // namespace drawing
