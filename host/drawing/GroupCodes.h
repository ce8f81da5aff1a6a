#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// What the group codes of a DXF file say about their values ("Group Code Value Types" of the DXF reference).
namespace drawing {

enum class ValueKind : std::uint8_t {
    Text,
    Handle,    // a handle as text: of the record itself, or in extended data
    Reference, // the handle of another record
    Real,
    Integer16,
    Integer32,
    Integer64,
    Boolean,
    Binary,
    Point, // two or three reals in groups of their own; never the kind of a code
};

namespace groupcode {
inline constexpr int Type = 0, PrimaryText = 1, Name = 2, EntryName = 3, Handle = 5, Layer = 8, VariableName = 9;
inline constexpr int FirstX = 10, Space = 67, Count = 70, VertexCount = 90, Subclass = 100, EmbeddedObject = 101,
                     Braces = 102, DimStyleHandle = 105;
inline constexpr int Owner = 330, SoftEntry = 350, HardEntry = 360;
inline constexpr int Comment = 999, ExtendedString = 1000, Application = 1001, ExtendedBinary = 1004;
inline constexpr int YOffset = 10, ZOffset = 20; // from the code of a point's x to those of its y and z
} // namespace groupcode

inline constexpr int KnownCodes = 1072; // from 0 up
extern const std::array<ValueKind, KnownCodes> valueKinds;

// Codes that the reference does not name have texts.
inline ValueKind valueKind(int code)
{
    return code >= 0 && code < KnownCodes ? valueKinds[static_cast<std::size_t>(code)] : ValueKind::Text;
}

// Whether a group may be the x of a point. It is one when the group after it has the code of its y.
constexpr bool mayBeginPoint(int code)
{
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || (code >= 210 && code <= 213) ||
           (code >= 1010 && code <= 1013);
}

inline bool isInteger(ValueKind kind)
{
    return kind >= ValueKind::Integer16 && kind <= ValueKind::Boolean;
}

} // namespace drawing
