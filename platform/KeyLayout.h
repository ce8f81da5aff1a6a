#pragma once

#include <array>
#include <functional>

// The keys of an X server that type characters, on the keyboard's layout.
//
// Each has one virtual-key code, as on Windows: that of the digit which it types, with Shift on some layouts, or of
// what it types alone. A key that types something else, such as a letter of another script or with an accent, has the
// code of its place on a US keyboard, if that is no other key's, or else one that is left.

// What a key types alone or with Shift.
using LayoutSymbol = std::function<unsigned long(unsigned keyCode, bool isShifted)>;

// By key code; 0 where a key types no characters or is none.
std::array<int, 256> characterKeys(const LayoutSymbol &symbolOf);
