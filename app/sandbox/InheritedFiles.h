#pragma once

#include <QStringList>

// Closes what the caller has left open besides the standard streams: no rule for files binds what is open. What the
// `paths` lead to by number, as a shell's <(…) does by /dev/fd/63, stays open for this process alone. To be called
// before the process opens anything of its own. Raises SandboxError.
void closeInheritedFiles(const QStringList &paths);
