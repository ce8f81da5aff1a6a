#pragma once

#include "platform/WindowsTypes.h"

// STAND_IN(RESULT, NAME, (PARAMETERS)) { ... } takes the place of one of the system's calls in the program of tests
// that it is part of. On Windows calls go through a pointer of the linker's own that is named after the call: defined
// here, it leads elsewhere. Other systems have the call from a library, which comes after the program's own functions.
#ifdef _WIN32
#define STAND_IN(Result, Name, Parameters)                                                                             \
    static Result WINAPI standInFor##Name Parameters;                                                                  \
    extern "C" {                                                                                                       \
    Result(WINAPI *__imp_##Name) Parameters = standInFor##Name;                                                        \
    }                                                                                                                  \
    static Result WINAPI standInFor##Name Parameters
#else
#define STAND_IN(Result, Name, Parameters) Result Name Parameters
#endif
