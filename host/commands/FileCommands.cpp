// Saving and opening. Drawings are DXF files; a name with another ending is saved with ".dxf" in its place.

#include "host/commands/CommandTable.h"
#include "host/commands/Commands.h"
#include "host/commands/DrawingFiles.h"
#include "host/commands/SelectObjects.h"
#include "host/drawing/edit/Extract.h"

namespace commands {

namespace {

// As the drawing's own file from now on.
void writeOwn(Context &context, const QString &path)
{
    writeDrawing(context, context.database(), path);
    context.drawing().setPath(path);
    context.drawing().noteSaved();
}

Task<QString> confirmedPath(Context &context, const std::u16string name)
{
    const QString path = dxfName(name);
    if (path != context.drawing().path())
        co_await confirmReplacing(context, path);
    co_return path;
}

Task<QString> askPath(Context &context)
{
    const QString now = context.drawing().path();
    const std::u16string prompt =
        u"Save drawing as" + (now.isEmpty() ? std::u16string() : u" <" + now.toStdU16String() + u">") + u": ";
    const auto name = co_await context.ask().string({prompt, {}, now.isEmpty() ? Enter::Refused : Enter::Allowed});
    if (!name.hasValue())
        co_return now;
    const QString path = co_await confirmedPath(context, name.value);
    co_return path;
}

// What is chosen for a DXF file.
struct DxfChoice
{
    Selection objects;                  // alone; none: the whole drawing
    std::optional<std::u16string> name; // of the file, where it stands in place of the accuracy
};

enum class FileName { TakenInstead, KnownAlready };

// Numbers are written in full and as text, whatever is chosen.
Task<DxfChoice> askAccuracy(Context &context, FileName name)
{
    constexpr int MostDecimals = 16;
    DxfChoice choice;
    for (;;) {
        const auto accuracy = co_await context.ask().string(
            {u"Enter decimal places of accuracy (0 to 16) or [Objects/Binary] <16>: ", u"Objects Binary"});
        if (accuracy.is(u"Objects")) {
            choice.objects = co_await selectObjects(context, Purpose::Look);
            continue;
        }
        bool isNumber = false;
        const int decimals = QString::fromStdU16String(accuracy.value).toInt(&isNumber);
        const bool isOther = accuracy.hasValue() && !isNumber;
        if (isNumber ? decimals < 0 || decimals > MostDecimals : isOther && name == FileName::KnownAlready) {
            context.session().print(u"\nRequires an integer between 0 and 16.\n");
            continue;
        }
        if (isOther)
            choice.name = accuracy.value;
        co_return choice;
    }
}

// Under another name, and the drawing keeps its own.
void writeBeside(Context &context, const QString &path)
{
    const QString own = context.drawing().path();
    if (own.isEmpty() || path == own)
        writeOwn(context, path);
    else
        writeDrawing(context, context.database(), path);
}

void writePart(Context &context, const Selection &objects, const QString &path)
{
    writeDrawing(context, drawing::extractedEntities(context.drawing(), objects, {})->database(), path);
}

} // namespace

Command save(Context &context)
{
    const QString path = co_await askPath(context);
    writeBeside(context, path);
}

// As SAVE, but asks what goes into the file as well.
Command exportDrawing(Context &context)
{
    const QString path = co_await askPath(context);
    const DxfChoice choice = co_await askAccuracy(context, FileName::KnownAlready);
    if (choice.objects.empty())
        writeBeside(context, path);
    else
        writePart(context, choice.objects, path);
}

// The version of the file stays as it is, whatever is chosen. A part of the drawing goes into a file of its own.
Command saveAs(Context &context)
{
    const auto format =
        co_await context.ask().string({u"Enter file format [R14/2000/2004/2007/2010/2013/2018/DXF] <2018>: "});
    DxfChoice choice;
    if (commandName(format.value) == u"DXF")
        choice = co_await askAccuracy(context, FileName::TakenInstead);
    QString path;
    if (choice.name)
        path = co_await confirmedPath(context, *choice.name);
    else
        path = co_await askPath(context);
    if (choice.objects.empty())
        co_return writeOwn(context, path);
    writePart(context, choice.objects, path);
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
