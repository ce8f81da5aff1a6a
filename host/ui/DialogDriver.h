#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QDialog;
struct HostServices;

// Stands in for the person in front of the screen: answers every modal dialog of the application from the answers file,
// and writes dialogs and modeless windows to the transcript. A dialog is answered inside its own event loop, so dialogs
// that an answer opens are answered in turn.
class DialogDriver final : public QObject
{
public:
    // Drives all dialogs of the application that exists now, as long as it lives.
    explicit DialogDriver(HostServices &services);

    void noteWindows(); // writes down which modeless windows have changed since the last time

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Window
    {
        QPointer<QDialog> dialog;
        QByteArray lastLine; // as last written
    };

    void note(Window &window);

    HostServices &m_services;
    QList<Window> m_windows;
};
