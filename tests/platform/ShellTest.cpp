#include "platform/Shell.h"
#include "platform/CommandLineText.h"
#include "platform/Registry.h"
#include "tests/support/Associations.h"
#include "tests/support/FileReport.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString suffix = QStringLiteral("lhtest");

// As the arguments stand in a desktop entry, in whose text every backslash is doubled.
const QString quotedSuffix = QStringLiteral("lhquoted");
const QString quotedArguments = uR"("a b" "" "\\"\\$1\\" \\` \\\\ 100%%" 'c d' C:\\\\e \sf %k %f)"_qs;

class Shell : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const QString child = QStringLiteral(TEST_CHILD);
        static const DesktopSettings settings(
            {{QStringLiteral("text/x-lisphost-test"), suffix, child + u" %f"_qs},
             {QStringLiteral("text/x-lisphost-test-quoted"), quotedSuffix, child + u" %f "_qs + quotedArguments}});
    }

    int execute(const QString &file, const QString &parameters = QString(), const char16_t *verb = u"open",
                const QString &folder = QString())
    {
        const HINSTANCE instance = ShellExecuteW(nullptr, verb, text(file), text(parameters),
                                                 folder.isEmpty() ? nullptr : text(folder), SW_SHOWNORMAL);
        return static_cast<int>(reinterpret_cast<std::intptr_t>(instance));
    }
    int find(const QString &file, const QString &folder = QString())
    {
        char16_t program[MAX_PATH] = u"left over";
        const HINSTANCE instance = FindExecutableW(text(file), folder.isEmpty() ? nullptr : text(folder), program);
        m_program = QStringView(program).toString();
        return static_cast<int>(reinterpret_cast<std::intptr_t>(instance));
    }
    QString write(const QString &name, const QByteArray &content = {})
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return file.fileName();
    }
    // As every file is on a disk of Windows.
    QString writeExecutable(const QString &name, const QByteArray &content)
    {
        const QString file = write(name, content);
        EXPECT_TRUE(QFile::setPermissions(file, QFile::permissions(file) | QFile::ExeOwner));
        return file;
    }
    static LPCWSTR text(const QString &characters) { return reinterpret_cast<LPCWSTR>(characters.utf16()); }

    QTemporaryDir m_folder;
    const QString m_child = QStringLiteral(TEST_CHILD);
    QString m_program;
};

} // namespace

TEST_F(Shell, StartsAProgramWithItsParameters)
{
    const FileReport report;
    EXPECT_EQ(execute(m_child, report.path() + QStringLiteral(" \"a b\" \"\" c\\d")), 42);
    EXPECT_EQ(report.lines(), QStringList({QStringLiteral("a b"), QString(), QStringLiteral("c\\d")}));
}

TEST_F(Shell, OpensADocumentWithItsProgram)
{
    const QString document = write(QStringLiteral("a b.") + suffix);
    const FileReport report(document);
    EXPECT_EQ(execute(document), 42); // the child takes the document for the file of its report
    EXPECT_TRUE(report.isReplaced());
}

TEST_F(Shell, TheCommandOfADesktopEntryIsTakenApartAsShellsTakeIt)
{
    const QString document = write(u"doc one."_qs + quotedSuffix);
    const FileReport report(document);
    EXPECT_EQ(execute(document), 42);
    EXPECT_TRUE(report.isReplaced());
    EXPECT_EQ(report.lines(),
              QStringList({u"a b"_qs, QString(), u"\"$1\" ` \\ 100%"_qs, u"c d"_qs, u"C:\\e"_qs, u"f"_qs, document}));
}

// To read what comes through it would wait for more, and take it away.
TEST_F(Shell, APipeIsNotRead)
{
    const QString pipe = m_folder.filePath(u"pipe."_qs + suffix);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const int ends = open(QFile::encodeName(pipe).constData(), O_RDWR | O_NONBLOCK);
    while (::write(ends, "text", 4) > 0)
        continue;
    int before = 0, after = 0;
    EXPECT_EQ(ioctl(ends, FIONREAD, &before), 0);
    EXPECT_EQ(find(pipe), 42);
    EXPECT_EQ(m_program, m_child);
    EXPECT_EQ(ioctl(ends, FIONREAD, &after), 0);
    EXPECT_EQ(after, before);
    close(ends);
}

