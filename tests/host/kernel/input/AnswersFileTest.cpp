#include "host/kernel/input/AnswersFile.h"

#include <gmock/gmock.h>

#include <QTemporaryDir>

#include <vector>

using Kind = Answer::Kind;

namespace {

std::vector<Answer> answersOf(QStringView text)
{
    AnswersFile file = AnswersFile::fromText(text, QStringLiteral("a.txt"));
    std::vector<Answer> answers;
    while (std::optional<Answer> answer = file.take())
        answers.push_back(*answer);
    return answers;
}

QStringList lines(QStringView text)
{
    QStringList lines;
    for (const Answer &answer : answersOf(text))
        lines.append(answerLine(answer));
    return lines;
}

std::string failureOf(QStringView text)
{
    try {
        answersOf(text);
    } catch (const AnswersError &error) {
        return error.what();
    }
    return "no failure";
}

} // namespace

TEST(AnswersFile, EachWordIsAKindOfAnswer)
{
    const std::vector<Answer> answers = answersOf(u"10,20\n@esc\n@press Yes\n@text a b\n@file /x y.dwg\n@move 1,2\n");
    ASSERT_EQ(answers.size(), 6U);
    const std::vector<std::pair<Kind, QString>> expected = {
        {Kind::Typed, QStringLiteral("10,20")},   {Kind::Escape, QString()},
        {Kind::Press, QStringLiteral("Yes")},     {Kind::Text, QStringLiteral("a b")},
        {Kind::File, QStringLiteral("/x y.dwg")}, {Kind::Move, QStringLiteral("1,2")},
    };
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(answers[i].kind, expected[i].first) << i;
        EXPECT_EQ(answers[i].argument, expected[i].second) << i;
        EXPECT_EQ(answers[i].line, static_cast<int>(i) + 1);
    }
}

TEST(AnswersFile, CommentLinesAreNoAnswersButCountAsLines)
{
    const std::vector<Answer> answers = answersOf(u"; first\n;second\nyes\n");
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0].line, 3);
}

TEST(AnswersFile, AnEmptyLineIsEnterAlone)
{
    EXPECT_EQ(lines(u"\n\na\n"), QStringList({QString(), QString(), QStringLiteral("a")}));
}

TEST(AnswersFile, TheLastLineNeedsNoNewlineAndMakesNoAnswerOfItsOwn)
{
    EXPECT_EQ(lines(u"a\nb"), lines(u"a\nb\n"));
    EXPECT_TRUE(lines(u"").isEmpty());
}

TEST(AnswersFile, WindowsLineEndsAreDropped)
{
    EXPECT_EQ(lines(u"a\r\n@esc\r\n"), QStringList({QStringLiteral("a"), QStringLiteral("@esc")}));
}

TEST(AnswersFile, BlanksOfTypedTextAndOfEditorTextAreKept)
{
    const std::vector<Answer> answers = answersOf(u" a \n@text  b ");
    EXPECT_EQ(answers[0].argument, QStringLiteral(" a "));
    EXPECT_EQ(answers[1].argument, QStringLiteral(" b "));
}

TEST(AnswersFile, EditorTextMayHoldEscapes)
{
    const std::vector<Answer> answers = answersOf(u"@text one\\ntwo\\tthree\\\\n\\x\\");
    EXPECT_EQ(answers[0].argument, QStringLiteral("one\ntwo\tthree\\n\\x\\"));
}

TEST(AnswersFile, AnAnswerIsWrittenBackAsItStandsInTheFile)
{
    EXPECT_EQ(lines(u"@text one\\ntwo\\\\").value(0), QStringLiteral("@text one\\ntwo\\\\"));
}

TEST(AnswersFile, ARelativePointBeginsWithAnAtSignToo)
{
    const std::vector<Answer> answers = answersOf(u"@10,5\n@5<45\n@\n");
    ASSERT_EQ(answers.size(), 3U);
    for (const Answer &answer : answers)
        EXPECT_EQ(answer.kind, Kind::Typed);
    EXPECT_EQ(answers[0].argument, QStringLiteral("@10,5"));
}

TEST(AnswersFile, AnUnknownWordIsAnErrorWithFileAndLine)
{
    EXPECT_EQ(failureOf(u"a\n@pres Yes\n"), "a.txt:2: unknown answer @pres");
}

TEST(AnswersFile, AFileThatIsNotThereIsAnErrorThatNamesIt)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("none.txt"));
    EXPECT_THROW(AnswersFile::read(path), AnswersError);
    EXPECT_THROW(AnswersFile::read(folder.path()), AnswersError);
}

TEST(AnswersFile, AByteOrderMarkIsNotPartOfTheFirstAnswer)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("answers.txt"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\xEF\xBB\xBF"
               "j\xC3\xA4\n");
    file.close();
    AnswersFile answers = AnswersFile::read(path);
    EXPECT_EQ(answers.take().value_or(Answer{}).argument, QStringLiteral("jä"));
}
