#include "tests/support/Observers.h"

#include "tests/support/StandIn.h"

#include <utility>

namespace {

std::function<void(const ShellLaunch &)> shellObserver;
std::function<void(DWORD, DWORD)> beepObserver;
std::function<std::int16_t(int)> keyStateSource;

template <typename Function> Function systemsOwn(const char *library, const char *name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void *>(GetProcAddress(LoadLibraryA(library), name)));
}

QString textOf(LPCWSTR text)
{
    return QString::fromWCharArray(text != nullptr ? text : L"");
}

} // namespace

STAND_IN(HINSTANCE, ShellExecuteW,
         (HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, INT show))
{
    static const auto execute = systemsOwn<decltype(&ShellExecuteW)>("shell32", "ShellExecuteW");
    const HINSTANCE instance = execute(owner, verb, file, parameters, folder, show);
    if (shellObserver)
        shellObserver({textOf(verb), textOf(file), textOf(parameters),
                       static_cast<int>(reinterpret_cast<std::intptr_t>(instance))});
    return instance;
}

STAND_IN(WINBOOL, Beep, (DWORD frequency, DWORD milliseconds))
{
    static const auto beep = systemsOwn<decltype(&Beep)>("kernel32", "Beep");
    const bool sounds = frequency >= 37 && frequency <= 32767; // Wine gives TRUE for the others too
    if (beepObserver && sounds)
        beepObserver(frequency, milliseconds);
    return beep(frequency, milliseconds);
}

STAND_IN(SHORT, GetKeyState, (int virtualKey))
{
    static const auto keyState = systemsOwn<decltype(&GetKeyState)>("user32", "GetKeyState");
    return keyStateSource ? keyStateSource(virtualKey) : keyState(virtualKey);
}

void setShellObserver(std::function<void(const ShellLaunch &)> observer)
{
    shellObserver = std::move(observer);
}

void setBeepObserver(std::function<void(DWORD, DWORD)> observer)
{
    beepObserver = std::move(observer);
}

void setKeyStateSource(std::function<std::int16_t(int)> source)
{
    keyStateSource = std::move(source);
}
