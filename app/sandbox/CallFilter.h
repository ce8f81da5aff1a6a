#pragma once

#include <string>
#include <vector>

enum class ProcessStarts { Refused, Allowed };

// Refuses the system calls that reach beyond files: starting processes unless they are allowed, signals to other
// processes, tracing, sockets, changes of permissions and owners; and the loading of code that is not in the
// `libraryFolders`. Holds for this thread and all that it starts, for good.
//
// A refused call fails as for lack of permission, and a line on standard error names it; so it does for files that the
// file rules, which must be in force, keep out of reach. Raises SandboxError.
void filterCalls(ProcessStarts starts, const std::vector<std::string> &libraryFolders);
