#include "functions/ui.h"
#include "tests/functions/ui/UiTest.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

class EditRtext : public UiTest
{
protected:
    // A program that writes its arguments, each in brackets, into a file beside it.
    QString writer()
    {
        QFile script(m_folder.filePath(u"editor"_qs));
        EXPECT_TRUE(script.open(QFile::WriteOnly));
        script.write("#!/bin/sh\nfor argument in \"$@\"; do printf '[%s]' \"$argument\"; done > \"$0.out\"\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return script.fileName();
    }

    QByteArray written()
    {
        QFile output(m_folder.filePath(u"editor.out"_qs));
        return output.open(QFile::ReadOnly) ? output.readAll() : QByteArray("not started");
    }

    QTemporaryDir m_folder;
};

const Operations started = {"getArgs", "retInt 32", "releaseRb 2"};

} // namespace

TEST_F(EditRtext, StartsTheProgramWithThreeArgumentsOfWhichOneIsEmptyAndReturns32)
{
    EXPECT_EQ(call(editRtext, {text(writer()), text(u"a.txt,,b.txt")}), started);
    EXPECT_EQ(written(), "[a.txt][][b.txt]");
}

TEST_F(EditRtext, DoesNotTrimItsArguments)
{
    EXPECT_EQ(call(editRtext, {text(writer()), text(u" a b , c")}), started);
    EXPECT_EQ(written(), "[ a b ][ c]");
}

TEST_F(EditRtext, WithoutArgumentTextPassesOneEmptyArgument)
{
    EXPECT_EQ(call(editRtext, {text(writer())}), (Operations{"getArgs", "retInt 32", "releaseRb null"}));
    EXPECT_EQ(written(), "[]");
    EXPECT_EQ(call(editRtext, {text(writer()), shortInteger(5)}), started) << "and no message for a wrong one";
    EXPECT_EQ(written(), "[]");
}

TEST_F(EditRtext, Returns32ForAProgramThatCannotBeStarted)
{
    EXPECT_EQ(call(editRtext, {text(m_folder.filePath(u"missing"_qs)), text(u"a")}), started);
    EXPECT_EQ(written(), "not started");
}

TEST_F(EditRtext, LeavesTheProcessToTheMainWindow)
{
    call(editRtext, {text(writer()), text(u"a")});
    EXPECT_EQ(mainWindow().findChildren<QProcess *>().size(), 1);
}

TEST_F(EditRtext, Of5PrintsAMessageAndReturnsNil)
{
    EXPECT_EQ(call(editRtext, {shortInteger(5)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1", "retNil"}));
    EXPECT_EQ(call(editRtext, {}), (Operations{"getArgs", tooFewArguments, "retNil", "retNil"}));
}
