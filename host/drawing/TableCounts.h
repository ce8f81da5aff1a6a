#pragma once

#include "host/drawing/Database.h"

#include <map>
#include <vector>

namespace drawing {

// How many records each table has, without erased ones. Looks only at what has changed since it was asked last.
class TableCounts
{
public:
    std::size_t of(const Database &database, NameId table);

private:
    void look(const Database &database, RecordId id);

    std::map<NameId, std::size_t> m_counts;
    std::vector<bool> m_isCounted; // by RecordId; empty before the first look
    std::uint64_t m_changeCount = 0;
};

} // namespace drawing
