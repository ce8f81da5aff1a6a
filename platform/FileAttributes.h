#pragma once

#include "platform/WindowsTypes.h"

#ifndef _WIN32

inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 1;
inline constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 2;
inline constexpr DWORD FILE_ATTRIBUTE_SYSTEM = 4;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 16;
inline constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 32;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 128; // no other bit is set
inline constexpr DWORD FILE_ATTRIBUTE_TEMPORARY = 256;
inline constexpr DWORD FILE_ATTRIBUTE_OFFLINE = 4096;
inline constexpr DWORD FILE_ATTRIBUTE_NOT_CONTENT_INDEXED = 8192;
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

// The attributes of a file or directory; a symbolic link is followed. INVALID_FILE_ATTRIBUTES and the last error when
// there is none.
//
// DIRECTORY is the file's type and READONLY the lack of its owner-write permission; the rest stand in the extended
// attribute user.DOSATTRIB, which file servers for Windows clients use too. A regular file without it has ARCHIVE.
DWORD GetFileAttributesW(LPCWSTR fileName);

// Sets the attributes that can be set and clears those that are not named; 0 and NORMAL clear them all. TRUE, or FALSE
// and the last error. Where the file system keeps no extended attributes, READONLY alone takes effect.
BOOL SetFileAttributesW(LPCWSTR fileName, DWORD attributes);

#endif
