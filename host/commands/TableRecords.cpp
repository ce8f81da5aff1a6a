#include "host/commands/TableRecords.h"

#include "host/drawing/Blocks.h"
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

bool isKept(drawing::NameId table, std::u16string_view name)
{
    namespace known = drawing::known;
    const std::u16string plain = drawing::folded(name);
    const auto is = [&plain](std::u16string_view other) { return plain == drawing::folded(other); };
    switch (table) {
    case known::Layer:
        return is(u"0") || is(u"DEFPOINTS");
    case known::Linetype:
        return is(u"ByLayer") || is(u"ByBlock") || is(u"Continuous");
    case known::Style:
    case known::DimensionStyle:
        return is(u"Standard") || name.empty();
    case known::Application:
        return is(u"ACAD");
    default:
        return plain.starts_with(drawing::folded(drawing::ModelSpace)) ||
               plain.starts_with(drawing::folded(drawing::PaperSpace));
    }
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
