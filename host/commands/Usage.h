#pragma once

#include "host/commands/Context.h"

#include <set>
#include <unordered_set>

namespace commands {

// Which table records and blocks the drawing needs, found by going over all its records once.
class Usage
{
public:
    explicit Usage(Context &context);

    bool isUsed(drawing::NameId table, RecordId record) const;

private:
    void readSettings(const Session &session);
    std::u16string textInHeader(std::u16string_view variable) const; // empty: none
    void readRecord(RecordId id);
    void addName(drawing::NameId table, std::u16string_view name);
    bool isPointedTo(drawing::RecordId record) const;

    const drawing::Database &m_database;
    const drawing::SymbolTables &m_tables;
    std::set<std::pair<drawing::NameId, std::u16string>> m_names;
    std::unordered_set<std::uint64_t> m_handles; // that other records point to
};

} // namespace commands
