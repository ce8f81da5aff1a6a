#pragma once

#include "platform/WindowsTypes.h"

#include <QString>

#include <functional>

#ifndef _WIN32

// The shell's calls: https://learn.microsoft.com/windows/win32/api/shellapi
//
// Both answer with a number: above 32 it is success, else one of these.
inline constexpr int SE_ERR_FNF = 2; // no such file
inline constexpr int SE_ERR_PNF = 3; // no such folder on the way to it
inline constexpr int SE_ERR_ACCESSDENIED = 5;
inline constexpr int SE_ERR_OOM = 8;      // no room for the answer
inline constexpr int SE_ERR_NOASSOC = 31; // no program for this kind of file, or not for this verb

inline constexpr int SW_SHOWNORMAL = 1;

// The program that opens a file: its full path goes to `result`, which has room for MAX_PATH units with the terminator;
// a longer one is SE_ERR_OOM, and none is ever cut. A program is its own; one is known by the permission to execute it
// and by how it begins. A relative file is looked for in `folder`, null: the current one, and a bare name along PATH. A
// URL of a file on this computer is that file.
HINSTANCE FindExecutableW(LPCWSTR file, LPCWSTR folder, LPWSTR result);

// Opens a file or URL in its program, or starts a program; both are found as above. Parameters are split as a Windows
// program splits its command line. Verbs beside "open", which a program's only one is, are those of the registry; null
// is the kind's own. `owner` and `show` are not used here. Does not wait for the program.
HINSTANCE ShellExecuteW(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, int show);

#endif

// One call of ShellExecuteW; texts that were null are empty.
struct ShellLaunch
{
    QString verb, file, parameters;
    int result;
};

// Is told of each call of ShellExecuteW when its result is known; an empty function ends that. On Windows
// ObservedCalls.h says whose calls these are.
using ShellObserver = std::function<void(const ShellLaunch &launch)>;
void setShellObserver(ShellObserver observer);
