#include "host/kernel/HostServices.h"

#include <gmock/gmock.h>

#include <QTemporaryDir>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ScriptedInputTest : public testing::Test
{
protected:
    ScriptedInputTest()
    {
        m_services.print = [this](std::u16string_view text) { m_printed += text; };
        m_services.warn = [this](const QString &text) { m_warnings.push_back(text.toStdString()); };
    }

    InputReply ask(QStringView answers, InputRequest::Kind kind, std::u16string prompt = u"Size: ")
    {
        m_services.answers = AnswersFile::fromText(answers, QStringLiteral("a.txt"));
        return m_services.input->request({kind, std::move(prompt)});
    }

    HostServices m_services;
    std::u16string m_printed;
    std::vector<std::string> m_warnings;
};

} // namespace

TEST_F(ScriptedInputTest, PrintsThePromptAndEchoesTheAnswerWithANewline)
{
    const InputReply reply = ask(u"12\n", InputRequest::Kind::Integer);
    EXPECT_EQ(reply.kind, InputReply::Kind::Text);
    EXPECT_EQ(reply.text, u"12");
    EXPECT_EQ(m_printed, u"Size: 12\n");
    EXPECT_THAT(m_warnings, IsEmpty());
}

TEST_F(ScriptedInputTest, EnterAloneIsAnEmptyText)
{
    const InputReply reply = ask(u"\n", InputRequest::Kind::Integer);
    EXPECT_EQ(reply.kind, InputReply::Kind::Text);
    EXPECT_EQ(reply.text, u"");
    EXPECT_EQ(m_printed, u"Size: \n");
}

TEST_F(ScriptedInputTest, EscCancelsWithoutAWarning)
{
    EXPECT_EQ(ask(u"@esc\n", InputRequest::Kind::Point).kind, InputReply::Kind::Cancelled);
    EXPECT_THAT(m_warnings, IsEmpty());
}

TEST_F(ScriptedInputTest, ARequestWithoutAnAnswerIsCancelledAndNamed)
{
    EXPECT_EQ(ask(u"", InputRequest::Kind::Point, u"\nFirst point: ").kind, InputReply::Kind::Cancelled);
    EXPECT_EQ(m_printed, u"\nFirst point: ");
    EXPECT_THAT(m_warnings, ElementsAre("no answer left for the point request \"First point:\""));
}

TEST_F(ScriptedInputTest, AnAnswerToADialogDoesNotFitAPrompt)
{
    EXPECT_EQ(ask(u"; to a prompt\n@press Yes\n", InputRequest::Kind::String).kind, InputReply::Kind::Cancelled);
    EXPECT_THAT(m_warnings, ElementsAre("the answer of line 2, @press Yes, does not fit the string request \"Size:\""));
    EXPECT_EQ(m_services.answers.peek(), nullptr); // one answer for each request, also for this one
}

TEST_F(ScriptedInputTest, TheCursorMovesInADragOnly)
{
    const InputReply moved = ask(u"@move 1,2\n", InputRequest::Kind::Drag);
    EXPECT_EQ(moved.kind, InputReply::Kind::Moved);
    EXPECT_EQ(moved.text, u"1,2");
    EXPECT_EQ(ask(u"@move 1,2\n", InputRequest::Kind::Point).kind, InputReply::Kind::Cancelled);
}

TEST_F(ScriptedInputTest, TheTranscriptHoldsRequestAndAnswer)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("transcript.json"));
    m_services.transcript = Transcript(path);
    ask(u"ja \"1\"\n", InputRequest::Kind::Keyword, u"\nAll? ");
    ask(u"", InputRequest::Kind::Real);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(),
              R"({"event":"request","kind":"keyword","prompt":"\nAll? ","answer":"ja \"1\""})"
              "\n"
              R"({"event":"request","kind":"real","prompt":"Size: ","answer":null})"
              "\n");
}

TEST(Transcript, AFileThatCannotBeOpenedIsAnError)
{
    EXPECT_THROW(Transcript(QStringLiteral("/nonexistent/transcript.json")), TranscriptError);
}
