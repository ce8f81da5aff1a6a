#include "host/ui/DialogDriver.h"

#include "host/kernel/HostServices.h"
#include "host/ui/AnsweredDialog.h"
#include "host/ui/DialogActions.h"
#include "host/ui/DialogDescription.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

#include <algorithm>

namespace {

class QtDialog final : public AnsweredDialog
{
public:
    explicit QtDialog(QDialog &dialog) : m_dialog(&dialog) {}

    bool isOpen() const override { return m_dialog && m_dialog->isVisible(); }
    void describe(TranscriptEvent &event) const override { describeDialog(event, *m_dialog); }
    QString name() const override { return dialogName(*m_dialog); }
    bool suits(const Answer &answer) const override { return ::suits(answer, *m_dialog); }
    void perform(const Answer &answer) override { ::perform(answer, *m_dialog); }
    void dismiss() override { ::dismiss(*m_dialog); }

private:
    QPointer<QDialog> m_dialog;
};

} // namespace

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
            this, [this, shown = QtDialog(*dialog)]() mutable { answerDialog(shown, m_services); },
            Qt::QueuedConnection);
    } else if (dialog && dialog->isWindow()) {
        const auto isThis = [dialog](const Window &window) { return window.dialog == dialog; };
        if (std::none_of(m_windows.begin(), m_windows.end(), isThis))
            m_windows.append(Window{dialog, {}});
    }
    return false;
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
