// WBLOCK: a part of the drawing as a drawing of its own.

#include "host/commands/Commands.h"
#include "host/commands/DrawingFiles.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/Extract.h"

#include <QFileInfo>

namespace commands {

namespace {

// The objects go out of the drawing; OOPS brings them back.
Command writeObjects(Context &context, const QString path)
{
    const WorkPlane plane(context.session());
    const auto base = co_await context.ask().point({u"Specify insertion base point: ", {}, Enter::Refused});
    const Selection entities = co_await selectObjects(context);
    if (entities.empty())
        co_return;
    const auto part = drawing::extractedEntities(context.drawing(), entities, plane.world(base.value));
    writeDrawing(context, part->database(), path);
    for (const RecordId entity : entities)
        context.database().erase(entity);
    context.memory().erased = entities;
}

} // namespace

Command writeBlock(Context &context)
{
    const auto name = co_await context.ask().string(
        {u"Enter name of output file: ", {}, Enter::Refused, {}, Blanks::BelongToAnswers});
    const QString path = dxfName(name.value);
    co_await confirmReplacing(context, path);
    const auto block = co_await context.ask().string(
        {u"Enter name of existing block or [= (block=output file)/* (whole drawing)] <define new drawing>: "});
    if (block.isNothing())
        co_return co_await writeObjects(context, path);
    if (block.value == u"*")
        co_return writeDrawing(context, context.database(), path);
    const std::u16string wanted =
        block.value == u"=" ? QFileInfo(path).completeBaseName().toStdU16String() : block.value;
    const RecordId start = findRecord(context, drawing::known::Block, wanted);
    if (start == drawing::NoRecord)
        throw CommandError{u"Block \"" + wanted + u"\" not found."};
    writeDrawing(context, drawing::extractedBlock(context.drawing(), start)->database(), path);
}

} // namespace commands
