#pragma once

#include "platform/WindowsTypes.h"

#ifndef _WIN32

// The full path of the file that a library, given by its dlopen handle, or with a null handle the program itself was
// loaded from. Gives the number of units written, without the terminator. A path that does not fit is cut, terminated,
// and answered with the capacity and ERROR_INSUFFICIENT_BUFFER; 0 means failure, with the last error set.
DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD capacity);

#endif
