// Saving and opening. Drawings are DXF files; a name with another ending is saved with ".dxf" in its place.

#include "host/commands/Commands.h"
#include "host/commands/DrawingFiles.h"

namespace commands {

namespace {

// As the drawing's own file from now on.
void writeOwn(Context &context, const QString &path)
{
    writeDrawing(context, context.database(), path);
    context.drawing().setPath(path);
    context.drawing().noteSaved();
}

Task<QString> askPath(Context &context)
{
    const QString now = context.drawing().path();
    const std::u16string prompt =
        u"Save drawing as" + (now.isEmpty() ? std::u16string() : u" <" + now.toStdU16String() + u">") + u": ";
    const auto name = co_await context.ask().string({prompt, {}, now.isEmpty() ? Enter::Refused : Enter::Allowed});
    const QString path = name.hasValue() ? dxfName(name.value) : now;
    if (path != now)
        co_await confirmReplacing(context, path);
    co_return path;
}

} // namespace

// Under another name, and the drawing keeps its own.
Command save(Context &context)
{
    const QString path = co_await askPath(context);
    const QString own = context.drawing().path();
    if (own.isEmpty() || path == own)
        writeOwn(context, path);
    else
        writeDrawing(context, context.database(), path);
}

// The version of the file stays as it is, whatever is chosen.
Command saveAs(Context &context)
{
    const auto format =
        co_await context.ask().string({u"Enter file format [R14/2000/2004/2007/2010/2013/2018/DXF] <2018>: "});
    if (format.hasValue() && drawing::folded(format.value) == drawing::folded(u"DXF"))
        co_await context.ask().integer({u"Enter decimal places of accuracy (0 to 16) or [Binary] <16>: ", u"Binary"},
                                       {0, 16});
    const QString path = co_await askPath(context);
    writeOwn(context, path);
}

Command quickSave(Context &context)
{
    QString path = context.drawing().path();
    if (path.isEmpty())
        path = co_await askPath(context);
    writeOwn(context, path);
}

Command open(Context &context)
{
    if (context.drawing().isModified()) {
        const auto discards = co_await context.ask().keyword(
            {u"Really want to discard all changes to drawing? [Yes/No] <N>: ", u"Yes No"});
        if (!discards.is(u"Yes"))
            co_return;
    }
    const auto name = co_await context.ask().string({u"Enter name of drawing to open: ", {}, Enter::Refused});
    std::u16string failure;
    try {
        context.session().openDrawing(QString::fromStdU16String(name.value));
    } catch (const drawing::ReadError &error) {
        failure = QString::fromUtf8(error.what()).toStdU16String();
    }
    if (!failure.empty())
        throw CommandError{failure};
    const QString note = oddityNote(context.database());
    if (!note.isEmpty())
        context.session().print(u'\n' + name.value + u": " + note.toStdU16String() + u'\n');
}

} // namespace commands
