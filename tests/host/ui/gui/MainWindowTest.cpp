#include "tests/host/ui/gui/GuiTest.h"

#include <QDialog>
#include <QMenuBar>

using testing::EndsWith;
using testing::HasSubstr;

namespace {

QAction *actionOf(const QWidget *widget, const QString &text)
{
    for (QAction *action : widget->actions())
        if (action->text().remove(u'&') == text)
            return action;
    return nullptr;
}

class MainWindowTest : public GuiTest
{
protected:
    QMenu *menu(const QString &name, const QString &subMenu)
    {
        return actionOf(actionOf(interface.window().menuBar(), name)->menu(), subMenu)->menu();
    }
    QString write(const QString &name, const QByteArray &text)
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(MainWindowTest, AProgramsCommandsStandInTheMenu)
{
    QMenu *commands = menu(QStringLiteral("Program"), QStringLiteral("Run Command"));
    EXPECT_FALSE(commands->isEnabled());
    runner.loadProgram(write(QStringLiteral("a.lsp"), "(defun c:zoo () (princ \"zoo\") (princ)) (defun c:Ape ())"));
    ASSERT_EQ(commands->actions().size(), 2);
    EXPECT_EQ(commands->actions().first()->text(), QStringLiteral("APE"));
    actionOf(commands, QStringLiteral("ZOO"))->trigger();
    EXPECT_THAT(output(), EndsWith("zoo\n"));
}

TEST_F(MainWindowTest, RecentFilesAreRememberedFromRunToRun)
{
    const QString first = write(QStringLiteral("a.lsp"), ""), second = write(QStringLiteral("b.lsp"), "");
    runner.loadProgram(first);
    runner.loadProgram(second);
    runner.loadProgram(first);
    interface.window().resize(900, 640);
    interface.window().close();
    const MainWindow next;
    QMenu *recent =
        actionOf(actionOf(next.menuBar(), QStringLiteral("File"))->menu(), QStringLiteral("Recent Files"))->menu();
    ASSERT_EQ(recent->actions().size(), 2);
    EXPECT_EQ(recent->actions().at(0)->text(), first);
    EXPECT_EQ(recent->actions().at(1)->text(), second);
    EXPECT_EQ(next.size(), QSize(900, 640));
}

TEST_F(MainWindowTest, PanelsThatAreThereBeforeTheWindowIsShownAreWideEnough)
{
    MainWindow next;
    auto *first = new QWidget, *second = new QWidget;
    next.addPanel(QStringLiteral("First"), first);
    next.addPanel(QStringLiteral("Second"), second);
    next.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&next));
    EXPECT_GE(first->width(), 240);
    EXPECT_GE(first->height(), 200);
    EXPECT_GE(second->height(), 200);
}

TEST_F(MainWindowTest, WhatWasTypedIsRememberedFromRunToRun)
{
    type(QStringLiteral("(+ 1 2)"));
    type(QStringLiteral("(+ 3 4)"));
    interface.window().close();
    MainWindow next;
    EXPECT_EQ(next.commandPanel().history().entries(),
              (QStringList{QStringLiteral("(+ 1 2)"), QStringLiteral("(+ 3 4)")}));
    EXPECT_EQ(next.commandPanel().history().older(QString()), QStringLiteral("(+ 3 4)"));
}

TEST_F(MainWindowTest, EscClosesAnotherWindowWhileNothingRuns)
{
    auto *status = new QDialog(&interface.window());
    status->show();
    QTest::keyClick(status, Qt::Key_Escape);
    EXPECT_FALSE(status->isVisible());
    status->show();
    later([&] { QTest::keyClick(status, Qt::Key_Escape); });
    type(QStringLiteral("(while T)"));
    EXPECT_TRUE(status->isVisible());
    EXPECT_THAT(output(), HasSubstr("error: Function cancelled"));
}

TEST_F(MainWindowTest, AProgramThatCannotBeReadIsAMessage)
{
    runner.loadProgram(m_folder.filePath(QStringLiteral("none.lsp")));
    EXPECT_THAT(output(), HasSubstr("none.lsp"));
    EXPECT_TRUE(menu(QStringLiteral("File"), QStringLiteral("Recent Files"))->isEmpty());
}

TEST_F(MainWindowTest, AnErrorInAProgramNamesItsLine)
{
    runner.loadProgram(write(QStringLiteral("bad.lsp"), "\n(car 5)\n"));
    EXPECT_THAT(output(), HasSubstr("bad.lsp:2"));
}
