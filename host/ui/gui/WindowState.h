#pragma once

#include <QStringList>

class CommandHistory;
class QMainWindow;

// What the window remembers from run to run, in the profile's folder: its geometry, what was typed last and the files
// that were used last.
class WindowState
{
public:
    WindowState();

    void restore(QMainWindow &window, CommandHistory &history) const;
    void save(const QMainWindow &window, const CommandHistory &history) const;

    QStringList recentFiles() const { return m_recentFiles; } // the latest first
    void addRecentFile(const QString &path);

private:
    QString m_file;
    QStringList m_recentFiles;
};
