#pragma once

#include "platform/WindowsTypes.h"

#include <optional>
#include <string_view>

// The extended attribute user.DOSATTRIB of a file. Errors come back as errno values; 0 is success.

// What the attribute's value says: ASCII hexadecimal ("0x22", perhaps with more behind it), or the 24-byte record in
// which file servers keep the word together with the file's time of birth. Empty when it is neither.
std::optional<DWORD> parseDosAttribute(std::string_view value);

// Empty when the file has none, or none that can be read.
std::optional<DWORD> readDosAttribute(const char *path);

// Writes the ASCII form. Needs write permission on the file. A file system without extended attributes, or a kind of
// file that may not have them, is no error.
int writeDosAttribute(const char *path, DWORD word);
