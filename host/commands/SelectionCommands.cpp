// Commands that need no more than a selection.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"

namespace commands {

Command erase(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    for (const RecordId entity : entities)
        context.database().erase(entity);
    context.memory().erased = entities;
}

// What ERASE took last comes back, whatever was done since.
Command unerase(Context &context)
{
    for (const RecordId entity : context.memory().erased)
        context.database().restore(entity);
    co_return;
}

Command select(Context &context)
{
    co_await selectObjects(context, Purpose::Look);
}

// What is selected here, the next command takes without asking.
Command preselect(Context &context)
{
    const Selection entities = co_await selectObjects(context, Purpose::Look);
    context.session().setImpliedSelection(entities);
}

} // namespace commands
