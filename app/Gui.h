#pragma once

#include "app/CommandLine.h"

// Shows the window, loads the programs that were named, and runs until the window is closed. Gives an exit status.
// Raises ModuleError.
int runGui(const Options &options);
