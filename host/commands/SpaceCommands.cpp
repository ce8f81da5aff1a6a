// MSPACE and PSPACE: whether a layout's paper is worked on, or the model through one of its viewports.

#include "host/commands/Commands.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/selection/Candidates.h"

#include <algorithm>

namespace commands {

namespace {

void requireLayout(const Session &session)
{
    if (session.integer(u"TILEMODE") != 0)
        throw CommandError{u"** Command not allowed in Model Tab **"};
}

// The first viewport of a layout is the paper itself.
bool hasViewport(const drawing::Drawing &drawing)
{
    constexpr int NumberCode = 69;
    const std::vector<RecordId> entities = selection::allEntities(drawing);
    return std::any_of(entities.begin(), entities.end(), [&](RecordId entity) {
        return drawing.database().record(entity).has(drawing::Record::PaperSpace) &&
               drawing.database().type(entity) == u"VIEWPORT" &&
               drawing::integerOf(drawing.database().groups(entity), NumberCode) > 1;
    });
}

} // namespace

Command modelSpace(Context &context)
{
    requireLayout(context.session());
    if (!hasViewport(context.drawing()))
        throw CommandError{u"There are no active Model space viewports."};
    context.session().workThroughViewport(true);
    co_return;
}

Command paperSpace(Context &context)
{
    requireLayout(context.session());
    context.session().workThroughViewport(false);
    co_return;
}

} // namespace commands
