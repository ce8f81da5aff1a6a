#pragma once

// The types of the Win32 calls. Callers hold UTF-16 text as char16_t and pass it through windowsText, so that the same
// source compiles where a wide character is a type of its own.
#ifdef _WIN32

#include <windows.h>

inline LPCWSTR windowsText(const char16_t *text)
{
    return reinterpret_cast<LPCWSTR>(text);
}

inline LPWSTR windowsText(char16_t *text)
{
    return reinterpret_cast<LPWSTR>(text);
}

#else

#include <cstdint>

using BOOL = int;
using BYTE = unsigned char;
using LONG = std::int32_t;
using DWORD = std::uint32_t;
using WCHAR = char16_t;
using LPCWSTR = const WCHAR *;
using LPWSTR = WCHAR *;
using HMODULE = void *;
using HANDLE = void *;
using HINSTANCE = void *;
using HWND = void *; // a QWidget here
using UINT = std::uint32_t;

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
inline constexpr DWORD MAXIMUM_ALLOWED = 0x02000000; // every right that there is
inline constexpr DWORD MAX_PATH = 260;               // UTF-16 units with the terminator

inline LPCWSTR windowsText(const char16_t *text)
{
    return text;
}

inline LPWSTR windowsText(char16_t *text)
{
    return text;
}

#endif
