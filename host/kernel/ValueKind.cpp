#include "host/kernel/ValueKind.h"

#include "lisp/TypeCode.h"

#include <array>
#include <cstddef>

namespace {

struct CodeRange
{
    int first, last;
    ValueKind kind;
};

constexpr CodeRange ranges[] = {
    {-2, -1, ValueKind::Name},
    {0, 9, ValueKind::Text},
    {10, 18, ValueKind::Point},
    {38, 59, ValueKind::Real},
    {60, 79, ValueKind::Short},
    {90, 99, ValueKind::Long},
    {100, 102, ValueKind::Text},
    {105, 105, ValueKind::Text},
    {110, 119, ValueKind::Point},
    {140, 149, ValueKind::Real},
    {160, 169, ValueKind::Real},
    {170, 179, ValueKind::Short},
    {210, 219, ValueKind::Point},
    {270, 299, ValueKind::Short},
    {300, 329, ValueKind::Text},
    {330, 369, ValueKind::Name},
    {370, 389, ValueKind::Short},
    {390, 399, ValueKind::Name},
    {400, 409, ValueKind::Short},
    {410, 419, ValueKind::Text},
    {420, 429, ValueKind::Long},
    {430, 439, ValueKind::Text},
    {440, 459, ValueKind::Long},
    {460, 469, ValueKind::Real},
    {470, 479, ValueKind::Text},
    {480, 481, ValueKind::Name},
    {999, 1009, ValueKind::Text},
    {1010, 1013, ValueKind::Point},
    {1040, 1042, ValueKind::Real},
    {1060, 1070, ValueKind::Short},
    {1071, 1071, ValueKind::Long},
    {TypeReal, TypeReal, ValueKind::Real},
    {TypePoint2d, TypePoint2d, ValueKind::Point},
    {TypeShort, TypeShort, ValueKind::Short},
    {TypeString, TypeString, ValueKind::Text},
    {TypeEntity, TypeSelectionSet, ValueKind::Name},
    {TypePoint3d, TypePoint3d, ValueKind::Point},
    {TypeLong, TypeLong, ValueKind::Long},
};

constexpr int FirstCode = -2, LastCode = TypeLong;

constexpr std::array<ValueKind, LastCode - FirstCode + 1> kinds = [] {
    std::array<ValueKind, LastCode - FirstCode + 1> table{};
    for (const CodeRange &range : ranges)
        for (int code = range.first; code <= range.last; ++code)
            table[static_cast<std::size_t>(code - FirstCode)] = range.kind;
    return table;
}();

} // namespace

ValueKind valueKind(int code)
{
    return code >= FirstCode && code <= LastCode ? kinds[static_cast<std::size_t>(code - FirstCode)] : ValueKind::None;
}
