#include "platform/ObservedCalls.h"
#include "tests/support/StandIn.h"

// What a host does to the modules that it loads, for the functions that are part of a program of tests: their calls of
// the system are observed.

STAND_IN(HINSTANCE, ShellExecuteW,
         (HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, INT show))
{
    return observedShellExecute(owner, verb, file, parameters, folder, show);
}

STAND_IN(WINBOOL, Beep, (DWORD frequency, DWORD milliseconds))
{
    return observedBeep(frequency, milliseconds);
}

STAND_IN(SHORT, GetKeyState, (int virtualKey))
{
    return sourcedKeyState(virtualKey);
}
