// What is typed at the command line of the window.

#include "tests/host/ui/gui/GuiTest.h"

#include <QAbstractItemView>
#include <QCompleter>

using testing::EndsWith;
using testing::HasSubstr;

class CommandLine : public GuiTest
{
};

TEST_F(CommandLine, EvaluatesLispAndEchoesIt)
{
    EXPECT_EQ(prompt(), "Command: ");
    type(QStringLiteral("(+ 1 2)"));
    EXPECT_EQ(output(), "Command: (+ 1 2)\n3\n");
}

TEST_F(CommandLine, APromptIsShownAsItIsAndNotAsHtml)
{
    later([this] {
        EXPECT_EQ(prompt(), "Length & Width [Add/Subtract] <A>: ");
        EXPECT_GE(promptLabel->sizeHint().width(), promptLabel->fontMetrics().horizontalAdvance(promptLabel->text()));
        QTest::keyClick(input, Qt::Key_Return);
    });
    type(QStringLiteral("(getstring \"\\nLength & Width [Add/Subtract] <A>: \")"));
}

TEST_F(CommandLine, AProgramThatEndsWithPrincAloneShowsNoValue)
{
    type(QStringLiteral("(progn (princ \"done\") (princ))"));
    EXPECT_THAT(output(), EndsWith("(princ))\ndone\n"));
}

TEST_F(CommandLine, AnExpressionMayGoOverSeveralLines)
{
    type(QStringLiteral("(+ 1"));
    EXPECT_EQ(prompt(), "(_> ");
    type(QStringLiteral("2)"));
    EXPECT_EQ(prompt(), "Command: ");
    EXPECT_EQ(output(), "Command: (+ 1\n(_> 2)\n3\n");
}

TEST_F(CommandLine, EscForgetsAnUnfinishedExpression)
{
    type(QStringLiteral("(+ 1"));
    QTest::keyClick(input, Qt::Key_Escape);
    EXPECT_EQ(prompt(), "Command: ");
    type(QStringLiteral("(+ 2 3)"));
    EXPECT_THAT(output(), EndsWith("Command: (+ 2 3)\n5\n"));
}

TEST_F(CommandLine, AnExclamationMarkShowsAVariable)
{
    type(QStringLiteral("(setq size 7)"));
    type(QStringLiteral("!size"));
    EXPECT_THAT(output(), EndsWith("Command: !size\n7\n"));
}

TEST_F(CommandLine, ANameRunsACommandAndEnterRepeatsIt)
{
    type(QStringLiteral("(defun c:greet () (princ \"hello\") (princ))"));
    type(QStringLiteral("greet"));
    type(QString());
    EXPECT_THAT(output(), EndsWith("Command: greet\nhello\nCommand: \nhello\n"));
}

TEST_F(CommandLine, ACommandOfTheHostAsksInFrontOfTheInput)
{
    type(QStringLiteral("(setvar \"LUPREC\" 4)"));
    later([this] {
        EXPECT_EQ(prompt(), "Enter variable name: ");
        type(QStringLiteral("luprec"));
        later([this] {
            EXPECT_EQ(prompt(), "Enter new value for LUPREC <4>: ");
            type(QStringLiteral("6"));
        });
    });
    type(QStringLiteral("setvar"));
    EXPECT_THAT(output(), EndsWith("Command: setvar\nEnter variable name: luprec\n"
                                   "Enter new value for LUPREC <4>: 6\n"));
    type(QStringLiteral("(getvar \"LUPREC\")"));
    EXPECT_THAT(output(), EndsWith("\n6\n"));
}

TEST_F(CommandLine, EscEndsACommandOfTheHost)
{
    later([this] { QTest::keyClick(input, Qt::Key_Escape); });
    type(QStringLiteral("erase"));
    EXPECT_THAT(output(), HasSubstr("Select objects: *Cancel*\n"));
    EXPECT_FALSE(document.commandLine().isActive());
    EXPECT_EQ(prompt(), "Command: ");
}

TEST_F(CommandLine, WhatOneLineChangedIsUndoneInOneStep)
{
    type(QStringLiteral(
        "(progn (entmake '((0 . \"POINT\") (10 1.0 1.0 0.0))) (entmake '((0 . \"POINT\") (10 2.0 2.0 0.0))))"));
    type(QStringLiteral("(entmake '((0 . \"POINT\") (10 3.0 3.0 0.0)))"));
    type(QStringLiteral("u"));
    EXPECT_EQ(entityCount(), "2\n");
    type(QStringLiteral("u"));
    EXPECT_EQ(entityCount(), "0\n");
}

TEST_F(CommandLine, AnUnknownCommandIsSaidToBeUnknown)
{
    type(QStringLiteral("greet"));
    EXPECT_THAT(output(), EndsWith("Unknown command \"GREET\".\n"));
}

TEST_F(CommandLine, AnErrorIsShownWithItsBackTrace)
{
    type(QStringLiteral("(defun f () (/ 1 0))"));
    type(QStringLiteral("(f)"));
    EXPECT_THAT(output(), HasSubstr("error: divide by zero\n  in F"));
    type(QStringLiteral("(+ 1 1)"));
    EXPECT_THAT(output(), EndsWith("2\n"));
}

TEST_F(CommandLine, TheArrowKeysBringBackWhatWasTyped)
{
    type(QStringLiteral("(+ 1 2)"));
    QTest::keyClick(input, Qt::Key_Up);
    EXPECT_EQ(input->text(), QStringLiteral("(+ 1 2)"));
    QTest::keyClick(input, Qt::Key_Down);
    EXPECT_EQ(input->text(), QString());
}

TEST_F(CommandLine, NamesAreCompletedInsideAnExpression)
{
    QTest::keyClicks(input, QStringLiteral("(vl-string-tran"));
    auto *completer = interface.window().findChild<QCompleter *>();
    ASSERT_NE(completer, nullptr);
    ASSERT_TRUE(completer->popup()->isVisible());
    QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    EXPECT_EQ(input->text(), QStringLiteral("(vl-string-translate"));
    EXPECT_FALSE(completer->popup()->isVisible()) << "Enter is the line's again";
}
