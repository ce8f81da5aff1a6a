#include "tests/interpreter/core/EvaluateText.h"
#include "tests/interpreter/files/TemporaryFolder.h"

TEST(EnvironmentBuiltins, getenvAndSetenv)
{
    qputenv("LispTestName", "value");
    expectAll({
        {"(getenv \"LispTestName\")", "\"value\""},
        {"(getenv \"LispTestMissing\")", "nil"},
        {"(getenv \"\")", "nil"},
        {"(setenv \"LispTestOther\" \"M\303\244rz\")", "\"M\303\244rz\""},
        {"(getenv \"LispTestOther\")", "\"M\303\244rz\""},
        {"(getenv 'path)", "error: bad argument type: stringp PATH"},
        {"(setenv \"LispTestOther\" 1)", "error: bad argument type: stringp 1"},
        {"(setenv \"a\")", "error: too few arguments"},
        {"(setenv \"a=b\" \"c\")", "error: cannot set the environment variable \"a=b\""},
    });
}

TEST(EnvironmentBuiltins, namesDifferByCaseWhereTheSystemSaysSo)
{
    qputenv("LispTestName", "value");
#ifdef _WIN32
    EXPECT_EQ(evaluateText("(getenv \"LISPTESTNAME\")"), "\"value\"");
#else
    EXPECT_EQ(evaluateText("(getenv \"LISPTESTNAME\")"), "nil");
#endif
}

class LoadBuiltin : public testing::Test
{
protected:
    std::string load(const std::string &arguments)
    {
        lisp::Machine machine;
        machine.searchFolders().push_back(m_folder.path().toStdU16String());
        return evaluateText(machine, "(load " + arguments + ")");
    }
    TemporaryFolder m_folder;
};

TEST_F(LoadBuiltin, evaluatesAFileOfTheSearchPath)
{
    m_folder.make(QStringLiteral("program.lsp"), "(setq a 1)\n(list a \"\xE4\")");
    EXPECT_EQ(load("\"program.lsp\""), "(1 \"\303\244\")");
    EXPECT_EQ(load("\"program\""), "(1 \"\303\244\")");
    EXPECT_EQ(load("\"" + m_folder.path().toStdString() + "/program\""), "(1 \"\303\244\")");
    m_folder.make(QStringLiteral("empty.lsp"), "; nothing");
    EXPECT_EQ(load("\"empty\""), "nil");
}

TEST_F(LoadBuiltin, givesTheFallbackOrFailsWithoutAFile)
{
    EXPECT_EQ(load("\"missing\""), "error: LOAD failed: \"missing\"");
    EXPECT_EQ(load("\"missing\" \"fallback\""), "\"fallback\"");
    EXPECT_EQ(load("\"missing\" nil"), "nil");
    EXPECT_EQ(load("\"" + m_folder.path().toStdString() + "\" 1"), "1");
    m_folder.make(QStringLiteral("binary.lsp"), QByteArray("\0\1", 2));
    EXPECT_EQ(load("\"binary\" 1"), "1");
    EXPECT_EQ(load("5"), "error: bad argument type: stringp 5");
}

TEST_F(LoadBuiltin, passesOnTheErrorsOfTheFile)
{
    m_folder.make(QStringLiteral("broken.lsp"), "(setq a");
    EXPECT_EQ(load("\"broken\" 1"), "error: malformed list on input");
    m_folder.make(QStringLiteral("failing.lsp"), "(/ 1 0)");
    EXPECT_EQ(load("\"failing\" 1"), "error: divide by zero");
}
