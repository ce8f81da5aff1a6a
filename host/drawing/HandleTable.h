#pragma once

#include "host/drawing/Record.h"

#include <vector>

namespace drawing {

// Finds a record by its handle. Holds record numbers alone; the handles are read from the records.
class HandleTable
{
public:
    explicit HandleTable(const std::vector<Record> &records) : m_records(records) {}

    void reserve(std::size_t count);
    // The record that has the handle already, or NoRecord when `id` now has it. An absent record gives way.
    RecordId insert(RecordId id);
    RecordId find(std::uint64_t handle) const; // also an erased one

private:
    std::size_t slotOf(std::uint64_t handle) const;

    const std::vector<Record> &m_records;
    std::vector<RecordId> m_slots; // a power of two; 0: free
    unsigned m_shift = 64;
    std::size_t m_count = 0;
};

} // namespace drawing
