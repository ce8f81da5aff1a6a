#include "host/commands/InsertedDrawing.h"

#include "host/commands/DrawingFiles.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/edit/Import.h"

#include <QFileInfo>

namespace commands {

using drawing::Drawing;
using drawing::known::Block;

namespace {

bool isThere(Context &context, const std::u16string &block)
{
    return findRecord(context, Block, block) != drawing::NoRecord;
}

std::u16string titleOf(const QString &path)
{
    return QFileInfo(path).completeBaseName().toStdU16String();
}

// Whether the name can only be that of a file.
bool looksLikeFile(const std::u16string &name)
{
    return name.find_first_of(u"/\\") != name.npos || dxfName(name).toStdU16String() == name;
}

std::unique_ptr<Drawing> readDrawing(const QString &path)
{
    std::u16string failure;
    try {
        auto drawing = std::make_unique<Drawing>(path);
        const drawing::Database &database = drawing->database();
        if (database.section(drawing::known::Entities) != drawing::NoRecord)
            return drawing;
        failure = path.toStdU16String() + u": it is no drawing";
    } catch (const drawing::ReadError &error) {
        failure = QString::fromUtf8(error.what()).toStdU16String();
    }
    throw CommandError{failure};
}

void define(Context &context, const std::u16string &block, const QString &path)
{
    const std::unique_ptr<Drawing> source = readDrawing(path);
    if (!isValidName(block))
        throw CommandError{u"Invalid block name."};
    if (!drawing::canTake(context.drawing(), *source))
        throw CommandError{path.toStdU16String() + u": it is of a later version, which this drawing cannot hold"};
    if (drawing::wouldShowItself(context.drawing(), *source, block))
        throw CommandError{u"Block " + block + u" references itself"};
    if (const QString note = oddityNote(source->database()); !note.isEmpty())
        context.session().print(u'\n' + (path + QStringLiteral(": ") + note).toStdU16String() + u'\n');
    const bool wasThere = isThere(context, block);
    const drawing::Import import = drawing::importAsBlock(context.drawing(), *source, block);
    if (import.block == drawing::NoRecord)
        throw CommandError{u"The block cannot be made."};
    for (const std::u16string &held : import.heldOnto)
        context.say(u"Duplicate definition of block " + held + u" ignored.");
    if (wasThere)
        context.say(u"Block " + block + u" redefined");
    if (import.left > 0)
        context.session().print(u'\n' + shown(std::int64_t(import.left)) + u" could not be put into the block.\n");
}

Task<InsertedBlock> fromFile(Context &context, const std::u16string block, const QString path)
{
    const bool wasThere = isThere(context, block);
    if (wasThere) {
        const bool redefines = co_await mayRedefine(context, block);
        if (!redefines)
            co_return InsertedBlock{block};
    }
    define(context, block, path);
    co_return InsertedBlock{block, !wasThere};
}

} // namespace

Task<bool> mayRedefine(Context &context, const std::u16string block)
{
    constexpr int NoQuestions = 2;
    if (context.session().integer(u"EXPERT") >= NoQuestions)
        co_return true;
    const std::u16string prompt = u"Block \"" + block + u"\" already exists. Redefine it? [Yes/No] <N>: ";
    const auto redefines = co_await context.ask().keyword({prompt, u"Yes No"});
    co_return redefines.is(u"Yes");
}

Task<InsertedBlock> insertedBlock(Context &context, const std::u16string typed)
{
    const std::size_t equals = typed.find(u'=');
    if (equals == typed.npos && isThere(context, typed))
        co_return InsertedBlock{typed};
    const std::u16string left = typed.substr(0, equals);
    const std::u16string file = equals + 1 < typed.size() && equals != typed.npos ? typed.substr(equals + 1) : left;
    const std::optional<QString> path = context.session().findFile(dxfName(file).toStdU16String());
    if (!path && equals == typed.npos && !looksLikeFile(typed))
        throw CommandError{u"Cannot find block \"" + typed + u"\"."};
    if (!path)
        throw CommandError{u"Cannot find file \"" + file + u"\"."};
    const bool isNamedByFile = equals == typed.npos || looksLikeFile(left);
    const std::u16string block = isNamedByFile ? titleOf(*path) : left;
    const InsertedBlock inserted = co_await fromFile(context, block, *path);
    co_return inserted;
}

} // namespace commands
