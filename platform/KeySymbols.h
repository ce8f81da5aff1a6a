#pragma once

#include <vector>

// What virtual-key codes are on an X server.

// The symbols of the keys that the code stands for, left and right ones for example; none for codes that are no key.
std::vector<unsigned long> keySymbolsOf(int virtualKey);

// The button of the pointer, from 1 on; 0: the code is a key.
unsigned pointerButtonOf(int virtualKey);

// The key's lamp among those of the keyboard, as a bit; 0: it has none.
unsigned lampOf(int virtualKey);
