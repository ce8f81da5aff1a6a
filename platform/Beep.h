#pragma once

#include "platform/WindowsTypes.h"

#include <functional>

#ifndef _WIN32

// Sounds a tone and comes back when it is over. FALSE and the last error at once for a frequency, in hertz, outside 37
// to 32767. The tone goes to the sound server or sound card by the first player program that is there and does not
// fail, else to the terminal as its own signal, else nowhere. It takes its time in any case, and no longer, whatever a
// player does.
BOOL Beep(DWORD frequency, DWORD milliseconds);

#endif

// Is told of each tone that Beep sounds, before it does; an empty function ends that. On Windows ObservedCalls.h says
// whose calls these are.
using BeepObserver = std::function<void(DWORD frequency, DWORD milliseconds)>;
void setBeepObserver(BeepObserver observer);
