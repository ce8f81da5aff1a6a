#include "host/commands/Script.h"
#include "tests/host/commands/CommandTest.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

using commands::Script;
using testing::ElementsAre;

std::vector<std::u16string> words(const std::u16string &text)
{
    Script script(text);
    std::vector<std::u16string> found;
    while (const auto word = script.next(Script::Form::Word))
        found.push_back(*word);
    return found;
}

TEST(Script, BlanksAndLineEndsAreEnter)
{
    EXPECT_THAT(words(u"line 0,0 1,1\r\n\nzoom  e"), ElementsAre(u"line", u"0,0", u"1,1", u"", u"zoom", u"", u"e"));
    EXPECT_THAT(words(u""), ElementsAre(u""));
}

TEST(Script, LinesThatBeginWithASemicolonAreComments)
{
    EXPECT_THAT(words(u"; first\n;second\nline a;b\n; last"), ElementsAre(u"line", u"a;b"));
}

TEST(Script, AnExpressionIsOneAnswer)
{
    EXPECT_THAT(words(u"(a \"(\\\"\" ; (\n (b)) x"), ElementsAre(u"(a \"(\\\"\" ; (\n (b))", u"x"));
    EXPECT_THAT(words(u"(never \"closed"), ElementsAre(u"(never \"closed\n"));
}

TEST(Script, QuotesHoldBlanksTogether)
{
    EXPECT_THAT(words(u"open \"a b.dxf\" y\n\"cut"), ElementsAre(u"open", u"a b.dxf", u"y", u"cut"));
}

class ScriptCommand : public CommandTest
{
protected:
    // Runs it as the program that starts it does.
    std::string run(const QByteArray &text)
    {
        write(QStringLiteral("script.scr"), text);
        return evaluate("(command \"_.script\" \"" + m_folder.filePath(QStringLiteral("script")).toStdString() + "\")");
    }
    void write(const QString &name, const QByteArray &text)
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir m_folder;
    using CommandTest::write;
};

TEST_F(ScriptCommand, RunsWhatAFileTypes)
{
    run("; two lines and a text\nline 0,0 10,0\n10,10\n\ntext 1,1 2.5 0 two words; one text\n");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "TEXT"));
    EXPECT_EQ(evaluate("(cdr (assoc 1 (entget (entlast))))"), "\"two words; one text\"");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(ScriptCommand, AnEmptyLineBeginsTheLastCommandAgain)
{
    run("point 1,1\n\n2,2\n");
    EXPECT_THAT(types(), ElementsAre("POINT", "POINT"));
}

TEST_F(ScriptCommand, ExpressionsAreAnswersOrAreEvaluated)
{
    run("(setq r 4\n  c (list 1 2))\ncircle (list 1 2) (* r 2)\n");
    EXPECT_EQ(evaluate("(cdr (assoc 40 (entget (entlast))))"), "8.0");
}

TEST_F(ScriptCommand, AnErrorEndsTheScript)
{
    run("(foo)\npoint 1,1\n");
    EXPECT_THAT(types(), ElementsAre());
    EXPECT_EQ(takePrinted(), "\n; error: no function definition: FOO\n");
}

TEST_F(ScriptCommand, AMissingFileIsNamed)
{
    evaluate("(command \"_.script\" \"no-such-file\")");
    EXPECT_EQ(takePrinted(), "\nCan't open script file \"no-such-file\".\n");
}

TEST_F(ScriptCommand, AScriptThatBeginsAnotherEndsThere)
{
    write(QStringLiteral("other.scr"), "point 2,2\n");
    run("point 1,1\nscript " + m_folder.filePath(QStringLiteral("other")).toUtf8() + "\ncircle 0,0 1\n");
    EXPECT_THAT(types(), ElementsAre("POINT", "POINT"));
}

TEST_F(ScriptCommand, ScriptsThatBeginEachOtherEndSomewhere)
{
    run("script " + m_folder.filePath(QStringLiteral("script")).toUtf8() + "\n");
    EXPECT_EQ(takePrinted(), "\nThe scripts begin each other without end.\n");
    run("point 1,1\n");
    EXPECT_THAT(types(), ElementsAre("POINT"));
}

TEST_F(ScriptCommand, AFileThatIsNoTextRunsNothing)
{
    run(QByteArray("\0\1\2(\"", 5));
    EXPECT_THAT(types(), ElementsAre());
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

} // namespace
