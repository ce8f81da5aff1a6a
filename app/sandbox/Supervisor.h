#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

// The kernel cannot shut a program in, or not far enough.
class SandboxError : public std::runtime_error
{
public:
    explicit SandboxError(const QString &message) : std::runtime_error(message.toStdString()) {}
};

// Folders of a run, which are new and go away with it.
struct SandboxFolders
{
    QString temporary; // for the program
    QString settings;  // for registry and profile store; in memory where the system has a folder there
};

// Runs `work` in a process of its own with new folders, which it is given, and removes the folders and every process
// that was left behind at the end. Gives the exit status of the work; ExitFailed when a signal ended it. Work that
// still goes on well after so many seconds (0: never) is ended, as is work that three interrupts from the terminal have
// not ended. The calling process must have one thread. Raises SandboxError where there are no such processes.
int superviseInOwnFolders(int seconds, const std::function<int(const SandboxFolders &folders)> &work);
