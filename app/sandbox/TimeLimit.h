#pragma once

// Interrupts the program that runs in so many seconds, and every second from then on. Raises SandboxError where there
// is no sandbox.
void interruptAfter(int seconds);
