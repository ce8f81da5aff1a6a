#pragma once

class QWidget;

// Modules leave the processes that they start to a window, and forget them. Takes note of those that have ended, and
// frees what they held: pipes above all, of which there are only so many. A program that nothing waits for has no event
// loop in which that would happen by itself.
void freeEndedProcesses(QWidget &window);
