#pragma once

#include "host/drawing/GroupCursor.h"

#include <cstdint>
#include <string>
#include <string_view>

// Reads the values of raw groups. What is no number reads as 0, what is out of range as the nearest that is in it.
namespace drawing {

// Whether a number is written as most are: a sign, digits, and for reals a point; of integers so few that any kind has
// room for them.
inline bool isUsualNumber(std::string_view value, bool isReal)
{
    constexpr int FewDigits = 4;
    const char *at = value.data(), *const end = at + value.size();
    while (at != end && *at == ' ')
        ++at;
    at += at != end && *at == '-';
    int digits = 0;
    bool hasPoint = !isReal;
    for (; at != end; ++at) {
        if (static_cast<unsigned char>(*at) - unsigned{'0'} <= 9)
            ++digits;
        else if (*at == '.' && !hasPoint)
            hasPoint = true;
        else
            return false;
    }
    return digits > 0 && (isReal || digits <= FewDigits);
}

std::int64_t integerOf(const RawGroup &group, FileFormat::Kind kind);
double realOf(const RawGroup &group, FileFormat::Kind kind);
std::uint64_t handleOf(std::string_view text);    // hexadecimal digits, in either kind of file
std::uint64_t handleOf(std::u16string_view text); // the same in a value that is kept as text
std::string bytesOf(const RawGroup &group, FileFormat::Kind kind);

// Whether the value is a number that fits where its code says that it has one. All groups of a file are asked.
bool isUnusualNumberReadable(const RawGroup &group, FileFormat::Kind kind);
inline bool isReadable(const RawGroup &group, FileFormat::Kind kind)
{
    const ValueKind valueKind = drawing::valueKind(group.code);
    const bool isReal = valueKind == ValueKind::Real;
    if (!isReal && !isInteger(valueKind))
        return true;
    return (kind == FileFormat::Kind::Text && isUsualNumber(group.value, isReal)) ||
           isUnusualNumberReadable(group, kind);
}

} // namespace drawing
