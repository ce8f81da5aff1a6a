#include "host/ui/gui/WindowInterface.h"

#include "host/kernel/HostServices.h"
#include "host/sdk/ui/HostSdkUi.h"
#include "host/ui/AlertBox.h"
#include "host/ui/FileChooser.h"
#include "host/ui/HtmlDialog.h"
#include "host/ui/TextBrowserView.h"
#ifdef WITH_WEBENGINE
#include "host/ui/WebEngineView.h"
#endif

#include <QCoreApplication>

namespace {

constexpr int PulseInterval = 30;           // milliseconds; a screen shows no more
constexpr qsizetype PendingLimit = 1 << 16; // characters, before a program that prints much is shown

CFxWebView *makeWebView()
{
#ifdef WITH_WEBENGINE
    return makeWebEngineView();
#else
    return makeTextBrowserView();
#endif
}

QString echoOf(const InputReply &reply)
{
    switch (reply.kind) {
    case InputReply::Kind::Text:
        return QString::fromStdU16String(reply.text);
    case InputReply::Kind::Picked:
        return QStringLiteral("%1,%2").arg(reply.place.x, 0, 'f', 4).arg(reply.place.y, 0, 'f', 4);
    case InputReply::Kind::Cancelled:
    case InputReply::Kind::Moved:
        break;
    }
    return QCoreApplication::translate("WindowInterface", "*Cancel*");
}

} // namespace

WindowInterface::WindowInterface(HostServices &services) : m_services(services)
{
    services.userInterface = this;
    services.input = this;
    services.print = [this](std::u16string_view text) { write(text); };
    services.warn = [this](const QString &text) { writeError(text + u'\n'); };
    HostSdk::installWebViewMaker(makeWebView);
    connect(&m_window, &MainWindow::escapePressed, this, &WindowInterface::escape);
    connect(&m_window.progressPanel(), &ProgressPanel::cancelled, this, &WindowInterface::escape);
    m_meterTimer.setInterval(PulseInterval);
    connect(&m_meterTimer, &QTimer::timeout, this, [this] { m_services.progressMeter.showLatest(); });
    m_sincePulse.start();
}

WindowInterface::~WindowInterface()
{
    HostSdk::installWebViewMaker(nullptr);
    m_services.print = [](std::u16string_view) {};
    m_services.warn = [](const QString &) {};
    m_services.input = &m_services.scriptedInput;
    m_services.userInterface = &m_services.noWindows;
}

void WindowInterface::programStarted(lisp::Machine &machine)
{
    machine.clearInterrupts();
    m_machine = &machine;
    m_window.setRunning(true);
    m_window.commandPanel().setTyping(false);
}

void WindowInterface::programEnded()
{
    flush();
    m_machine = nullptr;
    m_window.setRunning(false);
    m_window.commandPanel().setTyping(true);
    m_window.commandPanel().focusInput();
}

void WindowInterface::pulse()
{
    if (m_sincePulse.elapsed() < PulseInterval)
        return;
    m_sincePulse.restart();
    flush();
    m_services.progressMeter.showLatest();
    QCoreApplication::processEvents();
    m_sincePulse.restart(); // what a person did meanwhile is not the program's time
}

void WindowInterface::escape()
{
    if (m_waiting)
        answer({});
    else if (m_machine)
        m_machine->interrupt();
}

void WindowInterface::write(std::u16string_view text)
{
    m_pending.append(QStringView(text.data(), static_cast<qsizetype>(text.size())));
    if (!m_machine || m_pending.size() > PendingLimit)
        flush();
}

void WindowInterface::writeError(const QString &text)
{
    flush();
    m_window.commandPanel().print(text, CommandPanel::Voice::Error);
}

void WindowInterface::startFreshLine()
{
    flush();
    m_window.commandPanel().startFreshLine();
}

void WindowInterface::flush()
{
    if (!m_pending.isEmpty())
        m_window.commandPanel().print(std::exchange(m_pending, QString()));
}

// The prompt's last line stands in front of the input; what was typed joins it above when it is entered.
InputReply WindowInterface::request(const InputRequest &request)
{
    if (request.kind == InputRequest::Kind::Event)
        return wait(request);
    CommandPanel &panel = m_window.commandPanel();
    QString prompt = QString::fromStdU16String(request.prompt);
    if (prompt.startsWith(u'\n')) {
        startFreshLine(); // what was typed before has ended its line
        prompt.remove(0, 1);
    }
    const qsizetype lastLine = prompt.lastIndexOf(u'\n') + 1;
    write(QStringView(prompt).first(lastLine).toString().toStdU16String());
    flush();
    panel.setPrompt(prompt.mid(lastLine));
    panel.setTyping(true);
    panel.focusInput();

    const InputReply reply = wait(request);

    panel.setTyping(false);
    panel.print(prompt.mid(lastLine));
    panel.print(echoOf(reply) + u'\n', CommandPanel::Voice::Person);
    return reply;
}

InputReply WindowInterface::wait(const InputRequest &request)
{
    if (m_machine && m_machine->isInterrupted()) // Esc came while what asks now was at work
        return {};
    CommandPanel &panel = m_window.commandPanel();
    const bool wantsKeys = request.kind == InputRequest::Kind::Event;
    const auto accept = [this](const QString &text) { answer({InputReply::Kind::Text, text.toStdU16String()}); };
    QEventLoop loop;
    m_waiting = &loop;
    panel.setKeysWanted(wantsKeys);
    const QMetaObject::Connection typed =
        connect(&panel, wantsKeys ? &CommandPanel::keyTyped : &CommandPanel::entered, this, accept);
    flush();
    Q_EMIT requestBegan(request);
    if (!m_reply) // who is quick answers while a large drawing is made ready
        loop.exec();
    disconnect(typed);
    panel.setKeysWanted(false);
    m_waiting = nullptr;
    Q_EMIT requestEnded();
    return std::exchange(m_reply, std::nullopt).value_or(InputReply{});
}

void WindowInterface::answer(const InputReply &reply)
{
    const bool isAnswered = m_reply && m_reply->kind != InputReply::Kind::Moved; // a click that follows a move counts
    if (!m_waiting || isAnswered)
        return;
    m_reply = reply;
    m_waiting->quit();
}

void WindowInterface::showAlert(const QString &text)
{
    showAlertBox(&m_window, text);
}

void WindowInterface::showHtml(const QString &text)
{
    showHtmlDialog(&m_window, text);
}

std::optional<QString> WindowInterface::chooseFile(const FileRequest &request)
{
    return chooseFileInDialog(&m_window, request);
}

void WindowInterface::showProgress(const Progress &progress)
{
    m_window.progressPanel().showProgress(progress);
    m_meterTimer.start();
    pulse();
}

void WindowInterface::endProgress()
{
    m_meterTimer.stop();
    m_window.progressPanel().hide();
}
