#pragma once

#include "app/sandbox/SandboxOptions.h"

#include <QStringList>

// Shuts this process in for good: from now on it may read what `readable` names, its own files and the system's
// libraries and fonts, write in the temporary folder and where the options allow it, and start what they name. Raises
// SandboxError, also when a program to run is not to be found, or a script and not its interpreter.
void enterSandbox(const SandboxOptions &options, const QStringList &readable, const QString &temporaryFolder);
