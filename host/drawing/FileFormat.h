#pragma once

#include <cstddef>
#include <string_view>

namespace drawing {

// How a file writes its groups. New groups are written in the same way.
struct FileFormat
{
    enum class Kind {
        Text,
        Binary,
        BinaryShortCodes // up to R12: one byte for a code, 255 before a code of two bytes
    };
    enum class Codes { Bare, Padded }; // "0" or "  0"

    Kind kind = Kind::Text;
    Codes codes = Codes::Padded;
    std::string_view lineEnd = "\r\n"; // of the text form; its last character ends every line

    char lineEndMark() const { return lineEnd.back(); }
};

// The beginning of every binary file.
inline constexpr std::string_view BinarySentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);

FileFormat detectFormat(std::string_view bytes);

// Where the first group begins: after the sentinel or a byte order mark.
std::size_t groupsBegin(std::string_view bytes);

} // namespace drawing
