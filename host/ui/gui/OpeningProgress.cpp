#include "host/ui/gui/OpeningProgress.h"

#include "host/ui/gui/MainWindow.h"

#include <QCoreApplication>

namespace {

constexpr qint64 ShowInterval = 30; // milliseconds; a screen shows no more
constexpr int Steps = 1000;

} // namespace

OpeningProgress::OpeningProgress(MainWindow &window, const QString &label) : m_window(window), m_label(label)
{
    const auto cancel = [this] { m_isCancelled = true; };
    connect(&window, &MainWindow::escapePressed, this, cancel);
    connect(&window.progressPanel(), &ProgressPanel::cancelled, this, cancel);
    window.setRunning(true);
    window.commandPanel().setTyping(false);
    m_sinceShown.start();
}

OpeningProgress::~OpeningProgress()
{
    m_window.progressPanel().hide();
    m_window.setRunning(false);
    m_window.commandPanel().setTyping(true);
    m_window.commandPanel().focusInput();
}

void OpeningProgress::show(double share)
{
    if (m_sinceShown.elapsed() < ShowInterval)
        return;
    m_window.progressPanel().showProgress({m_label, static_cast<int>(share * Steps), Steps});
    QCoreApplication::processEvents();
    m_sinceShown.restart();
    if (m_isCancelled)
        throw Cancelled();
}
