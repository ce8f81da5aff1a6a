// The shell's calls, held to what the shell of Windows does: on Windows this file tests the system itself.

#include "platform/Processes.h"
#include "platform/Registry.h"
#include "platform/Shell.h"
#include "tests/platform/conformance/Child.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

// A few documents of kinds that nobody has heard of. Gone at the end.
class WorkFolder
{
public:
    WorkFolder()
    {
        fs::create_directories(m_path / "folder");
        for (const char *name : {"plain.nosuchtype", "noextension", "folder/inner.nosuchtype"})
            std::ofstream(m_path / name) << "text";
    }
    ~WorkFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    const fs::path &path() const { return m_path; }

private:
    const fs::path m_path = fs::temp_directory_path() / ("shellconformance" + std::to_string(GetCurrentProcessId()));
};

const fs::path &workFolder()
{
    static const WorkFolder folder;
    return folder.path();
}

int numberOf(HINSTANCE instance)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(instance));
}

std::u16string text(const fs::path &path)
{
    return path.u16string();
}

int find(const std::u16string &file, const char16_t *folder, char16_t *program)
{
    return numberOf(
        FindExecutableW(windowsText(file.c_str()), folder ? windowsText(folder) : nullptr, windowsText(program)));
}

int execute(const char16_t *verb, const std::u16string &file, const std::u16string &parameters,
            const char16_t *folder = nullptr)
{
    return numberOf(ShellExecuteW(nullptr, verb ? windowsText(verb) : nullptr, windowsText(file.c_str()),
                                  windowsText(parameters.c_str()), folder ? windowsText(folder) : nullptr,
                                  SW_SHOWNORMAL));
}

// What the child wrote into its report, once it has.
std::string contentsOf(const fs::path &report)
{
    for (int attempt = 0; attempt < 1000; ++attempt) {
        if (std::ifstream file(report); file)
            return {std::istreambuf_iterator<char>(file), {}};
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return "no report";
}

} // namespace

struct MissingCase
{
    const char *name;
    const char *file; // in the work folder
    const char16_t *folder;
    int number;
};

void PrintTo(const MissingCase &row, std::ostream *stream)
{
    *stream << row.name;
}

class FindConformance : public testing::TestWithParam<MissingCase>
{
};

TEST_P(FindConformance, GivesAnErrorNumberAndEmptiesTheBuffer)
{
    char16_t program[MAX_PATH] = u"left over";
    EXPECT_EQ(find(text(workFolder() / GetParam().file), GetParam().folder, program), GetParam().number);
    EXPECT_EQ(std::u16string(program), u"");
}

INSTANTIATE_TEST_SUITE_P(
    Files, FindConformance,
    testing::Values(MissingCase{"MissingText", "missing.txt", nullptr, SE_ERR_FNF},
                    MissingCase{"MissingUnknown", "missing.nosuchtype", nullptr, SE_ERR_FNF},
                    MissingCase{"MissingWithoutExtension", "missing", nullptr, SE_ERR_FNF},
                    MissingCase{"MissingFolder", "none/missing.txt", nullptr, SE_ERR_FNF},
                    MissingCase{"MissingFolderUnknown", "none/missing.nosuchtype", nullptr, SE_ERR_FNF},
                    MissingCase{"Unknown", "plain.nosuchtype", nullptr, SE_ERR_NOASSOC},
                    MissingCase{"UnknownInFolder", "folder/inner.nosuchtype", nullptr, SE_ERR_NOASSOC},
                    MissingCase{"UnknownWithFolder", "plain.nosuchtype", u".", SE_ERR_NOASSOC},
                    MissingCase{"WithoutExtension", "noextension", nullptr, SE_ERR_NOASSOC}),
    testing::PrintToStringParamName());

class ExecuteConformance : public testing::TestWithParam<MissingCase>
{
};

