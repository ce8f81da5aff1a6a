#pragma once

#include "host/drawing/GroupReader.h"

namespace drawing {

// Tells, group after group, what programs keep in a record between (102 . "{NAME") and (102 . "}"): such groups have
// the codes of others and mean something else.
class Braces
{
public:
    // Whether the group stands between braces, or is one.
    bool enclose(const Item &item)
    {
        return enclose(item.code == groupcode::Braces && item.kind == ValueKind::Text, item.value.starts_with('{'));
    }
    bool enclose(const Group &group)
    {
        const auto *text = std::get_if<std::u16string>(&group.value);
        return enclose(group.code == groupcode::Braces && text, text && text->starts_with(u'{'));
    }

private:
    bool enclose(bool isBrace, bool opens)
    {
        const bool isInside = isBrace || m_depth > 0;
        if (isBrace)
            m_depth += opens ? 1 : -1;
        return isInside;
    }

    int m_depth = 0;
};

} // namespace drawing
