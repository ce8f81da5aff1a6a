#pragma once

// A dynamic library that a test opens and closes as a host does.

#ifdef _WIN32

#include <windows.h>

inline void *openLibrary(const char *file)
{
    return LoadLibraryA(file);
}

inline bool closeLibrary(void *library)
{
    return FreeLibrary(static_cast<HMODULE>(library)) != FALSE;
}

inline void *functionOf(void *library, const char *name)
{
    return reinterpret_cast<void *>(GetProcAddress(static_cast<HMODULE>(library), name));
}

inline bool isOpen(const char *file)
{
    return GetModuleHandleA(file) != nullptr;
}

#else

#include <dlfcn.h>

inline void *openLibrary(const char *file)
{
    return dlopen(file, RTLD_NOW);
}

inline bool closeLibrary(void *library)
{
    return dlclose(library) == 0;
}

inline void *functionOf(void *library, const char *name)
{
    return dlsym(library, name);
}

inline bool isOpen(const char *file)
{
    return dlopen(file, RTLD_NOW | RTLD_NOLOAD) != nullptr;
}

#endif
