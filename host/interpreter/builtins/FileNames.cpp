// File names and their parts; files and folders as a whole.

#include "host/interpreter/files/FileNames.h"

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/files/FileOperations.h"
#include "host/interpreter/files/TemporaryFileNames.h"

#include <limits>

namespace lisp {

namespace {

QString path(Args arguments, std::uint32_t index)
{
    return filePath(arguments.text(index));
}

std::optional<std::u16string_view> optionalText(Args arguments, std::uint32_t index)
{
    return arguments[index].isNil() ? std::nullopt : std::optional(arguments.text(index));
}

// A count of bytes that an integer cannot hold is given as a real.
Value byteCount(std::optional<std::int64_t> count)
{
    if (!count)
        return Value::nil();
    if (*count > std::numeric_limits<std::int32_t>::max())
        return Value::real(static_cast<double>(*count));
    return Value::integer(static_cast<std::int32_t>(*count));
}

Value base(Machine &machine, Args arguments)
{
    return machine.string(fileNameBase(arguments.text(0)));
}

Value directory(Machine &machine, Args arguments)
{
    return machine.string(fileNameDirectory(arguments.text(0)));
}

Value extension(Machine &machine, Args arguments)
{
    const std::optional<std::u16string> result = fileNameExtension(arguments.text(0));
    return result ? machine.string(*result) : Value::nil();
}

Value temporaryName(Machine &machine, Args arguments)
{
    const std::optional<std::u16string> name =
        temporaryFileName(optionalText(arguments, 0), optionalText(arguments, 1), optionalText(arguments, 2));
    return name ? machine.string(*name) : Value::nil();
}

Value copy(Machine &, Args arguments)
{
    const CopyMode mode = arguments[2].isTrue() ? CopyMode::Append : CopyMode::NewFile;
    return byteCount(copyFile(path(arguments, 0), path(arguments, 1), mode));
}

Value rename(Machine &machine, Args arguments)
{
    return machine.boolean(renameFile(path(arguments, 0), path(arguments, 1)));
}

Value remove(Machine &machine, Args arguments)
{
    return machine.boolean(deleteFile(path(arguments, 0)));
}

Value size(Machine &, Args arguments)
{
    return byteCount(fileSize(path(arguments, 0)));
}

// Year, month, day of the week from Monday 1 to Saturday 6 and Sunday 0, day, hours, minutes, seconds.
Value time(Machine &machine, Args arguments)
{
    const std::optional<QDateTime> changed = fileTime(path(arguments, 0));
    if (!changed)
        return Value::nil();
    const QDate date = changed->date();
    const QTime clock = changed->time();
    ListBuilder list(machine.heap());
    for (const int part :
         {date.year(), date.month(), date.dayOfWeek() % 7, date.day(), clock.hour(), clock.minute(), clock.second()})
        list.add(Value::integer(part));
    return list.list();
}

Value isFolder(Machine &machine, Args arguments)
{
    return machine.boolean(isDirectory(path(arguments, 0)));
}

Value makeFolder(Machine &machine, Args arguments)
{
    return machine.boolean(makeDirectory(path(arguments, 0)));
}

DirectoryListing listing(Args arguments)
{
    const std::int32_t which = arguments[2].isNil() ? 0 : arguments.integer(2);
    if (which < -1 || which > 1)
        fail(u"bad argument value: kind of directory entries " + printed(arguments[2]));
    return static_cast<DirectoryListing>(which);
}

Value listFolder(Machine &machine, Args arguments)
{
    const QString folder = arguments[0].isNil() ? QStringLiteral(".") : path(arguments, 0);
    const auto names = directoryFiles(folder, optionalText(arguments, 1).value_or(u"*.*"), listing(arguments));
    if (!names)
        return Value::nil();
    ListBuilder list(machine.heap());
    for (const std::u16string &name : *names)
        list.add(machine.string(name));
    return list.list();
}

constexpr BuiltinRow rows[] = {
    {"vl-filename-base", "(vl-filename-base NAME)", "Gives a file name without folder and extension.", base},
    {"vl-filename-directory", "(vl-filename-directory NAME)", "Gives the folder of a file name.", directory},
    {"vl-filename-extension", "(vl-filename-extension NAME)",
     "Gives the extension of a file name with its point, or nil.", extension},
    {"vl-filename-mktemp", "(vl-filename-mktemp [PATTERN [FOLDER [EXTENSION]]])",
     "Gives a new name for a file that is deleted at the end.", temporaryName},
    {"vl-file-copy", "(vl-file-copy SOURCE DESTINATION [APPEND])",
     "Copies a file, never over another one; gives the number of bytes, or nil.", copy},
    {"vl-file-rename", "(vl-file-rename OLD NEW)", "Renames a file; T if that worked.", rename},
    {"vl-file-delete", "(vl-file-delete NAME)", "Deletes a file; T if that worked.", remove},
    {"vl-file-size", "(vl-file-size NAME)", "Gives the size in bytes, 0 for a folder, or nil.", size},
    {"vl-file-systime", "(vl-file-systime NAME)",
     "Gives year, month, day of the week, day, hours, minutes and seconds of the last change, or nil.", time},
    {"vl-file-directory-p", "(vl-file-directory-p NAME)", "Gives T for a folder.", isFolder},
    {"vl-directory-files", "(vl-directory-files [FOLDER [PATTERN [KIND]]])",
     "Lists a folder: its folders (-1), files (1) or both (0).", listFolder},
    {"vl-mkdir", "(vl-mkdir NAME)", "Makes a folder; T if that worked.", makeFolder},
};

} // namespace

std::span<const BuiltinRow> fileNameBuiltins()
{
    return rows;
}

} // namespace lisp
