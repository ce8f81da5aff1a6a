#include "host/drawing/TableCounts.h"

namespace drawing {

std::size_t TableCounts::of(const Database &database, NameId table)
{
    const auto changed = database.journal().changedSince(m_changeCount);
    const bool isKnown = changed && !m_isCounted.empty();
    m_isCounted.resize(database.recordCount());
    if (isKnown)
        for (const RecordId id : *changed)
            look(database, id);
    else
        for (const RecordId id : database.namedRecords())
            look(database, id);
    m_changeCount = database.journal().changeCount();
    return m_counts[table];
}

void TableCounts::look(const Database &database, RecordId id)
{
    const Record &record = database.record(id);
    const bool counts = record.kind == RecordKind::TableRecord && !record.isGone();
    if (counts == m_isCounted[id])
        return;
    m_isCounted[id] = counts;
    std::size_t &count = m_counts[record.type];
    count = counts ? count + 1 : count - 1;
}

} // namespace drawing
