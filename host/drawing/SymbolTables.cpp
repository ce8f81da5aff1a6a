#include "host/drawing/SymbolTables.h"

#include <algorithm>

namespace drawing {

void SymbolTables::readNamings() const
{
    const auto &namings = m_database.namings();
    for (; m_namingsRead < namings.size(); ++m_namingsRead) {
        const auto [id, name] = namings[m_namingsRead];
        const std::u16string text = folded(m_database.codec().decode(m_database.names().text(name)));
        std::vector<RecordId> &records = m_byName[m_database.record(id).type][text];
        if (std::find(records.begin(), records.end(), id) == records.end())
            records.push_back(id);
    }
}

bool SymbolTables::isEntry(RecordId id, NameId table) const
{
    const Record &record = m_database.record(id);
    const RecordKind kind = table == known::Block ? RecordKind::BlockStart : RecordKind::TableRecord;
    return record.kind == kind && record.type == table && !record.isGone();
}

RecordId SymbolTables::find(NameId table, std::u16string_view name) const
{
    readNamings();
    const std::u16string key = folded(name);
    const auto names = m_byName.find(table);
    if (names == m_byName.end())
        return NoRecord;
    const auto records = names->second.find(key);
    if (records == names->second.end())
        return NoRecord;
    // A record that was renamed, or whose renaming was undone, has another name now.
    const auto found = std::find_if(records->second.begin(), records->second.end(), [&](RecordId id) {
        return isEntry(id, table) && folded(m_database.name(id)) == key;
    });
    return found == records->second.end() ? NoRecord : *found;
}

std::vector<RecordId> SymbolTables::entries(NameId table) const
{
    std::vector<RecordId> ids;
    const auto &named = m_database.namedRecords();
    std::copy_if(named.begin(), named.end(), std::back_inserter(ids), [&](RecordId id) { return isEntry(id, table); });
    return ids;
}

RecordId SymbolTables::start(NameId table) const
{
    const RecordId section = m_database.section(known::Tables);
    if (section == NoRecord)
        return NoRecord;
    for (RecordId id = m_database.record(section).next; id != NoRecord; id = m_database.record(id).next) {
        const Record &record = m_database.record(id);
        if (record.kind == RecordKind::SectionEnd || record.kind == RecordKind::SectionStart)
            break;
        if (record.kind != RecordKind::TableStart)
            continue;
        if (record.name == table)
            return id;
        if (const RecordId end = m_database.knownEndOf(id); end != NoRecord) // not past each of its records
            id = end;
    }
    return NoRecord;
}

RecordId SymbolTables::ensureTable(NameId table)
{
    if (const RecordId id = start(table); id != NoRecord)
        return id;
    const RecordId section = m_database.ensureSection(known::Tables);
    GroupList groups{{groupcode::Type, u"TABLE"}, // the handle, which is given by add(), stands third
                     {groupcode::Name, widened(m_database.names().text(table))},
                     {groupcode::Handle, Handle{}}};
    if (!m_database.isBefore2000()) {
        groups.push_back({groupcode::Owner, Handle{0}});
        groups.push_back({groupcode::Subclass, u"AcDbSymbolTable"});
    }
    groups.push_back({groupcode::Count, std::int64_t{0}});
    const RecordId added = m_database.add(RecordKind::TableStart, groups, m_database.endOf(section));
    m_database.endOf(added);
    return added;
}

RecordId SymbolTables::add(NameId table, const GroupList &groups)
{
    const auto *name = findValue<std::u16string>(groups, groupcode::Name);
    if (!name || name->empty() || find(table, *name) != NoRecord)
        return NoRecord;
    const RecordId tableStart = ensureTable(table);
    const RecordId added = m_database.add(RecordKind::TableRecord, groups, m_database.endOf(tableStart));
    if (added != NoRecord)
        count(tableStart, table);
    return added;
}

// The table says how many records it has; programs allocate by it, so it must not be too low.
void SymbolTables::count(RecordId table, NameId type)
{
    const auto needed = static_cast<std::int64_t>(m_counts.of(m_database, type));
    GroupList groups = m_database.groups(table);
    for (Group &group : groups) {
        auto *number = std::get_if<std::int64_t>(&group.value);
        if (group.code != groupcode::Count || !number || *number >= needed)
            continue;
        *number = needed;
        m_database.replace(table, groups);
        return;
    }
}

} // namespace drawing
