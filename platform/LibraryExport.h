#pragma once

// Marks a function that a library hands out by its plain name.
#ifdef _WIN32
#define LIBRARY_EXPORT extern "C" __declspec(dllexport)
#else
#define LIBRARY_EXPORT extern "C" __attribute__((visibility("default")))
#endif