TEST_P(ExecuteConformance, GivesAnErrorNumber)
{
    EXPECT_EQ(execute(u"open", text(workFolder() / GetParam().file), u"", GetParam().folder), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Files, ExecuteConformance,
                         testing::Values(MissingCase{"MissingText", "missing.txt", nullptr, SE_ERR_FNF},
                                         MissingCase{"MissingUnknown", "missing.nosuchtype", nullptr, SE_ERR_FNF},
                                         MissingCase{"MissingWithoutExtension", "missing", nullptr, SE_ERR_FNF},
                                         MissingCase{"Unknown", "plain.nosuchtype", nullptr, SE_ERR_NOASSOC},
                                         MissingCase{"UnknownInFolder", "folder/inner.nosuchtype", nullptr,
                                                     SE_ERR_NOASSOC},
                                         MissingCase{"UnknownWithFolder", "plain.nosuchtype", u".", SE_ERR_NOASSOC}),
                         testing::PrintToStringParamName());

struct ParameterCase
{
    const char *name;
    std::string parameters;
    std::string report; // the arguments that the child sees, a line each
};

void PrintTo(const ParameterCase &row, std::ostream *stream)
{
    *stream << row.name;
}

class ParameterConformance : public testing::TestWithParam<ParameterCase>
{
protected:
    ParameterConformance() { fs::remove(m_report); }
    ~ParameterConformance() override { fs::remove(m_report); }

    int execute(const char16_t *verb, const std::string &parameters)
    {
        const std::u16string more(parameters.begin(), parameters.end());
        return ::execute(verb, testchildPath(), u"\"" + text(m_report) + u"\" " + more);
    }

    const fs::path m_report = workFolder() / "report";
};

TEST_P(ParameterConformance, ReachTheProgramAsItsArguments)
{
    EXPECT_GT(execute(u"open", GetParam().parameters), 32);
    EXPECT_EQ(contentsOf(m_report), GetParam().report);
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, ParameterConformance,
    testing::Values(ParameterCase{"None", "", ""}, ParameterCase{"One", "a", "a\n"},
                    ParameterCase{"Two", "a b", "a\nb\n"}, ParameterCase{"Tab", "a\tb", "a\nb\n"},
                    ParameterCase{"MoreBlanks", "  a   b  ", "a\nb\n"},
                    ParameterCase{"Quoted", "\"a b\" c", "a b\nc\n"}, ParameterCase{"QuotedTab", "\"a\tb\"", "a\tb\n"},
                    ParameterCase{"Empty", "\"\"", "\n"}, ParameterCase{"EmptyBetween", "a \"\" b", "a\n\nb\n"},
                    ParameterCase{"QuotedInside", "a\"b c\"d", "ab cd\n"},
                    ParameterCase{"QuotedTwice", "\"a b\"\"c d\" e", "a b\"c d\ne\n"},
                    ParameterCase{"Backslashes", "a\\b \\\\c d\\", "a\\b\n\\\\c\nd\\\n"},
                    ParameterCase{"EscapedQuote", "\\\"a", "\"a\n"},
                    ParameterCase{"EscapedQuoteInside", "\"a\\\"b\"", "a\"b\n"},
                    ParameterCase{"EscapedBackslash", "\"a\\\\\" b", "a\\\nb\n"},
                    ParameterCase{"ThreeBackslashes", "\"a\\\\\\\" b\"", "a\\\" b\n"},
                    ParameterCase{"FourBackslashes", "\"a\\\\\\\\\" b", "a\\\\\nb\n"},
                    ParameterCase{"DoubledQuote", "\"a\"\"b\"", "a\"b\n"},
                    ParameterCase{"NeverClosed", "\"a b", "a b\n"}, ParameterCase{"SingleQuotes", "'a b'", "'a\nb'\n"},
                    ParameterCase{"Comma", "a,,b", "a,,b\n"}, ParameterCase{"Percent", "%1 100%", "%1\n100%\n"},
                    ParameterCase{"Dollar", "$HOME", "$HOME\n"}, ParameterCase{"Semicolon", "a;b|c&d", "a;b|c&d\n"}),
    testing::PrintToStringParamName());

class VerbConformance : public ParameterConformance
{
};

TEST_P(VerbConformance, StartsTheProgram)
{
    const std::string &verb = GetParam().parameters;
    const std::u16string wide(verb.begin(), verb.end());
    EXPECT_GT(execute(wide == u"null" ? nullptr : wide.c_str(), "x"), 32);
    EXPECT_EQ(contentsOf(m_report), "x\n");
}

INSTANTIATE_TEST_SUITE_P(Verbs, VerbConformance,
                         testing::Values(ParameterCase{"Open", "open", ""}, ParameterCase{"Capitals", "OPEN", ""},
                                         ParameterCase{"Mixed", "Open", ""}, ParameterCase{"Null", "null", ""},
                                         ParameterCase{"Empty", "", ""}),
                         testing::PrintToStringParamName());

TEST(UnknownVerbConformance, OfADocumentHasNoProgram)
{
    EXPECT_EQ(execute(u"nosuchverb", text(workFolder() / "plain.nosuchtype"), u""), SE_ERR_NOASSOC);
    EXPECT_EQ(execute(nullptr, text(workFolder() / "plain.nosuchtype"), u""), SE_ERR_NOASSOC);
}

TEST(FindConformanceOfPrograms, AProgramIsItsOwn)
{
    char16_t program[MAX_PATH] = {};
    EXPECT_GT(find(testchildPath(), nullptr, program), 32);
    EXPECT_TRUE(fs::equivalent(fs::path(std::u16string(program)), fs::path(testchildPath())));
}

TEST(FindConformanceOfPrograms, IsLookedForInTheFolder)
{
    const fs::path child(testchildPath());
    const std::u16string folder = text(child.parent_path());
    char16_t program[MAX_PATH] = {};
    EXPECT_GT(find(text(child.filename()), folder.c_str(), program), 32);
    EXPECT_TRUE(fs::equivalent(fs::path(std::u16string(program)), child));
}

TEST(FindConformanceOfPrograms, ADocumentIsLookedForInTheFolder)
{
    const std::u16string folder = text(workFolder());
    char16_t program[MAX_PATH] = {};
    EXPECT_EQ(find(u"plain.nosuchtype", folder.c_str(), program), SE_ERR_NOASSOC);
    EXPECT_EQ(find(u"inner.nosuchtype", folder.c_str(), program), SE_ERR_FNF);
}

// A kind of document of the test's own.
class AssociationConformance : public testing::Test
{
protected:
    AssociationConformance()
    {
        set(extension, program);
        fs::remove(m_document);
        std::ofstream(m_document) << "text";
    }
    ~AssociationConformance() override
    {
        for (const std::u16string &kind : {extension, program})
            RegDeleteTreeW(HKEY_CLASSES_ROOT, windowsText(kind.c_str()));
        fs::remove(m_document);
    }

    // The text of a key.
    static void set(const std::u16string &key, const std::u16string &text, DWORD type = REG_SZ)
    {
        HKEY handle = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, windowsText(key.c_str()), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, &handle, nullptr),
                  ERROR_SUCCESS);
        const auto bytes = reinterpret_cast<const BYTE *>(text.c_str());
        RegSetValueExW(handle, nullptr, 0, type, bytes, static_cast<DWORD>((text.size() + 1) * sizeof(char16_t)));
        RegCloseKey(handle);
    }
    static void setCommand(const std::u16string &verb, const std::u16string &arguments)
    {
        set(program + u"\\shell\\" + verb + u"\\command", u"\"" + testchildPath() + u"\" " + arguments);
    }
    int openDocument(const char16_t *verb) { return execute(verb, text(m_document), u""); }
    // The child takes the document for the file of its report.
    std::string report() const
    {
        for (int attempt = 0; attempt < 1000 && contentsOf(m_document) == "text"; ++attempt)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return contentsOf(m_document);
    }

    // Tests that run at the same time have different ones.
    static inline const std::string id = std::to_string(GetCurrentProcessId());
    static inline const std::u16string program = u"lisphost.conformance" + std::u16string(id.begin(), id.end());
    static inline const std::u16string extension = u"." + program.substr(9);
    const fs::path m_document = workFolder() / (u"my document" + extension);
};

