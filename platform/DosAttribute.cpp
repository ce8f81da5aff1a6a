#include "platform/DosAttribute.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <sys/xattr.h>

namespace {

constexpr char attributeName[] = "user.DOSATTRIB";

// The binary record, little-endian: an empty text and its padding (2 bytes), the version (2), the version again and
// padding (4), which fields hold something (4), the attribute word (4), the time of birth (8).
constexpr std::size_t recordSize = 24;
constexpr std::size_t validFieldsOffset = 8;
constexpr std::size_t wordOffset = 12;
constexpr DWORD wordIsValid = 1;

DWORD littleEndianWord(std::string_view bytes, std::size_t offset)
{
    DWORD word = 0;
    for (std::size_t index = 4; index-- > 0;)
        word = word << 8 | static_cast<unsigned char>(bytes[offset + index]);
    return word;
}

std::optional<DWORD> parseHexadecimal(std::string_view digits)
{
    DWORD word = 0;
    const std::from_chars_result result = std::from_chars(digits.data(), digits.data() + digits.size(), word, 16);
    return result.ec == std::errc() ? std::optional(word) : std::nullopt;
}

std::optional<DWORD> parseRecord(std::string_view record)
{
    const bool hasWord = (littleEndianWord(record, validFieldsOffset) & wordIsValid) != 0;
    return hasWord ? std::optional(littleEndianWord(record, wordOffset)) : std::nullopt;
}

} // namespace

std::optional<DWORD> parseDosAttribute(std::string_view value)
{
    if (value.starts_with("0x"))
        return parseHexadecimal(value.substr(2));
    if (value.size() == recordSize && value[0] == '\0')
        return parseRecord(value);
    return std::nullopt;
}

std::optional<DWORD> readDosAttribute(const char *path)
{
    std::array<char, 256> value; // longer values are of no known form
    const ssize_t size = getxattr(path, attributeName, value.data(), value.size());
    if (size < 0)
        return std::nullopt;
    return parseDosAttribute({value.data(), static_cast<std::size_t>(size)});
}

int writeDosAttribute(const char *path, DWORD word)
{
    std::array<char, 16> value;
    const int size = std::snprintf(value.data(), value.size(), "0x%x", word);
    if (setxattr(path, attributeName, value.data(), static_cast<std::size_t>(size), 0) == 0)
        return 0;
    return errno == ENOTSUP || errno == EPERM ? 0 : errno;
}