TEST_F(Shell, OpensADocumentThatMayBeExecuted)
{
    const QString document = writeExecutable(QStringLiteral("a.") + suffix, "text");
    const FileReport report(document);
    EXPECT_EQ(find(document), 42);
    EXPECT_EQ(m_program, m_child);
    EXPECT_EQ(execute(document), 42);
    EXPECT_TRUE(report.isReplaced());
    EXPECT_EQ(execute(writeExecutable(QStringLiteral("a.unheardof"), "text")), SE_ERR_NOASSOC);
    EXPECT_EQ(execute(writeExecutable(QStringLiteral("empty.unheardof"), "")), SE_ERR_NOASSOC);
}

TEST_F(Shell, AProgramIsKnownByItsBeginning)
{
    for (const QByteArray &content : {QByteArray("#!/bin/sh\n"), QByteArray("\177ELF\2"), QByteArray("MZ")}) {
        const QString program = writeExecutable(QStringLiteral("program.") + suffix, content);
        EXPECT_EQ(find(program), 42) << content.toStdString();
        EXPECT_EQ(m_program, program);
        QFile::remove(program);
        const QString document = write(QStringLiteral("program.") + suffix, content); // without the permission
        EXPECT_EQ(find(document), 42) << content.toStdString();
        EXPECT_EQ(m_program, m_child);
    }
}

TEST_F(Shell, TheUrlOfAFileIsThatFile)
{
    const QString document = write(QStringLiteral("a b.") + suffix);
    const QString place = m_folder.path();
    for (const QString &url : {u"file://"_qs + place + u"/a%20b."_qs + suffix,
                               u"file://localhost"_qs + place + u"/a%20b."_qs + suffix, u"file:"_qs + document}) {
        EXPECT_EQ(find(url), 42) << url.toStdString();
        EXPECT_EQ(m_program, m_child);
    }
    const FileReport report(document);
    EXPECT_EQ(execute(u"file://"_qs + place + u"/a%20b."_qs + suffix), 42);
    EXPECT_TRUE(report.isReplaced());
    EXPECT_EQ(execute(u"file://"_qs + place + u"/none"_qs), SE_ERR_FNF);
    EXPECT_EQ(execute(u"file://"_qs + place + u"/none/none"_qs), SE_ERR_PNF);
    EXPECT_EQ(find(u"file://"_qs + place + u"/none"_qs), SE_ERR_FNF);
}

TEST_F(Shell, FindsAProgramOnThePath)
{
    EXPECT_EQ(execute(QStringLiteral("true")), 42);
    EXPECT_EQ(execute(QStringLiteral("true"), QString(), nullptr), 42);
    EXPECT_EQ(execute(QStringLiteral("true"), QString(), u"OPEN"), 42);
    EXPECT_EQ(find(QStringLiteral("true")), 42);
    EXPECT_TRUE(m_program.endsWith(QStringLiteral("bin/true"))) << m_program.toStdString();
    EXPECT_EQ(find(QStringLiteral("no-such-program")), SE_ERR_FNF);
}

TEST_F(Shell, AnErrorIsANumberBelow32)
{
    EXPECT_EQ(execute(m_folder.filePath(QStringLiteral("none"))), SE_ERR_FNF);
    EXPECT_EQ(execute(m_folder.filePath(QStringLiteral("none/none"))), SE_ERR_PNF);
    EXPECT_EQ(execute(QStringLiteral("no-such-program")), SE_ERR_FNF);
    EXPECT_EQ(execute(QString()), SE_ERR_FNF);
    EXPECT_EQ(execute(QString(32767, u'a')), SE_ERR_FNF);
    EXPECT_EQ(execute(write(QStringLiteral("a.unheardof"))), SE_ERR_NOASSOC);
    EXPECT_EQ(execute(QStringLiteral("true"), QString(), u"no such verb"), SE_ERR_NOASSOC);
    EXPECT_EQ(execute(QStringLiteral("no-such-scheme:x")), SE_ERR_NOASSOC);
}

TEST_F(Shell, ARelativeDocumentIsLookedForInTheFolder)
{
    write(QStringLiteral("rel.unheardof"));
    EXPECT_EQ(execute(QStringLiteral("rel.unheardof"), QString(), u"open", m_folder.path()), SE_ERR_NOASSOC);
    EXPECT_EQ(execute(QStringLiteral("rel.unheardof")), SE_ERR_FNF);
}

TEST_F(Shell, ANameMayBeginWithAByteOrderMark)
{
    write(u"\uFEFFrel.unheardof"_qs);
    EXPECT_EQ(execute(u"\uFEFFrel.unheardof"_qs, QString(), u"open", m_folder.path()), SE_ERR_NOASSOC);
    EXPECT_EQ(execute(u"rel.unheardof"_qs, QString(), u"open", m_folder.path()), SE_ERR_FNF);
}

