#include "host/kernel/HostServices.h"
#include "host/ui/HeadlessInterface.h"
#include "platform/ui/MessageBox.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// The boxes of MessageBoxW, answered as in a run without a person. On Windows they are the system's own: one answers
// file does for both, and the transcript is the same.
class NativeBox : public testing::Test
{
protected:
    NativeBox()
    {
        m_services.warn = [this](const QString &text) { m_warnings += text; };
        m_services.transcript = Transcript(m_folder.filePath(u"transcript"_qs));
        m_interface.mainWindow(); // boxes need the application that it makes
    }

    int show(UINT type, const QString &answers)
    {
        m_services.answers = AnswersFile::fromText(answers, u"answers"_qs);
        return MessageBoxW(nullptr, windowsText(u"two\nlines & ä€𝄞"), windowsText(u"The title"), type);
    }

    QList<QJsonObject> events() const
    {
        QFile file(m_folder.filePath(u"transcript"_qs));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        QList<QJsonObject> result;
        for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine())
            result += QJsonDocument::fromJson(line).object();
        return result;
    }

    QStringList m_warnings;

private:
    QTemporaryDir m_folder;
    HostServices m_services;
    HeadlessInterface m_interface{m_services};
};

struct ButtonsRow
{
    UINT type;
    QStringList buttons;
    QList<int> results;
};

const ButtonsRow buttonsRows[] = {
    {MB_OK, {u"OK"_qs}, {1}},
    {MB_OKCANCEL, {u"OK"_qs, u"Cancel"_qs}, {1, 2}},
    {MB_ABORTRETRYIGNORE, {u"Abort"_qs, u"Retry"_qs, u"Ignore"_qs}, {3, 4, 5}},
    {MB_YESNOCANCEL, {u"Yes"_qs, u"No"_qs, u"Cancel"_qs}, {6, 7, 2}},
    {MB_YESNO, {u"Yes"_qs, u"No"_qs}, {6, 7}},
    {MB_RETRYCANCEL, {u"Retry"_qs, u"Cancel"_qs}, {4, 2}},
    {MB_CANCELTRYCONTINUE, {u"Cancel"_qs, u"Try Again"_qs, u"Continue"_qs}, {2, 10, 11}},
};

} // namespace

TEST_F(NativeBox, EveryButtonOfEveryTypeCanBePressedAndHasItsNumber)
{
    for (const auto &[type, buttons, results] : buttonsRows)
        for (qsizetype i = 0; i < buttons.size(); ++i) {
            EXPECT_EQ(show(type, u"@press "_qs + buttons[i]), results[i]) << type << ' ' << buttons[i].toStdString();
            EXPECT_EQ(events().constLast()[u"buttons"], QJsonArray::fromStringList(buttons)) << type;
        }
    EXPECT_EQ(m_warnings, QStringList());
}

TEST_F(NativeBox, StandsInTheTranscriptWithItsAnswer)
{
    show(MB_YESNO | MB_ICONQUESTION, u"@press No"_qs);
    ASSERT_EQ(events().size(), 1);
    const QJsonObject event = events().constFirst();
    EXPECT_EQ(event.keys(), (QStringList{u"answer"_qs, u"buttons"_qs, u"class"_qs, u"event"_qs, u"height"_qs,
                                         u"icon"_qs, u"text"_qs, u"title"_qs, u"width"_qs}));
    EXPECT_EQ(event[u"event"], u"dialog"_qs);
    EXPECT_EQ(event[u"class"], u"QMessageBox"_qs);
    EXPECT_EQ(event[u"title"], u"The title"_qs);
    EXPECT_EQ(event[u"text"], u"two\nlines & ä€𝄞"_qs);
    EXPECT_EQ(event[u"icon"], u"question"_qs);
    EXPECT_EQ(event[u"answer"], u"@press No"_qs);
    EXPECT_GT(event[u"width"].toInt(), 50);
    EXPECT_GT(event[u"height"].toInt(), 20);
}

TEST_F(NativeBox, HasTheIconOfItsType)
{
    const std::pair<UINT, const char *> rows[] = {{0, "none"},
                                                  {MB_ICONERROR, "critical"},
                                                  {MB_ICONQUESTION, "question"},
                                                  {MB_ICONWARNING, "warning"},
                                                  {MB_ICONINFORMATION, "information"}};
    for (const auto &[icon, name] : rows) {
        show(MB_OK | icon, u"@press OK"_qs);
        EXPECT_EQ(events().constLast()[u"icon"].toString().toStdString(), name);
    }
}

TEST_F(NativeBox, EscIsCancelOrTheOnlyButton)
{
    EXPECT_EQ(show(MB_OK, u"@esc"_qs), 1);
    EXPECT_EQ(show(MB_OKCANCEL, u"@esc"_qs), 2);
    EXPECT_EQ(show(MB_YESNOCANCEL, u"@esc"_qs), 2);
    EXPECT_EQ(show(MB_CANCELTRYCONTINUE, u"@esc"_qs), 2);
}

TEST_F(NativeBox, WithoutACancelButtonDoesNotHeedEscAndTakesTheNextAnswer)
{
    EXPECT_EQ(show(MB_YESNO, u"@esc\n@press Yes"_qs), 6);
    EXPECT_EQ(show(MB_ABORTRETRYIGNORE, u"@esc\n@press Ignore"_qs), 5);
    EXPECT_EQ(events().size(), 4);
    EXPECT_EQ(m_warnings, QStringList());
}

TEST_F(NativeBox, StaysOpenWhenItsHelpButtonIsPressed)
{
    EXPECT_EQ(show(MB_OKCANCEL | MB_HELP, u"@press Help\n@press OK"_qs), 1);
    ASSERT_EQ(events().size(), 2);
    EXPECT_EQ(events().constFirst()[u"buttons"], (QJsonArray{u"OK"_qs, u"Cancel"_qs, u"Help"_qs}));
}

TEST_F(NativeBox, WithoutAnAnswerIsClosedAsByEscAndOneThatDoesNotHeedItGives0)
{
    EXPECT_EQ(show(MB_OK, QString()), 1);
    EXPECT_EQ(show(MB_OKCANCEL, QString()), 2);
    EXPECT_EQ(show(MB_YESNO, QString()), 0);
    const QString warning = u"no answer left for the dialog QMessageBox \"The title\""_qs;
    EXPECT_EQ(m_warnings, (QStringList{warning, warning, warning}));
    EXPECT_TRUE(events().constLast()[u"answer"].isNull());
}

TEST_F(NativeBox, AnAnswerThatDoesNotSuitIsNamedAndTheBoxIsClosed)
{
    EXPECT_EQ(show(MB_OKCANCEL, u"10,20"_qs), 2);
    EXPECT_EQ(show(MB_OKCANCEL, u"@press Apply"_qs), 2);
    EXPECT_EQ(show(MB_OKCANCEL, u"@text x\n@press OK"_qs), 2);
    ASSERT_EQ(m_warnings.size(), 3);
    EXPECT_EQ(m_warnings[0], u"the answer of line 1, 10,20, does not suit the dialog QMessageBox \"The title\""_qs);
}
