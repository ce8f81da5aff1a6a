#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace commands {

inline constexpr double MillimetresPerInch = 25.4;

struct PaperSize
{
    std::u16string_view name; // empty: of no known name
    double width, height;     // millimetres, the narrow edge first
};

const std::vector<PaperSize> &paperSizes();

// By a name ("A3", "ISO full bleed A3", "ANSI_B"), or by the size that a printer's name has in parentheses
// ("(420.00_x_297.00_MM)", "(8.50 x 11.00 Inches)"), which counts first. None: it is neither.
std::optional<PaperSize> paperSize(std::u16string_view typed);

} // namespace commands
