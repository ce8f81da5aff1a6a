#include "tests/functions/processes/FakeProcesses.h"

#include "tests/support/StandIn.h"

namespace FakeProcesses {

std::vector<std::string> calls;
BOOL answer = TRUE;
DWORD exitCode = 0;

} // namespace FakeProcesses

namespace {

constexpr std::intptr_t OpenedHandle = 64;

std::string numberOf(HANDLE handle)
{
    return std::to_string(reinterpret_cast<std::intptr_t>(handle));
}

} // namespace

STAND_IN(HANDLE, OpenProcess, (DWORD access, BOOL inherit, DWORD processId))
{
    FakeProcesses::calls.push_back("OpenProcess " + std::to_string(access) + ' ' + std::to_string(inherit) + ' ' +
                                   std::to_string(processId));
    return reinterpret_cast<HANDLE>(OpenedHandle);
}

STAND_IN(DWORD, WaitForSingleObject, (HANDLE handle, DWORD milliseconds))
{
    FakeProcesses::calls.push_back("WaitForSingleObject " + numberOf(handle) + ' ' + std::to_string(milliseconds));
    return WAIT_OBJECT_0;
}

STAND_IN(BOOL, GetExitCodeProcess, (HANDLE process, DWORD *exitCode))
{
    FakeProcesses::calls.push_back("GetExitCodeProcess " + numberOf(process));
    if (FakeProcesses::answer == TRUE)
        *exitCode = FakeProcesses::exitCode;
    return FakeProcesses::answer;
}

STAND_IN(BOOL, TerminateProcess, (HANDLE process, UINT exitCode))
{
    FakeProcesses::calls.push_back("TerminateProcess " + numberOf(process) + ' ' + std::to_string(exitCode));
    return FakeProcesses::answer;
}

STAND_IN(BOOL, CloseHandle, (HANDLE handle))
{
    FakeProcesses::calls.push_back("CloseHandle " + numberOf(handle));
    return TRUE;
}
