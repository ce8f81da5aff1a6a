#include "host/ui/DialogDriver.h"

#include "host/kernel/HostServices.h"
#include "host/ui/DialogActions.h"
#include "host/ui/DialogDescription.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

#include <algorithm>

DialogDriver::DialogDriver(HostServices &services) : m_services(services)
{
    qApp->installEventFilter(this);
}

bool DialogDriver::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = event->type() == QEvent::Show ? qobject_cast<QDialog *>(watched) : nullptr;
    if (dialog && dialog->isModal()) {
        // Its event loop, which runs the answer, begins when it is shown.
        QMetaObject::invokeMethod(
            this, [this, shown = QPointer(dialog)] { answer(shown); }, Qt::QueuedConnection);
    } else if (dialog && dialog->isWindow()) {
        const auto isThis = [dialog](const Window &window) { return window.dialog == dialog; };
        if (std::none_of(m_windows.begin(), m_windows.end(), isThis))
            m_windows.append(Window{dialog, {}});
    }
    return false;
}

void DialogDriver::answer(QPointer<QDialog> dialog)
{
    while (dialog && dialog->isVisible())
        answerOnce(*dialog);
}

// The dialog is written down as it was before it was answered, and before what the answer opens. Texts typed into it
// come first and belong to the same entry.
void DialogDriver::answerOnce(QDialog &dialog)
{
    TranscriptEvent event(u"dialog");
    describeDialog(event, dialog);
    const QString name = dialogName(dialog);
    std::optional<Answer> answer = m_services.answers.take();
    std::optional<QString> typed;
    while (answer && answer->kind == Answer::Kind::Text && suits(*answer, dialog)) {
        typed = answer->argument;
        perform(*answer, dialog);
        answer = m_services.answers.take();
    }
    if (typed)
        event.add(u"typed", *typed);
    m_services.transcript.write(event.add(u"answer", answer ? QJsonValue(answerLine(*answer)) : QJsonValue()));
    if (answer && suits(*answer, dialog)) {
        perform(*answer, dialog);
        return;
    }
    if (!answer)
        m_services.warn(QStringLiteral("no answer left for the dialog ") + name);
    else
        m_services.warn(QStringLiteral("the answer of line %1, %2, does not suit the dialog %3")
                            .arg(answer->line)
                            .arg(answerLine(*answer), name));
    dismiss(dialog);
}

void DialogDriver::noteWindows()
{
    m_windows.removeIf([](const Window &window) { return !window.dialog; });
    for (Window &window : m_windows)
        note(window);
}

void DialogDriver::note(Window &window)
{
    TranscriptEvent event(u"window");
    event.add(u"class", QString::fromLatin1(window.dialog->metaObject()->className()));
    event.add(u"title", window.dialog->windowTitle());
    event.add(u"text", dialogText(*window.dialog));
    event.add(u"visible", window.dialog->isVisible());
    if (event.line() == window.lastLine)
        return;
    window.lastLine = event.line();
    m_services.transcript.write(event);
}
