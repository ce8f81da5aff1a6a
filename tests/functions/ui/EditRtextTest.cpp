#include "functions/ui.h"
#include "tests/functions/ui/UiTest.h"
#include "tests/support/FileReport.h"

#include <QProcess>

namespace {

class EditRtext : public UiTest
{
protected:
    EditRtext() { qputenv("TESTCHILD_FILE", m_report.path().toUtf8()); }
    ~EditRtext() override { qunsetenv("TESTCHILD_FILE"); }

    Argument program() { return text(QStringLiteral(TEST_CHILD)); }

    // What the program that has ended was given; one that has not been started was given "not started".
    QStringList written()
    {
        const QStringList lines = QFile::exists(m_report.path()) ? m_report.lines() : QStringList{u"not started"_qs};
        QFile::remove(m_report.path());
        return lines;
    }

    FileReport m_report;
};

const Operations started = {"getArgs", "retInt 32", "releaseRb 2"};

} // namespace

TEST_F(EditRtext, StartsTheProgramWithThreeArgumentsOfWhichOneIsEmptyAndReturns32)
{
    EXPECT_EQ(call(editRtext, {program(), text(u"a.txt,,b.txt")}), started);
    EXPECT_EQ(written(), (QStringList{u"a.txt"_qs, QString(), u"b.txt"_qs}));
}

TEST_F(EditRtext, DoesNotTrimItsArguments)
{
    EXPECT_EQ(call(editRtext, {program(), text(u" a b , c")}), started);
    EXPECT_EQ(written(), (QStringList{u" a b "_qs, u" c"_qs}));
}

TEST_F(EditRtext, WithoutArgumentTextPassesOneEmptyArgument)
{
    EXPECT_EQ(call(editRtext, {program()}), (Operations{"getArgs", "retInt 32", "releaseRb null"}));
    EXPECT_EQ(written(), QStringList{QString()});
    EXPECT_EQ(call(editRtext, {program(), shortInteger(5)}), started) << "and no message for a wrong one";
    EXPECT_EQ(written(), QStringList{QString()});
}

TEST_F(EditRtext, Returns32ForAProgramThatCannotBeStarted)
{
    EXPECT_EQ(call(editRtext, {text(m_report.path() + u"-missing"_qs), text(u"a")}), started);
    EXPECT_EQ(written(), QStringList{u"not started"_qs});
}

TEST_F(EditRtext, LeavesTheProcessToTheMainWindow)
{
    call(editRtext, {program(), text(u"a")});
    EXPECT_EQ(mainWindow().findChildren<QProcess *>().size(), 1);
}

TEST_F(EditRtext, ComesBackAfterHalfAMinuteThoughTheProgramStillRuns)
{
    EXPECT_EQ(call(editRtext, {program(), text(u"wait:600000")}), started);
    auto *process = mainWindow().findChild<QProcess *>();
    ASSERT_NE(process, nullptr);
    EXPECT_EQ(process->state(), QProcess::Running);
    process->kill();
    EXPECT_TRUE(process->waitForFinished());
}

TEST_F(EditRtext, Of5PrintsAMessageAndReturnsNil)
{
    EXPECT_EQ(call(editRtext, {shortInteger(5)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1", "retNil"}));
    EXPECT_EQ(call(editRtext, {}), (Operations{"getArgs", tooFewArguments, "retNil", "retNil"}));
}
