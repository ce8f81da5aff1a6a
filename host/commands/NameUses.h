#pragma once

#include "host/drawing/Database.h"

#include <vector>

namespace commands {

// A group that calls a record of a symbol table by its name.
struct NameUse
{
    std::size_t place; // among the groups of its record
    drawing::NameId table;
    bool isNeeded = true; // else it only tells of the record, which may go: layer filters and states do
};

// Those of a record whose groups these are. Other records are called by their handles.
std::vector<NameUse> nameUses(const drawing::Database &database, drawing::RecordId record,
                              const drawing::GroupList &groups);

// The variables, of the system or of the header alone, that have the name of a record of this table.
std::vector<std::u16string_view> variablesWithNameOf(drawing::NameId table);
std::string inHeader(std::u16string_view variable); // as the header calls it: "$CLAYER"

} // namespace commands
