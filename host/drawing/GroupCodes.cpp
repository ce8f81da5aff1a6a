#include "host/drawing/GroupCodes.h"

namespace drawing {

namespace {

struct Range
{
    int first, last;
    ValueKind kind;
};

constexpr Range ranges[] = {
    {5, 5, ValueKind::Handle},          {10, 59, ValueKind::Real},        {60, 79, ValueKind::Integer16},
    {90, 99, ValueKind::Integer32},     {105, 105, ValueKind::Handle},    {110, 149, ValueKind::Real},
    {160, 169, ValueKind::Integer64},   {170, 179, ValueKind::Integer16}, {210, 239, ValueKind::Real},
    {270, 289, ValueKind::Integer16},   {290, 299, ValueKind::Boolean},   {310, 319, ValueKind::Binary},
    {320, 369, ValueKind::Reference},   {370, 389, ValueKind::Integer16}, {390, 399, ValueKind::Reference},
    {400, 409, ValueKind::Integer16},   {420, 429, ValueKind::Integer32}, {440, 459, ValueKind::Integer32},
    {460, 469, ValueKind::Real},        {480, 481, ValueKind::Reference}, {1004, 1004, ValueKind::Binary},
    {1005, 1005, ValueKind::Handle},    {1010, 1059, ValueKind::Real},    {1060, 1070, ValueKind::Integer16},
    {1071, 1071, ValueKind::Integer32},
};

} // namespace

constexpr std::array<ValueKind, KnownCodes> valueKinds = [] {
    std::array<ValueKind, KnownCodes> table{};
    for (const Range &range : ranges)
        for (int code = range.first; code <= range.last; ++code)
            table[static_cast<std::size_t>(code)] = range.kind;
    return table;
}();

} // namespace drawing
