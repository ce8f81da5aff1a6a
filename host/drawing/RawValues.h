#pragma once

#include "host/drawing/GroupCursor.h"

#include <cstdint>
#include <string>
#include <string_view>

// Reads the values of raw groups. What is no number reads as 0, what is out of range as the nearest that is in it.
namespace drawing {

std::int64_t integerOf(const RawGroup &group, FileFormat::Kind kind);
double realOf(const RawGroup &group, FileFormat::Kind kind);
std::uint64_t handleOf(std::string_view text);    // hexadecimal digits, in either kind of file
std::uint64_t handleOf(std::u16string_view text); // the same in a value that is kept as text
std::string bytesOf(const RawGroup &group, FileFormat::Kind kind);

} // namespace drawing
