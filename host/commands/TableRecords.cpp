#include "host/commands/TableRecords.h"

#include "host/drawing/entities/EntityMaking.h"
#include "host/interpreter/text/WildcardPattern.h"

namespace commands {

std::vector<RecordId> recordsLike(Context &context, drawing::NameId table, std::u16string_view patterns)
{
    const lisp::WildcardPattern pattern(drawing::folded(patterns));
    std::vector<RecordId> records;
    for (const RecordId record : context.tables().entries(table))
        if (pattern.matches(drawing::folded(context.database().name(record))))
            records.push_back(record);
    return records;
}

void changeRecord(Context &context, RecordId record, const drawing::Group &group)
{
    drawing::GroupList groups = context.database().groups(record);
    drawing::setGroup(groups, group);
    if (!context.database().replace(record, groups))
        throw CommandError{u"The value cannot be written."};
}

bool isValidName(std::u16string_view name)
{
    return !name.empty() && name.find_first_of(u"<>/\\\":;?*|,=`") == name.npos;
}

RecordId findRecord(Context &context, drawing::NameId table, std::u16string_view name)
{
    return context.tables().find(table, name);
}

RecordId addRecord(Context &context, const drawing::GroupList &groups)
{
    const RecordId added = drawing::addTableRecord(context.drawing(), groups);
    if (added == drawing::NoRecord)
        throw CommandError{u"The record cannot be made."};
    return added;
}

} // namespace commands
