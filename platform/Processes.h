#pragma once

#include "platform/WindowsTypes.h"

#ifndef _WIN32

// Processes by handle, as https://learn.microsoft.com/windows/win32/procthread describes them.

inline constexpr DWORD PROCESS_TERMINATE = 0x0001;
inline constexpr DWORD PROCESS_QUERY_INFORMATION = 0x0400;
inline constexpr DWORD PROCESS_QUERY_LIMITED_INFORMATION = 0x1000;
inline constexpr DWORD SYNCHRONIZE = 0x00100000;
inline constexpr DWORD PROCESS_ALL_ACCESS = 0x001FFFFF;
// Of a process: reading queries, executing queries, terminates and waits, writing does none of these.
inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD GENERIC_EXECUTE = 0x20000000;
inline constexpr DWORD GENERIC_ALL = 0x10000000;

inline constexpr DWORD INFINITE = 0xFFFFFFFF;
inline constexpr DWORD WAIT_OBJECT_0 = 0;
inline constexpr DWORD WAIT_TIMEOUT = 258;
inline constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;
inline constexpr DWORD STILL_ACTIVE = 259; // the exit code of a process that runs

// A handle of a process with the rights that are asked for; null and the last error when there is no such process. The
// handle stays good after the process has ended, until CloseHandle. Handles are multiples of 4, and a number that
// differs from one only in the lowest two bits will do for it. They are not inherited.
HANDLE OpenProcess(DWORD access, BOOL inherit, DWORD processId);
BOOL CloseHandle(HANDLE handle);

HANDLE GetCurrentProcess(); // -1, which has every right and need not be closed
DWORD GetCurrentProcessId();

// WAIT_OBJECT_0 when the process has ended, WAIT_TIMEOUT after so many milliseconds, WAIT_FAILED and the last error.
// Needs SYNCHRONIZE.
DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);

// STILL_ACTIVE, or the exit code of a process that has ended. Needs one of the rights to query. A process that a signal
// ended has 128 and the signal's number, one that TerminateProcess ended the code that was given there. Linux tells a
// process the exit codes of its own children alone, and once; for other processes it is 0.
BOOL GetExitCodeProcess(HANDLE process, DWORD *exitCode);

// Ends a process at once. Needs PROCESS_TERMINATE. A process that has ended already cannot be: ERROR_ACCESS_DENIED.
BOOL TerminateProcess(HANDLE process, UINT exitCode);

#endif
