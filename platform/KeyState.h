#pragma once

#include "platform/WindowsTypes.h"

#include <cstdint>
#include <functional>

#ifndef _WIN32

// Virtual-key codes: https://learn.microsoft.com/windows/win32/inputdev/virtual-key-codes
inline constexpr int VK_LBUTTON = 0x01;
inline constexpr int VK_RBUTTON = 0x02;
inline constexpr int VK_MBUTTON = 0x04;

// Negative, -128 or -127, while the key or mouse button is down, 0 or 1 while it is up. Bit 0: it is toggled, for keys
// with a lamp. 0 for codes that are no key, and where there is no keyboard to ask: keys come from the X server if
// DISPLAY names one that answers.
std::int16_t GetKeyState(int virtualKey);

#endif

// Takes the place of the X server: a window system that knows better, or a test. An empty function ends that.
using KeyStateSource = std::function<std::int16_t(int virtualKey)>;
void setKeyStateSource(KeyStateSource source);
