#pragma once

#include "host/kernel/Host.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/WindowInterface.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

// A host in its window, with a person's keys.
class GuiTest : public testing::Test
{
protected:
    GuiTest()
    {
        interface.window().show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&interface.window()));
    }

    void type(const QString &text)
    {
        QTest::keyClicks(input, text);
        QTest::keyClick(input, Qt::Key_Return);
    }
    // When the program that is about to run comes to wait, or to a safe point.
    void later(const std::function<void()> &action) { QTimer::singleShot(20, &interface, action); }
    std::string entityCount()
    {
        type(
            QStringLiteral("(progn (setq n 0 e (entnext)) (while e (setq n (1+ n) e (entnext e))) (princ n) (princ))"));
        return output().substr(output().rfind(')') + 2);
    }
    std::string output() const { return outputView->toPlainText().toStdString(); }
    std::string prompt() const { return promptLabel->text().toStdString(); }

private:
    // The profile is a folder of its own before anything looks at it.
    struct Profile
    {
        Profile() { setProfileFolder(folder.path()); }
        ~Profile() { setProfileFolder(QString()); }
        QTemporaryDir folder;
    };
    Profile m_profile;

protected:
    Host host;
    WindowInterface interface {
        host.services()
    };
    Document &document = host.documents().open();
    CommandRunner runner{interface, document};
    QLineEdit *input = interface.window().findChild<QLineEdit *>(QStringLiteral("commandInput"));
    QPlainTextEdit *outputView = interface.window().findChild<QPlainTextEdit *>(QStringLiteral("commandOutput"));
    QLabel *promptLabel = interface.window().findChild<QLabel *>(QStringLiteral("commandPrompt"));
};
