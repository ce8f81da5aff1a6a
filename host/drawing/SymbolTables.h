#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/TableCounts.h"

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace drawing {

// The tables of a drawing: named records, whose names differ in more than case. A table is called by the type of its
// records: known::Layer, Linetype, Style, DimensionStyle, View, UserCoordinates, Viewport, Application, BlockRecord;
// and known::Block for the blocks themselves, which are records of the section of blocks.
class SymbolTables
{
public:
    explicit SymbolTables(Database &database) : m_database(database) {}

    RecordId find(NameId table, std::u16string_view name) const; // NoRecord also for an erased one
    std::vector<RecordId> entries(NameId table) const;           // without erased ones, in order
    bool isEntry(RecordId id, NameId table) const;               // not an erased one
    RecordId start(NameId table) const;                          // its TABLE; NoRecord when there is none

    // Adds a record at the end; its groups begin with type and name. The table, and its section, are made when they are
    // missing; owner and subclass markers are the caller's (see addApplication). NoRecord when the name is taken or
    // missing, or a value cannot be written. Not for blocks (see Blocks.h).
    RecordId add(NameId table, const GroupList &groups);

    RecordId ensureTable(NameId table);

private:
    using Names = std::unordered_map<std::u16string, std::vector<RecordId>>;

    void readNamings() const;
    void count(RecordId table, NameId type);

    Database &m_database;
    TableCounts m_counts;
    mutable std::map<NameId, Names> m_byName; // also names that a record no longer has
    mutable std::size_t m_namingsRead = 0;
};

} // namespace drawing
