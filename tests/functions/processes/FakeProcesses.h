#pragma once

#include "platform/Processes.h"

#include <string>
#include <vector>

// Takes the place of the platform library's process calls in the program of tests that it is part of.
namespace FakeProcesses {

extern std::vector<std::string> calls; // in order, with their arguments
extern BOOL answer;                    // of TerminateProcess and GetExitCodeProcess
extern DWORD exitCode;                 // what GetExitCodeProcess stores when its answer is TRUE

} // namespace FakeProcesses
