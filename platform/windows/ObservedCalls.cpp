#include "platform/ObservedCalls.h"

#include "platform/windows/ImportTable.h"

#include <utility>

namespace {

ShellObserver shellObserver;
BeepObserver beepObserver;
KeyStateSource keyStateSource;

// By way of the library: in programs of tests the plain names lead here.
template <typename Function> Function systemsOwn(const char *library, const char *name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void *>(GetProcAddress(LoadLibraryA(library), name)));
}

QString textOf(LPCWSTR text)
{
    return QString::fromWCharArray(text != nullptr ? text : L"");
}

} // namespace

HINSTANCE WINAPI observedShellExecute(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder,
                                      INT show)
{
    static const auto execute = systemsOwn<decltype(&ShellExecuteW)>("shell32", "ShellExecuteW");
    const HINSTANCE instance = execute(owner, verb, file, parameters, folder, show);
    if (shellObserver)
        shellObserver({textOf(verb), textOf(file), textOf(parameters),
                       static_cast<int>(reinterpret_cast<std::intptr_t>(instance))});
    return instance;
}

WINBOOL WINAPI observedBeep(DWORD frequency, DWORD milliseconds)
{
    static const auto beep = systemsOwn<decltype(&Beep)>("kernel32", "Beep");
    const bool sounds = frequency >= 37 && frequency <= 32767; // Wine gives TRUE for the others too
    if (beepObserver && sounds)
        beepObserver(frequency, milliseconds);
    return beep(frequency, milliseconds);
}

SHORT WINAPI sourcedKeyState(int virtualKey)
{
    static const auto keyState = systemsOwn<decltype(&GetKeyState)>("user32", "GetKeyState");
    return keyStateSource ? keyStateSource(virtualKey) : keyState(virtualKey);
}

void observeCallsOf(HMODULE library)
{
    replaceImport(library, "ShellExecuteW", reinterpret_cast<void *>(&observedShellExecute));
    replaceImport(library, "Beep", reinterpret_cast<void *>(&observedBeep));
    replaceImport(library, "GetKeyState", reinterpret_cast<void *>(&sourcedKeyState));
}

void setShellObserver(ShellObserver observer)
{
    shellObserver = std::move(observer);
}

void setBeepObserver(BeepObserver observer)
{
    beepObserver = std::move(observer);
}

void setKeyStateSource(KeyStateSource source)
{
    keyStateSource = std::move(source);
}
