// Commands that need no more than a selection.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"

namespace commands {

Command erase(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    for (const RecordId entity : entities)
        context.database().erase(entity);
}

Command select(Context &context)
{
    co_await selectObjects(context, Purpose::Look);
}

} // namespace commands
