#pragma once

#include "app/CommandLine.h"

class Host;

// The modules that the options name, or the one beside the program. Raises ModuleError.
void loadModules(Host &host, const Options &options);
