#pragma once

class QKeyEvent;

// The virtual-key code of Windows for a key that Qt reports, 0 for one that has none:
// https://learn.microsoft.com/windows/win32/inputdev/virtual-key-codes
// Left and right Shift, Ctrl and Alt are one key to Qt and have the code of both. A key with Shift that writes another
// character than alone is that of the other character.
int virtualKeyOf(const QKeyEvent &event);
