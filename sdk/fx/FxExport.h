#pragma once

// Marks what the host kernel library exports. The library itself is compiled with FX_BUILD.
#if defined(_WIN32) && defined(FX_BUILD)
#define FX_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define FX_EXPORT __declspec(dllimport)
#else
#define FX_EXPORT __attribute__((visibility("default")))
#endif
