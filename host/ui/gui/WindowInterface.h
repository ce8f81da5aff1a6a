#pragma once

#include "host/interpreter/Machine.h"
#include "host/kernel/input/UserInput.h"
#include "host/kernel/windows/UserInterface.h"
#include "host/ui/DocumentOpener.h"
#include "host/ui/gui/HeldKeys.h"
#include "host/ui/gui/MainWindow.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <optional>

struct HostServices;

// The host's face in a window: its console, the person at its command line, its windows. LISP runs on the interface's
// thread; a running program lets the window live on at its safe points (see pulse).
class WindowInterface final : public QObject, public UserInterface, public UserInput, public lisp::Console
{
    Q_OBJECT

public:
    // It is the host's interface as long as it lives. There must be an application.
    explicit WindowInterface(HostServices &services);
    ~WindowInterface() override;

    MainWindow &window() { return m_window; }

    // Programs run between these two.
    void programStarted(lisp::Machine &machine);
    void programEnded();
    bool isRunning() const { return m_machine != nullptr; }
    bool isIdle() const { return !m_machine || m_waiting; } // what runs, if anything, waits for the person
    // A safe point of the running program: paints, and hears of Esc, every now and then.
    void pulse();

    void write(std::u16string_view text) override; // shown soon; flush() shows it now
    void writeError(const QString &text);
    void startFreshLine();
    void flush();

    InputReply request(const InputRequest &request) override;
    // Of the request that waits, instead of a typed text; nothing when none waits.
    void answer(const InputReply &reply);

    QWidget *mainWindow() override { return &m_window; }
    QWidget *documentWindow() override { return m_window.documentArea(); }
    void showAlert(const QString &text) override;
    void showHtml(const QString &text) override;
    std::optional<QString> chooseFile(const FileRequest &request) override;
    void showProgress(const Progress &progress) override;
    void endProgress() override;

Q_SIGNALS:
    void requestBegan(const InputRequest &request);
    void requestEnded();

private:
    void escape();
    InputReply wait(const InputRequest &request); // for an answer

    HostServices &m_services;
    DocumentOpener m_documentOpener;
    HeldKeys m_heldKeys; // for programs that ask which keys are down
    MainWindow m_window;
    lisp::Machine *m_machine = nullptr; // that runs
    QString m_pending;                  // printed, but not shown yet
    QElapsedTimer m_sincePulse;
    QTimer m_meterTimer;             // brings the progress meter up to date while a program waits or shows a dialog
    QEventLoop *m_waiting = nullptr; // of the request that waits for an answer
    std::optional<InputReply> m_reply;
};