TEST_F(AssociationConformance, TheRegistryNamesTheProgramOfADocument)
{
    setCommand(u"open", u"\"%1\"");
    char16_t found[MAX_PATH] = {};
    EXPECT_GT(find(text(m_document), nullptr, found), 32);
    EXPECT_TRUE(fs::equivalent(fs::path(std::u16string(found)), fs::path(testchildPath())));
}

TEST_F(AssociationConformance, ADocumentIsOpenedWithTheCommandOfTheVerb)
{
    setCommand(u"open", u"\"%1\" opened");
    setCommand(u"edit", u"\"%1\" edited twice");
    EXPECT_GT(openDocument(u"open"), 32);
    EXPECT_EQ(report(), "opened\n");
    std::ofstream(m_document) << "text";
    EXPECT_GT(openDocument(u"edit"), 32);
    EXPECT_EQ(report(), "edited\ntwice\n");
}

TEST_F(AssociationConformance, ACommandThatDoesNotNameTheDocumentDoesNotGetIt)
{
    const fs::path unrelated = workFolder() / "unrelated";
    setCommand(u"open", text(unrelated) + u" alone");
    EXPECT_GT(openDocument(u"open"), 32);
    EXPECT_EQ(contentsOf(unrelated), "alone\n");
    EXPECT_EQ(contentsOf(m_document), "text");
    fs::remove(unrelated);
}

TEST_F(AssociationConformance, TheDocumentsPlaceMayStandInsideAnArgument)
{
    setCommand(u"open", u"\"%1\" \"--file=%1\" 100%");
    EXPECT_GT(openDocument(u"open"), 32);
    EXPECT_EQ(report(), "--file=" + fs::path(m_document).make_preferred().string() + "\n100%\n");
}

TEST_F(AssociationConformance, WithoutAVerbItIsTheOneThatTheKindNames)
{
    setCommand(u"open", u"\"%1\" opened");
    setCommand(u"edit", u"\"%1\" edited");
    set(program + u"\\shell", u"edit");
    EXPECT_GT(openDocument(nullptr), 32);
    EXPECT_EQ(report(), "edited\n");
}

TEST_F(AssociationConformance, AVerbThatTheKindDoesNotHaveStartsNothing)
{
    setCommand(u"open", u"\"%1\" opened");
    EXPECT_EQ(openDocument(u"print"), SE_ERR_NOASSOC);
    EXPECT_EQ(contentsOf(m_document), "text");
}

TEST_F(AssociationConformance, AKindWithoutACommandHasNoProgram)
{
    char16_t found[MAX_PATH] = u"left over";
    EXPECT_EQ(find(text(m_document), nullptr, found), SE_ERR_NOASSOC);
    EXPECT_EQ(openDocument(u"open"), SE_ERR_NOASSOC);
}
