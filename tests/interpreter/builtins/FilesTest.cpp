#include "host/interpreter/LineInput.h"
#include "tests/interpreter/core/EvaluateText.h"
#include "tests/interpreter/files/TemporaryFolder.h"

#include <QDir>

#include <deque>

namespace {

class Typed final : public lisp::LineInput
{
public:
    explicit Typed(std::deque<std::u16string> lines) : m_lines(std::move(lines)) {}

private:
    std::optional<std::u16string> fetchLine() override
    {
        if (m_lines.empty())
            return std::nullopt;
        std::u16string line = std::move(m_lines.front());
        m_lines.pop_front();
        return line;
    }

    std::deque<std::u16string> m_lines;
};

} // namespace

// FILE names a file in the test's folder.
class FileBuiltins : public testing::Test
{
protected:
    std::string run(const std::string &source)
    {
        lisp::Machine machine;
        machine.setConsole(&m_console);
        machine.searchFolders().push_back(m_folder.path().toStdU16String());
        return evaluateText(machine, "(setq file \"" + m_folder.path(m_name).toStdString() + "\") " + source);
    }
    std::string fileValue() const { return "#<file \"" + m_folder.path(m_name).toStdString() + "\">"; }
    TemporaryFolder m_folder;
    CollectingConsole m_console;
    QString m_name = QStringLiteral("f.txt");
};

TEST_F(FileBuiltins, writeAndReadLines)
{
    EXPECT_EQ(run("(setq f (open file \"w\")) (list (write-line \"a\" f) (write-char 66 f) (princ 1.5 f) (close f))"),
              "(\"a\" 66 1.5 nil)");
    EXPECT_EQ(
        run("(setq f (open file \"R\")) (list (read-line f) (read-char f) (read-line f) (read-line f) (read-char f))"),
        "(\"a\" 66 \"1.5\" nil nil)");
    EXPECT_EQ(run("(setq f (open file \"A\")) (prin1 \"q\" f) (print 'x f) (close f) (setq f (open file \"r\"))"
                  "(list (read-line f) (read-line f) (read-line f) (read-line f))"),
              "(\"a\" \"B1.5\\\"q\\\"\" \"X \" nil)");
}

TEST_F(FileBuiltins, aMissingFileGivesNil)
{
    EXPECT_EQ(run("(open file \"r\")"), "nil");
    EXPECT_EQ(run("(open (strcat file \"/x\") \"w\")"), "nil");
    EXPECT_EQ(run("(open \"\" \"r\")"), "nil");
}

TEST_F(FileBuiltins, theThirdArgumentNamesTheEncoding)
{
    run("(setq f (open file \"w\")) (princ \"\303\244\" f) (close f)");
    EXPECT_EQ(m_folder.bytes(m_name), "\xE4");
    run("(setq f (open file \"w\" \"UTF8\")) (princ \"\303\244\" f) (close f)");
    EXPECT_EQ(m_folder.bytes(m_name), "\xC3\xA4");
    EXPECT_EQ(run("(read-line (open file \"r\" \"utf8\"))"), "\"\303\244\"");
    run("(setq f (open file \"w\" \"utf8-bom\")) (princ \"\303\244\" f) (close f)");
    EXPECT_EQ(m_folder.bytes(m_name), "\xEF\xBB\xBF\xC3\xA4");
    EXPECT_EQ(run("(read-line (open file \"r\"))"), "\"\303\244\"");
}

TEST_F(FileBuiltins, bothSeparatorsLeadToTheFile)
{
    m_folder.make(m_name, "x");
    EXPECT_EQ(run("(read-line (open (vl-string-translate \"/\" \"\\\\\" file) \"r\"))"), "\"x\"");
}

TEST_F(FileBuiltins, aFileIsAValueOfItsOwnType)
{
    EXPECT_EQ(run("(open file \"w\")"), fileValue());
    EXPECT_EQ(run("(type (open file \"w\"))"), "FILE");
    EXPECT_EQ(run("(setq f (open file \"w\")) (list (eq f f) (equal f f) (eq f (open file \"r\")))"), "(T T nil)");
}

