#pragma once

struct CallRules;

// Refuses the system calls that reach beyond files: starting processes that the rules do not name, signals to other
// processes, tracing, sockets, changes of permissions and owners; and the loading of code from folders that the rules
// do not name. Holds for this thread and all that it starts, for good.
//
// A refused call fails as for lack of permission, and a line on standard error names it; so it does for files that the
// file rules, which must be in force, keep out of reach. Raises SandboxError.
void filterCalls(const CallRules &rules);
