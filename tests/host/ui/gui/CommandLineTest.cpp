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
}
