#pragma once

#include <optional>
#include <string_view>

// Units of measure and what they are worth, from their public definitions: the International System (BIPM, "The
// International System of Units"), and for customary units NIST Special Publication 811, appendix B.
namespace lisp {

struct UnitConversion
{
    double factor = 1, offset = 0;

    double convert(double number) const { return number * factor + offset; }
};

// From one unit to another: names in singular or plural ("foot", "feet", "inches"), symbols ("ft", "kW", "mm"), with
// "sq" or "cu" in front, powers ("ft^2"), products and quotients ("m/s", "newton*meter"). Nothing when a unit is not
// known or they do not measure the same. Names are known in any case, symbols as they are written.
std::optional<UnitConversion> unitConversion(std::u16string_view from, std::u16string_view to);

} // namespace lisp
