// MSPACE and PSPACE: whether a layout's paper is worked on, or the model through one of its viewports.

#include "host/commands/Commands.h"

namespace commands {

namespace {

void requireLayout(const Session &session)
{
    if (session.integer(u"TILEMODE") != 0)
        throw CommandError{u"** Command not allowed in Model Tab **"};
}

} // namespace

Command modelSpace(Context &context)
{
    requireLayout(context.session());
    if (!context.session().workThroughViewport())
        throw CommandError{u"There are no active Model space viewports."};
    co_return;
}

Command paperSpace(Context &context)
{
    requireLayout(context.session());
    context.session().workOnPaper();
    co_return;
}

} // namespace commands
