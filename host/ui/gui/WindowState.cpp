#include "host/ui/gui/WindowState.h"

#include "host/ui/gui/CommandHistory.h"
#include "storage/ProfileFolder.h"

#include <QMainWindow>
#include <QSettings>

namespace {

constexpr qsizetype MostRecentFiles = 10, MostTypedLines = 500;

} // namespace

WindowState::WindowState() : m_file(profileFolder() + QStringLiteral("/window.ini"))
{
    m_recentFiles = QSettings(m_file, QSettings::IniFormat).value(QStringLiteral("recentFiles")).toStringList();
}

void WindowState::restore(QMainWindow &window, CommandHistory &history) const
{
    const QSettings settings(m_file, QSettings::IniFormat);
    window.resize(1100, 750);
    window.restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray());
    window.restoreState(settings.value(QStringLiteral("layout")).toByteArray());
    for (const QString &entry : settings.value(QStringLiteral("history")).toStringList())
        history.add(entry);
}

void WindowState::save(const QMainWindow &window, const CommandHistory &history) const
{
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setValue(QStringLiteral("geometry"), window.saveGeometry());
    settings.setValue(QStringLiteral("layout"), window.saveState());
    settings.setValue(QStringLiteral("recentFiles"), m_recentFiles);
    const QStringList &entries = history.entries();
    settings.setValue(QStringLiteral("history"), entries.last(std::min(entries.size(), MostTypedLines)));
}

void WindowState::addRecentFile(const QString &path)
{
    m_recentFiles.removeAll(path);
    m_recentFiles.prepend(path);
    m_recentFiles = m_recentFiles.first(std::min(m_recentFiles.size(), MostRecentFiles));
}
