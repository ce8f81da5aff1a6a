#pragma once

#include "platform/VirtualKeys.h"

#include <cstdint>
#include <functional>

// What the state of a key is made of.
inline constexpr std::int16_t KeyIsDown = -128; // the high bits, as Windows sets them
inline constexpr std::int16_t KeyIsToggled = 1;

#ifndef _WIN32

// Negative, -128 or -127, while the key or mouse button is down, 0 or 1 while it is up. Bit 0: it is toggled, for keys
// with a lamp. 0 for codes that are no key, and where there is no keyboard to ask: keys come from the X server if
// DISPLAY names one that answers.
std::int16_t GetKeyState(int virtualKey);

#endif

// Takes the place of the X server: a window system that knows better, or a test. An empty function ends that.
using KeyStateSource = std::function<std::int16_t(int virtualKey)>;
void setKeyStateSource(KeyStateSource source);
