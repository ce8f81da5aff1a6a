// Text files: opening, reading, writing, finding.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/FileObject.h"
#include "host/interpreter/FileSearch.h"
#include "host/interpreter/LineInput.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/builtins/CharacterCodes.h"
#include "host/interpreter/files/FileNames.h"
#include "host/interpreter/files/TextFile.h"

#include <QDir>

namespace lisp {

namespace {

// A file that `open` has given. Closed, it stays a FILE, but only `close` still takes it.
class OpenFile final : public FileObject
{
public:
    OpenFile(std::u16string_view name, std::unique_ptr<TextFile> file) : m_name(name), m_file(std::move(file)) {}

    std::u16string printed() const override { return u"#<file \"" + m_name + u"\">"; }
    void write(std::u16string_view text) override
    {
        if (openedFile().mode() == FileMode::Read)
            fail(u"file not open for writing: " + printed());
        if (!m_file->write(text))
            failToWrite();
    }
    TextFile &readable()
    {
        if (openedFile().mode() != FileMode::Read)
            fail(u"file not open for reading: " + printed());
        return *m_file;
    }
    void close()
    {
        const std::unique_ptr<TextFile> file = std::move(m_file);
        if (file && !file->close())
            failToWrite();
    }

private:
    TextFile &openedFile() const
    {
        if (!m_file)
            fail(u"file not open: " + printed());
        return *m_file;
    }
    [[noreturn]] void failToWrite() const { fail(u"cannot write to file: " + printed()); }

    std::u16string m_name;
    std::unique_ptr<TextFile> m_file; // null: closed
};

OpenFile *fileArgument(Args arguments, std::uint32_t index)
{
    return arguments.native<OpenFile>(index, u"streamp");
}

Value open(Machine &machine, Args arguments)
{
    const std::u16string_view name = arguments.text(0);
    const std::optional<FileMode> mode = fileModeNamed(arguments.text(1));
    if (!mode)
        fail(u"bad argument value: file mode " + printed(arguments[1]));
    const FileEncoding encoding = arguments[2].isNil() ? FileEncoding::Ansi : fileEncodingNamed(arguments.text(2));
    std::unique_ptr<TextFile> file = TextFile::open(filePath(name), *mode, encoding);
    return file ? machine.heap().newNative<OpenFile>(name, std::move(file)) : Value::nil();
}

// A file that is closed already is left alone: error handlers close what the program may have closed before.
Value close(Machine &, Args arguments)
{
    fileArgument(arguments, 0)->close();
    return Value::nil();
}

std::optional<std::u16string> typedLine(Machine &machine)
{
    return machine.lineInput() ? machine.lineInput()->readLine() : std::nullopt;
}

std::optional<char16_t> typedCharacter(Machine &machine)
{
    return machine.lineInput() ? machine.lineInput()->readCharacter() : std::nullopt;
}

Value readLine(Machine &machine, Args arguments)
{
    const std::optional<std::u16string> line =
        arguments[0].isNil() ? typedLine(machine) : fileArgument(arguments, 0)->readable().readLine();
    return line ? machine.string(*line) : Value::nil();
}

Value readCharacter(Machine &machine, Args arguments)
{
    const std::optional<char16_t> unit =
        arguments[0].isNil() ? typedCharacter(machine) : fileArgument(arguments, 0)->readable().readCharacter();
    return unit ? Value::integer(*unit) : Value::nil();
}

void writeTo(Machine &machine, Args arguments, std::u16string_view text)
{
    if (arguments[1].isNil())
        machine.write(text);
    else
        arguments.native<FileObject>(1, u"streamp")->write(text);
}

Value writeLine(Machine &machine, Args arguments)
{
    writeTo(machine, arguments, std::u16string(arguments.text(0)) + u'\n');
    return arguments[0];
}

Value writeCharacter(Machine &machine, Args arguments)
{
    const char16_t unit = characterOfCode(arguments[0]);
    writeTo(machine, arguments, {&unit, 1});
    return arguments[0];
}

Value findfile(Machine &machine, Args arguments)
{
    const std::optional<std::u16string> path = findFile(arguments.text(0), machine.searchFolders());
    return path ? machine.string(QDir::toNativeSeparators(QString::fromStdU16String(*path)).toStdU16String())
                : Value::nil();
}

constexpr BuiltinRow rows[] = {
    {"open", "(open NAME MODE [ENCODING])",
     "Opens a file to read (\"r\"), write (\"w\") or append (\"a\"); nil if that fails.", open},
    {"close", "(close FILE)", "Closes a file; what was written is on the disk then.", close},
    {"read-line", "(read-line [FILE])", "Gives the next line of a file, or typed, nil at the end.", readLine},
    {"read-char", "(read-char [FILE])", "Gives the code of the next character of a file, or typed, nil at the end.",
     readCharacter},
    {"write-line", "(write-line STRING [FILE])", "Writes a line; gives the string.", writeLine},
    {"write-char", "(write-char CODE [FILE])", "Writes a character; gives its code.", writeCharacter},
    {"findfile", "(findfile NAME)", "Gives the full path of a file that exists, or nil.", findfile},
};

} // namespace

std::span<const BuiltinRow> fileBuiltins()
{
    return rows;
}

} // namespace lisp
