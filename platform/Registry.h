#pragma once

#include "platform/LastError.h"
#include "platform/WindowsTypes.h"

#ifndef _WIN32

#include "storage/RegistryText.h"

// The registry, as documented at learn.microsoft.com/windows/win32/sysinfo/registry-functions. Each call gives
// ERROR_SUCCESS or an error; the last error is left alone. Names are UTF-16, end at their NUL, and are told apart
// without regard to case. A path may go through several keys, with backslashes between them.
//
// What is simpler than on Windows: HKEY_CURRENT_USER is a root of its own and not a key of HKEY_USERS.
// HKEY_CLASSES_ROOT is Software\Classes of the local machine; opening a key there gives that of
// HKEY_CURRENT_USER\Software\Classes where there is one, but the two are not merged. Keys have no owners, classes and
// times, and there is one view for programs of 32 and 64 bits.

using LSTATUS = LONG;
using REGSAM = DWORD;
using HKEY = struct RegistryHandle *;

struct FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

inline const HKEY HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(std::uintptr_t{0x80000000});
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001});
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(std::uintptr_t{0x80000002});
inline const HKEY HKEY_USERS = reinterpret_cast<HKEY>(std::uintptr_t{0x80000003});
inline const HKEY HKEY_CURRENT_CONFIG = reinterpret_cast<HKEY>(std::uintptr_t{0x80000005});

inline constexpr DWORD REG_NONE = 0;
inline constexpr DWORD REG_SZ = RegistryText;
inline constexpr DWORD REG_EXPAND_SZ = RegistryExpandableText;
inline constexpr DWORD REG_BINARY = RegistryBinary;
inline constexpr DWORD REG_DWORD = RegistryNumber;
inline constexpr DWORD REG_MULTI_SZ = RegistryTexts;
inline constexpr DWORD REG_QWORD = 11;

inline constexpr REGSAM KEY_QUERY_VALUE = 0x1;
inline constexpr REGSAM KEY_SET_VALUE = 0x2;
inline constexpr REGSAM KEY_CREATE_SUB_KEY = 0x4;
inline constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x8;
inline constexpr REGSAM KEY_READ = 0x20019;
inline constexpr REGSAM KEY_WRITE = 0x20006;
inline constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_CREATED_NEW_KEY = 1;
inline constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

// A handle has the rights that it was opened with (ERROR_ACCESS_DENIED); RegOpenKeyW gives all. Close handles with
// RegCloseKey; closing a root does nothing.
LSTATUS RegOpenKeyW(HKEY key, LPCWSTR path, HKEY *result); // without a path: the same handle
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD options, REGSAM access, HKEY *result);
LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved, LPWSTR keyClass, DWORD options, REGSAM access,
                        const void *security, HKEY *result, DWORD *disposition);
LSTATUS RegCloseKey(HKEY key);
LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR path);  // refuses a key with keys below
LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR path); // without a path: what the key holds, not the key

// A null or empty name is the key's unnamed value. *size is in bytes: of the buffer, then of the data. Texts need not
// have been written with a terminator; where the buffer has room it is added, and not counted, except to no bytes at
// all.
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD *reserved, DWORD *type, BYTE *data, DWORD *size);
LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE *data, DWORD size);
LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name);

// Lengths of names are in UTF-16 units: of the buffer with, of the name without its terminator.
LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, DWORD *length, DWORD *reserved, LPWSTR keyClass,
                      DWORD *classLength, FILETIME *written);
LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, DWORD *length, DWORD *reserved, DWORD *type, BYTE *data,
                      DWORD *size);
LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR keyClass, DWORD *classLength, DWORD *reserved, DWORD *keys, DWORD *longestKey,
                         DWORD *longestClass, DWORD *values, DWORD *longestValue, DWORD *mostData, DWORD *securitySize,
                         FILETIME *written);

#endif
