#include "host/drawing/HandleTable.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace drawing {

std::size_t HandleTable::slotOf(std::uint64_t handle) const
{
    constexpr std::uint64_t GoldenRatio = 0x9E3779B97F4A7C15; // of 2^64: spreads handles that count up evenly
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = (handle * GoldenRatio) >> m_shift;
    while (m_slots[slot] != NoRecord && m_records[m_slots[slot]].handle != handle)
        slot = (slot + 1) & mask;
    return slot;
}

void HandleTable::reserve(std::size_t count)
{
    constexpr std::size_t LeastSlots = 64;
    const std::size_t slots = std::bit_ceil(std::max(count + count / 3, LeastSlots));
    if (slots <= m_slots.size())
        return;
    const std::vector<RecordId> old = std::exchange(m_slots, std::vector<RecordId>(slots));
    m_shift = 64 - static_cast<unsigned>(std::countr_zero(slots));
    for (const RecordId id : old)
        if (id != NoRecord)
            m_slots[slotOf(m_records[id].handle)] = id;
}

RecordId HandleTable::insert(RecordId id)
{
    reserve(++m_count);
    RecordId &slot = m_slots[slotOf(m_records[id].handle)];
    if (slot != NoRecord && slot != id && !m_records[slot].has(Record::Absent))
        return slot;
    slot = id;
    return NoRecord;
}

RecordId HandleTable::find(std::uint64_t handle) const
{
    if (handle == 0 || m_slots.empty())
        return NoRecord;
    const RecordId id = m_slots[slotOf(handle)];
    return id != NoRecord && !m_records[id].has(Record::Absent) ? id : NoRecord;
}

} // namespace drawing