TEST_F(Shell, TheObserverIsToldOfEachCall)
{
    std::vector<ShellLaunch> launches;
    setShellObserver([&](const ShellLaunch &launch) { launches.push_back(launch); });
    execute(QStringLiteral("no-such-program"), QStringLiteral("x"), nullptr);
    setShellObserver({});
    execute(QStringLiteral("no-such-program"));
    ASSERT_EQ(launches.size(), 1U);
    EXPECT_EQ(launches[0].verb, QString());
    EXPECT_EQ(launches[0].file, QStringLiteral("no-such-program"));
    EXPECT_EQ(launches[0].parameters, QStringLiteral("x"));
    EXPECT_EQ(launches[0].result, SE_ERR_FNF);
}

TEST_F(Shell, FindExecutableGivesTheAssociatedProgram)
{
    EXPECT_EQ(find(write(QStringLiteral("a.") + suffix)), 42);
    EXPECT_EQ(m_program, m_child);
    EXPECT_EQ(find(QStringLiteral("a.") + suffix, m_folder.path()), 42);
}

TEST_F(Shell, FindExecutableOfAProgramIsTheProgram)
{
    EXPECT_EQ(find(m_child), 42);
    EXPECT_EQ(m_program, m_child);
}

// Half a path would be another file.
TEST_F(Shell, FindExecutableCutsNoPath)
{
    const qsizetype room = 259 - (m_folder.path().size() + 1);
    const QString folder = QString(200, u'a') + u'/';
    for (const bool fits : {true, false}) {
        const QString name = folder + QString(room - folder.size() + (fits ? 0 : 1), u'b');
        const QString program = writeExecutable(name, "#!/bin/sh\n");
        EXPECT_EQ(find(program), fits ? 42 : SE_ERR_OOM);
        EXPECT_EQ(m_program, fits ? program : QString());
    }
}

TEST_F(Shell, FindExecutableWithoutAnAnswerEmptiesTheBuffer)
{
    EXPECT_EQ(find(m_folder.filePath(QStringLiteral("none.txt"))), SE_ERR_FNF);
    EXPECT_EQ(m_program, QString());
    EXPECT_EQ(find(QString()), SE_ERR_FNF);
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), SE_ERR_NOASSOC);
    EXPECT_EQ(m_program, QString());
}

// A kind of file of the test's own in the user's part of the registry.
class RegisteredKind : public Shell
{
protected:
    ~RegisteredKind() override { RegDeleteTreeW(HKEY_CURRENT_USER, text(classes)); }

    static void set(const QString &key, const QString &value, DWORD type = REG_SZ, HKEY root = HKEY_CURRENT_USER)
    {
        HKEY handle = nullptr;
        ASSERT_EQ(RegCreateKeyExW(root, text(classes + u'\\' + key), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, &handle, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExW(handle, nullptr, 0, type, reinterpret_cast<const BYTE *>(value.utf16()),
                       static_cast<DWORD>(value.size()) * 2); // without a terminator, as some programs write them
        RegCloseKey(handle);
    }
    static void setCommand(const QString &kind, const QString &command, DWORD type = REG_SZ)
    {
        set(kind + QStringLiteral("\\shell\\open\\command"), command, type);
    }

    static inline const QString classes = QStringLiteral("Software\\Classes");
};

TEST_F(RegisteredKind, ComesBeforeTheDesktopsSettings)
{
    set(u'.' + suffix, QStringLiteral("test.kind"));
    setCommand(QStringLiteral("test.kind"), QStringLiteral("/bin/true \"%1\""));
    EXPECT_EQ(find(write(QStringLiteral("a.") + suffix)), 42);
    EXPECT_EQ(m_program, QStringLiteral("/bin/true"));
}

// Programs keep there what they remember of a kind.
TEST_F(RegisteredKind, OfTheMachineIsNotHiddenByAKeyOfTheUsersThatLacksTheValue)
{
    const QString shell = QStringLiteral("machine.kind\\shell");
    set(QStringLiteral(".unheardof"), QStringLiteral("machine.kind"), REG_SZ, HKEY_LOCAL_MACHINE);
    set(shell + u"\\open\\command"_qs, QStringLiteral("/bin/true %1"), REG_SZ, HKEY_LOCAL_MACHINE);
    set(QStringLiteral(".unheardof\\OpenWithList"), QStringLiteral("anything"));
    set(shell + u"\\open\\command\\below"_qs, QStringLiteral("anything"));
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), 42);
    EXPECT_EQ(m_program, QStringLiteral("/bin/true"));
    set(shell + u"\\open\\command"_qs, QStringLiteral("/bin/false %1"));
    EXPECT_EQ(find(m_folder.filePath(QStringLiteral("a.unheardof"))), 42);
    EXPECT_EQ(m_program, QStringLiteral("/bin/false"));
    for (const QString &kind : {QStringLiteral("machine.kind"), QStringLiteral(".unheardof")})
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, text(classes + u'\\' + kind));
}