TEST_F(FileBuiltins, aClosedFileTakesOnlyClose)
{
    const std::string closed = "(setq f (open file \"w\")) (close f) ";
    EXPECT_EQ(run(closed + "(close f)"), "nil");
    for (const char *use :
         {"(write-line \"a\" f)", "(princ 1 f)", "(write-char 65 f)", "(read-line f)", "(read-char f)"})
        EXPECT_EQ(run(closed + use), "error: file not open: " + fileValue()) << use;
}

TEST_F(FileBuiltins, aFileIsReadOrWritten)
{
    m_folder.make(m_name, "x");
    EXPECT_EQ(run("(write-line \"a\" (open file \"r\"))"), "error: file not open for writing: " + fileValue());
    EXPECT_EQ(run("(read-line (open file \"a\"))"), "error: file not open for reading: " + fileValue());
    EXPECT_EQ(run("(read-char (open file \"a\"))"), "error: file not open for reading: " + fileValue());
}

TEST_F(FileBuiltins, withoutAFileTheCommandLineIsMeant)
{
    EXPECT_EQ(run("(list (write-line \"line\") (write-char 65))"), "(\"line\" 65)");
    EXPECT_EQ(m_console.text(), "line\nA");
    EXPECT_EQ(run("(list (read-line) (read-char))"), "(nil nil)");
}

TEST_F(FileBuiltins, linesAndCharactersAreReadFromWhatIsTyped)
{
    Typed typed({u"ab", u"c", u"", u"d"});
    lisp::Machine machine;
    machine.setLineInput(&typed);
    EXPECT_EQ(evaluateText(machine, "(list (read-char) (read-line) (read-line nil) (read-char nil) (read-char))"),
              "(97 \"b\" \"c\" 10 100)");
    EXPECT_EQ(evaluateText(machine, "(list (read-line) (read-line) (read-char))"), "(\"\" nil nil)");
}

TEST_F(FileBuiltins, argumentsAreChecked)
{
    EXPECT_EQ(run("(open file \"x\")"), "error: bad argument value: file mode \"x\"");
    EXPECT_EQ(run("(open 1 \"r\")"), "error: bad argument type: stringp 1");
    EXPECT_EQ(run("(open file)"), "error: too few arguments");
    EXPECT_EQ(run("(open file \"r\" 1)"), "error: bad argument type: stringp 1");
    EXPECT_EQ(run("(close nil)"), "error: bad argument type: streamp nil");
    EXPECT_EQ(run("(read-line file)"),
              "error: bad argument type: streamp " + ("\"" + m_folder.path(m_name).toStdString() + "\""));
    EXPECT_EQ(run("(write-line 1)"), "error: bad argument type: stringp 1");
    EXPECT_EQ(run("(write-line \"a\" 5)"), "error: bad argument type: streamp 5");
    EXPECT_EQ(run("(write-char -1)"), "error: bad argument value: character code -1");
    EXPECT_EQ(run("(write-char \"a\")"), "error: bad argument type: fixnump: \"a\"");
}

#ifdef Q_OS_LINUX
TEST_F(FileBuiltins, whatTheDiskRefusesIsAnError)
{
    EXPECT_EQ(run("(setq f (open \"/dev/full\" \"a\")) (write-line \"a\" f) (close f)"),
              "error: cannot write to file: #<file \"/dev/full\">");
}
#endif

TEST_F(FileBuiltins, whatIsNotClosedIsWrittenAtTheEnd)
{
    run("(setq f (open file \"w\")) (princ \"kept\" f)");
    EXPECT_EQ(m_folder.bytes(m_name), "kept");
}

TEST_F(FileBuiltins, findfileSearchesTheFolders)
{
    QString native = QDir::toNativeSeparators(m_folder.make(m_name, ""));
    const std::string path = u"\"%1\""_qs.arg(native.replace(u'\\', u"\\\\"_qs)).toStdString();
    EXPECT_EQ(run("(findfile \"f.txt\")"), path);
    EXPECT_EQ(run("(findfile file)"), path);
    EXPECT_EQ(run("(findfile \"none.txt\")"), "nil");
    EXPECT_EQ(run("(findfile \"./f.txt\")"), "nil");
    EXPECT_EQ(run("(findfile \"\")"), "nil");
    EXPECT_EQ(run("(findfile nil)"), "error: bad argument type: stringp nil");
}
