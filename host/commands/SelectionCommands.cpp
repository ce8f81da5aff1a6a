// Commands that need no more than a selection.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"

namespace commands {

Command erase(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    for (const RecordId entity : entities) {
        context.session().pulse();
        context.database().erase(entity);
    }
    context.memory().erased = entities;
}

// What ERASE took last comes back, whatever was done since.
// But for an insert whose block has been purged.
Command unerase(Context &context)
{
    for (const RecordId entity : context.memory().erased) {
        const drawing::Database &database = context.database();
        const bool isInsert = database.record(entity).type == drawing::known::Insert;
        const std::u16string block =
            isInsert ? drawing::textOf(database.groups(entity), drawing::groupcode::Name) : std::u16string();
        if (isInsert && findRecord(context, drawing::known::Block, block) == drawing::NoRecord)
            context.session().print(u"\nBlock \"" + block + u"\" is gone, and its insert with it.\n");
        else
            context.database().restore(entity);
    }
    co_return;
}

Command select(Context &context)
{
    co_await selectObjects(context, Purpose::Look);
}

Command selectOneAnswer(Context &context)
{
    co_await selectOnce(context, Purpose::Look);
}

// What is selected here, the next command takes without asking.
Command preselect(Context &context)
{
    const Selection entities = co_await selectObjects(context, Purpose::Look);
    context.session().setImpliedSelection(entities);
}

} // namespace commands