TEST_F(RegisteredKind, WhoseProgramIsGoneLeavesTheDesktopsSettings)
{
    setCommand(u'.' + suffix, QStringLiteral("/nonexistent/program \"%1\""));
    EXPECT_EQ(find(write(QStringLiteral("a.") + suffix)), 42);
    EXPECT_EQ(m_program, m_child);
}

TEST_F(RegisteredKind, MayHaveItsVerbsWithTheSuffixItself)
{
    setCommand(QStringLiteral(".unheardof"), QStringLiteral("true %1"));
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), 42);
    EXPECT_TRUE(m_program.endsWith(QStringLiteral("/true"))) << m_program.toStdString();
}

TEST_F(RegisteredKind, MayNameEnvironmentVariables)
{
    qputenv("TEST_OF_SHELL", "/bin");
    setCommand(QStringLiteral(".unheardof"), QStringLiteral("%TEST_OF_SHELL%/true %1"), REG_EXPAND_SZ);
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), 42);
    setCommand(QStringLiteral(".unheardof"), QStringLiteral("%NO_SUCH_VARIABLE%/true %1"), REG_EXPAND_SZ);
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), SE_ERR_NOASSOC);
    setCommand(QStringLiteral(".unheardof"), QStringLiteral("%TEST_OF_SHELL%/true %1"), REG_SZ);
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), SE_ERR_NOASSOC);
}

TEST_F(RegisteredKind, OfASchemeOpensUrls)
{
    const FileReport report;
    setCommand(QStringLiteral("lhtest"), m_child + u' ' + report.path() + QStringLiteral(" \"%1\""));
    EXPECT_EQ(execute(QStringLiteral("lhtest:some%20where?a=b")), 42);
    EXPECT_EQ(report.lines(), QStringList(QStringLiteral("lhtest:some%20where?a=b")));
}

TEST_F(RegisteredKind, OfFoldersOpensThem)
{
    const FileReport report;
    setCommand(QStringLiteral("Directory"), m_child + u' ' + report.path() + QStringLiteral(" \"%1\""));
    EXPECT_EQ(execute(m_folder.path()), 42);
    EXPECT_EQ(report.lines(), QStringList(m_folder.path()));
}

TEST_F(RegisteredKind, ThatIsNoTextIsNone)
{
    setCommand(QStringLiteral(".unheardof"), QStringLiteral("true %1"), REG_BINARY);
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), SE_ERR_NOASSOC);
    setCommand(QStringLiteral(".unheardof"), QString());
    EXPECT_EQ(find(write(QStringLiteral("a.unheardof"))), SE_ERR_NOASSOC);
}

TEST(CommandLineText, IsSplitAsWindowsProgramsSplitIt)
{
    const std::pair<QString, QStringList> cases[] = {
        {QStringLiteral("a b\tc"), {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}},
        {QStringLiteral("  a  "), {QStringLiteral("a")}},
        {QString(), {}},
        {QStringLiteral("\"a b\" c"), {QStringLiteral("a b"), QStringLiteral("c")}},
        {QStringLiteral("\"\""), {QString()}},
        {QStringLiteral("a\"b c\"d"), {QStringLiteral("ab cd")}},
        {QStringLiteral("a\\b \\\\c\\"), {QStringLiteral("a\\b"), QStringLiteral("\\\\c\\")}},
        {QStringLiteral("\\\"a"), {QStringLiteral("\"a")}},
        {QStringLiteral("\"a\\\\\" b"), {QStringLiteral("a\\"), QStringLiteral("b")}},
        {QStringLiteral("\"a\\\"b\""), {QStringLiteral("a\"b")}},
        {QStringLiteral("\"a\"\"b\""), {QStringLiteral("a\"b")}},
        {QStringLiteral("\"a b"), {QStringLiteral("a b")}},
    };
    for (const auto &[line, arguments] : cases)
        EXPECT_EQ(argumentsOf(line), arguments) << line.toStdString();
}
