// A program that runs in the window: it asks, is stopped, shows how far it is.

#include "tests/host/ui/gui/GuiTest.h"

#include <QElapsedTimer>
#include <QProgressBar>
#include <QToolButton>

using testing::EndsWith;
using testing::HasSubstr;

class RunningProgram : public GuiTest
{
};

TEST_F(RunningProgram, AsksInFrontOfTheInputAndTakesWhatIsTyped)
{
    later([this] {
        EXPECT_EQ(prompt(), "Name: ");
        type(QStringLiteral("a b"));
    });
    type(QStringLiteral("(strcat \"<\" (getstring T \"\\nName: \") \">\")"));
    EXPECT_THAT(output(), EndsWith("\nName: a b\n\"<a b>\"\n"));
    EXPECT_EQ(prompt(), "Command: ");
}

TEST_F(RunningProgram, EscCancelsARequest)
{
    later([this] { QTest::keyClick(input, Qt::Key_Escape); });
    type(QStringLiteral("(getpoint \"\\nPoint: \")"));
    EXPECT_THAT(output(), HasSubstr("Point: *Cancel*\nerror: Function cancelled\n"));
}

TEST_F(RunningProgram, ACommandThatItLeavesRunningAsksThePersonOn)
{
    later([this] {
        EXPECT_EQ(prompt(), "Specify next point or [Undo]: ");
        type(QStringLiteral("10,0"));
        later([this] { type(QString()); });
    });
    type(QStringLiteral("(command \"_.line\" '(0 0))"));
    EXPECT_THAT(output(), HasSubstr("\nnil\nSpecify next point or [Undo]: 10,0\n"));
    EXPECT_FALSE(interface.isRunning());
    EXPECT_FALSE(document.commandLine().isActive());
    EXPECT_EQ(entityCount(), "1\n");
}

TEST_F(RunningProgram, EscAndErrorsCancelTheCommandThatItLeftRunning)
{
    later([this] { QTest::keyClick(input, Qt::Key_Escape); });
    type(QStringLiteral("(command \"_.line\" '(0 0))"));
    EXPECT_FALSE(document.commandLine().isActive());
    type(QStringLiteral("(progn (command \"_.line\" '(0 0)) (car 5))"));
    EXPECT_FALSE(document.commandLine().isActive());
    EXPECT_EQ(entityCount(), "0\n");
}

TEST_F(RunningProgram, EscStopsALoopAndTheWindowLivesOn)
{
    later([this] {
        EXPECT_TRUE(interface.isRunning());
        EXPECT_TRUE(input->isReadOnly());
        QTest::keyClick(&interface.window(), Qt::Key_Escape);
    });
    type(QStringLiteral("(while T)"));
    EXPECT_THAT(output(), HasSubstr("error: Function cancelled\n"));
    EXPECT_FALSE(interface.isRunning());
    EXPECT_FALSE(input->isReadOnly());
}

TEST_F(RunningProgram, WhatItPrintsIsShownWhileItRuns)
{
    later([this] {
        EXPECT_THAT(output(), EndsWith("working"));
        QTest::keyClick(&interface.window(), Qt::Key_Escape);
    });
    type(QStringLiteral("(progn (princ \"working\") (while T))"));
}

TEST_F(RunningProgram, TheProgressMeterHasAButtonToStop)
{
    auto *bar = interface.window().findChild<QProgressBar *>(QStringLiteral("progressBar"));
    auto *cancel = interface.window().findChild<QToolButton *>(QStringLiteral("progressCancel"));
    LispHost *lispHost = document.lispHost();
    lispHost->progressStart(u"Counting");
    lispHost->progressSet(30);
    EXPECT_TRUE(bar->isVisible());
    later([&] { QTest::mouseClick(cancel, Qt::LeftButton); });
    type(QStringLiteral("(while T)"));
    EXPECT_THAT(output(), HasSubstr("error: Function cancelled\n"));
    lispHost->progressEnd();
    EXPECT_FALSE(bar->isVisible());
}

// The second position comes too soon after the first to be shown at once.
TEST_F(RunningProgram, TheProgressMeterShowsTheLatestWhileTheProgramWaits)
{
    auto *bar = interface.window().findChild<QProgressBar *>(QStringLiteral("progressBar"));
    auto *label = interface.window().findChild<QLabel *>(QStringLiteral("progressLabel"));
    LispHost *lispHost = document.lispHost();
    lispHost->progressStart(u"Copy A & B <b>");
    lispHost->progressSet(1);
    lispHost->progressSet(50);
    later([&] {
        EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->value() == 50; }));
        EXPECT_GE(label->sizeHint().width(), label->fontMetrics().horizontalAdvance(label->text()));
        QTest::keyClick(input, Qt::Key_Return);
    });
    type(QStringLiteral("(getstring)"));
    lispHost->progressEnd();
}

TEST_F(RunningProgram, TheProgressMeterIsPaintedNoMoreOftenThanAScreenCan)
{
    class PaintCounter final : public QObject
    {
    public:
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paints;
    interface.window().findChild<QProgressBar *>(QStringLiteral("progressBar"))->installEventFilter(&paints);
    LispHost *lispHost = document.lispHost();
    QElapsedTimer time;
    time.start();
    lispHost->progressStart(u"Counting");
    for (int i = 0; time.elapsed() < 300 || i < 100000; ++i)
        lispHost->progressSet(i % 100);
    EXPECT_GE(paints.count, 3);
    EXPECT_LE(paints.count, 2 + time.elapsed() / 16);
    lispHost->progressEnd();
}

TEST_F(RunningProgram, ClosingTheWindowStopsItFirst)
{
    later([this] { EXPECT_FALSE(interface.window().close()); });
    type(QStringLiteral("(while T)"));
    EXPECT_FALSE(interface.isRunning());
    EXPECT_FALSE(interface.window().isVisible());
}
