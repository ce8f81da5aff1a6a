#pragma once

#include <string>

// Decimal notation as the unit conversions write it.
namespace lisp {

// How the drawing wants units written: the values of UNITMODE and DIMZIN.
struct UnitStyle
{
    int unitMode = 0;        // other than 0: as it is typed, 1'5-1/2" for 1'-5 1/2"
    int zeroSuppression = 0; // 0-3: feet and inches that are zero; +4: leading zeros; +8: trailing zeros
};

// The largest number of decimals that is written; a double has no more to say.
inline constexpr int MaximumDecimals = 20;

// With this many decimals. A value exactly half-way is rounded away from zero, and there is no negative zero.
std::u16string fixedText(double number, int decimals);
// One digit before the point and an exponent: 1.7500E+01.
std::u16string scientificText(double number, int decimals, int zeroSuppression);
// A decimal number without the leading (4) and trailing (8) zeros that zeroSuppression names.
std::u16string withoutZeros(std::u16string text, int zeroSuppression);

} // namespace lisp
