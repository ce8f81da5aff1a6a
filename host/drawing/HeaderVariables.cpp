#include "host/drawing/HeaderVariables.h"

namespace drawing {

RecordId findVariable(const Database &database, std::string_view name)
{
    const NameId id = database.names().find(name);
    const RecordId section = database.section(known::Header);
    if (id == known::None || section == NoRecord)
        return NoRecord;
    RecordId record = database.firstIn(section);
    while (record != NoRecord && database.record(record).name != id)
        record = database.nextIn(record);
    return record;
}

std::optional<Group> variable(const Database &database, std::string_view name)
{
    const RecordId record = findVariable(database, name);
    if (record == NoRecord)
        return std::nullopt;
    GroupReader reader = database.reader(record);
    for (Item item; reader.next(item);)
        if (item.code != groupcode::VariableName)
            return reader.group(item);
    return std::nullopt;
}

bool setVariable(Database &database, std::string_view name, const Group &value)
{
    const GroupList groups{{groupcode::VariableName, widened(name)}, value};
    if (const RecordId record = findVariable(database, name); record != NoRecord)
        return database.replace(record, groups);
    const RecordId section = database.ensureSection(known::Header);
    return database.add(RecordKind::HeaderVariable, groups, database.endOf(section)) != NoRecord;
}

} // namespace drawing
