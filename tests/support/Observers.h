#pragma once

#include "platform/Beep.h"
#include "platform/KeyState.h"
#include "platform/Shell.h"

#ifdef _WIN32

#include <QString>

#include <functional>

// What the platform library offers to tests elsewhere, for the calls of Windows itself in the program of tests that has
// it. Calls go on to the system; a key's state comes from the source alone while there is one.
struct ShellLaunch
{
    QString verb, file, parameters;
    int result;
};

void setShellObserver(std::function<void(const ShellLaunch &launch)> observer);
void setBeepObserver(std::function<void(DWORD frequency, DWORD milliseconds)> observer);
void setKeyStateSource(std::function<std::int16_t(int virtualKey)> source);

#endif
