#pragma once

#include "host/interpreter/Machine.h"
#include "host/kernel/windows/UserInterface.h"

#include <QElapsedTimer>

// Shows how much of a file has been read, as long as it lives. Who stops the program, as with Esc, stops the reading.
class ReadingProgress
{
public:
    // Both have to outlive it.
    ReadingProgress(UserInterface &userInterface, const lisp::Machine &machine, const QString &path);
    ~ReadingProgress();
    ReadingProgress(const ReadingProgress &) = delete;
    ReadingProgress &operator=(const ReadingProgress &) = delete;

    void show(double share); // from 0 to 1; throws drawing::ReadError when the program is to stop

private:
    UserInterface &m_userInterface;
    const lisp::Machine &m_machine;
    QString m_name;
    QElapsedTimer m_sinceShown;
};
