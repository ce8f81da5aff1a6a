#pragma once

#include <limits>
#include <optional>
#include <string_view>

namespace commands {

// The numbers that a question takes, in the terms of initget. Any other is complained about, and the question asked
// again.
struct Limits
{
    bool noZero = false, noNegative = false;

    // None: the number is taken.
    constexpr std::optional<std::u16string_view> complaintAbout(double value) const
    {
        if (noZero && noNegative && !(value > 0))
            return u"Value must be positive and nonzero.";
        if (noZero && value == 0)
            return u"Value must be nonzero.";
        if (noNegative && !(value >= 0))
            return u"Value must be positive.";
        return std::nullopt;
    }
};

inline constexpr Limits Nonzero{true, false}, NotNegative{false, true}, Positive{true, true};

// The same for whole numbers; both ends are taken.
struct Range
{
    int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
};

} // namespace commands
