#include "host/commands/Renaming.h"

#include "host/commands/NameUses.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/edit/GroupEditing.h"

namespace commands {

using namespace drawing;

namespace {

NameId tableOf(const Record &record)
{
    return record.kind == RecordKind::BlockStart ? NameId{known::Block} : record.type;
}

// The table record of a block stands for it.
RecordId namedBy(const Drawing &drawing, RecordId record)
{
    const Database &database = drawing.database();
    if (database.record(record).type != known::BlockRecord)
        return record;
    const RecordId block = drawing.tables().find(known::Block, database.name(record));
    return block != NoRecord ? block : record;
}

void putName(Database &database, RecordId record, int code, const std::u16string &name)
{
    GroupList groups = database.groups(record);
    setGroup(groups, textGroup(code, name));
    database.replace(record, groups);
}

// The start of a block has the name twice, and its table record has it, too.
void putOwnName(Drawing &drawing, RecordId record, const std::u16string &name)
{
    Database &database = drawing.database();
    if (database.record(record).kind == RecordKind::BlockStart) {
        putName(database, record, groupcode::EntryName, name);
        if (const RecordId owner = drawing.tables().find(known::BlockRecord, database.name(record)); owner != NoRecord)
            putName(database, owner, groupcode::Name, name);
    }
    putName(database, record, groupcode::Name, name);
}

void putNameWhereUsed(Database &database, RecordId record, NameId table, const std::u16string &old,
                      const std::u16string &name)
{
    GroupList groups = database.groups(record);
    bool isChanged = false;
    for (const NameUse &use : nameUses(database, record, groups))
        if (use.table == table && folded(std::get<std::u16string>(groups[use.place].value)) == old) {
            groups[use.place].value = name;
            isChanged = true;
        }
    if (isChanged)
        database.replace(record, groups);
}

// Variables that setvar does not change are not kept in the header by themselves, and some stand there alone.
void putNameIntoVariables(Session &session, NameId table, const std::u16string &old, const std::u16string &name)
{
    Database &database = session.drawing().database();
    for (const std::u16string_view variable : variablesWithNameOf(table)) {
        const bool isSetting = session.variable(variable) && folded(session.text(variable)) == old;
        if (isSetting)
            session.assign(variable, name);
        const std::optional<Group> group = drawing::variable(database, inHeader(variable));
        const auto *text = group ? std::get_if<std::u16string>(&group->value) : nullptr;
        if (text && (isSetting || folded(*text) == old))
            setVariable(database, inHeader(variable), textGroup(group->code, name));
    }
}

} // namespace

Renaming renamingOf(Drawing &drawing, RecordId record, std::u16string_view name)
{
    const Database &database = drawing.database();
    record = namedBy(drawing, record);
    const NameId table = tableOf(database.record(record));
    const std::u16string old = database.name(record);
    if (isKept(table, old) || old.starts_with(u'*'))
        return Renaming::OfWhatIsKept;
    const RecordId there = drawing.tables().find(table, name);
    return isValidName(name) && (there == NoRecord || there == record) ? Renaming::Possible
                                                                       : Renaming::ToAnUnusableName;
}

void renameRecord(Session &session, RecordId record, const std::u16string &name)
{
    Database &database = session.drawing().database();
    record = namedBy(session.drawing(), record);
    const NameId table = tableOf(database.record(record));
    const std::u16string old = folded(database.name(record));
    putOwnName(session.drawing(), record, name);
    for (RecordId id = 0; id < database.recordCount(); ++id)
        putNameWhereUsed(database, id, table, old, name);
    putNameIntoVariables(session, table, old, name);
}

void renameRecord(Context &context, std::u16string_view kind, RecordId record, const std::u16string &name)
{
    const std::u16string what = std::u16string(kind) + u" \"" + context.database().name(record) + u"\"";
    switch (renamingOf(context.drawing(), record, name)) {
    case Renaming::OfWhatIsKept:
        throw CommandError{u"The " + what + u" cannot be renamed."};
    case Renaming::ToAnUnusableName:
        throw CommandError{u"Cannot rename " + what + u" to \"" + name + u"\"."};
    case Renaming::Possible:
        renameRecord(context.session(), record, name);
    }
}

} // namespace commands
