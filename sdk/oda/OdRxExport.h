#pragma once

// Marks what the drawings SDK exports. The library itself is compiled with ODRX_BUILD.
#if defined(_WIN32) && defined(ODRX_BUILD)
#define ODRX_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define ODRX_EXPORT __declspec(dllimport)
#else
#define ODRX_EXPORT __attribute__((visibility("default")))
#endif
