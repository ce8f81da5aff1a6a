#pragma once

// Marks what the host's library of windows exports. The library itself is compiled with FX_UI_BUILD.
#if defined(_WIN32) && defined(FX_UI_BUILD)
#define FX_UI_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define FX_UI_EXPORT __declspec(dllimport)
#else
#define FX_UI_EXPORT __attribute__((visibility("default")))
#endif
