#pragma once

#include <vector>

// What virtual-key codes are on an X server.

// The symbols of the keys that the code stands for, left and right ones for example; none for codes that are no key. A
// key of the number pad that has a digit or the decimal point is that one, or the key that moves the cursor, but never
// both: Num Lock says which.
enum class NumLock { Off, On };
std::vector<unsigned long> keySymbolsOf(int virtualKey, NumLock numLock);

// The button of the pointer, from 1 on; 0: the code is a key.
unsigned pointerButtonOf(int virtualKey);

// The key's lamp among those of the keyboard, as a bit; 0: it has none.
unsigned lampOf(int virtualKey);
