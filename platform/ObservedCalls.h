#pragma once

#include "platform/Beep.h"
#include "platform/KeyState.h"
#include "platform/Shell.h"

// The calls that observers hear of. Where the platform library has them, those are all calls of the process. On Windows
// the calls are the system's own and observed for the libraries that are named here: the modules that a host has
// loaded.
#ifdef _WIN32

// From now on, as long as the library is loaded. It must be called before the library's first such call.
void observeCallsOf(HMODULE library);

// What those libraries call instead: the system's call, with its observer or source.
HINSTANCE WINAPI observedShellExecute(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder,
                                      INT show);
WINBOOL WINAPI observedBeep(DWORD frequency, DWORD milliseconds);
SHORT WINAPI sourcedKeyState(int virtualKey);

#else

// For a host that opens something in the name of a module.
inline HINSTANCE observedShellExecute(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder,
                                      int show)
{
    return ShellExecuteW(owner, verb, file, parameters, folder, show);
}

#endif
