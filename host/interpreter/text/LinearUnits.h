#pragma once

#include "host/interpreter/text/DecimalText.h"

#include <optional>
#include <string>
#include <string_view>

// Distances as text, in the modes of LUNITS.
namespace lisp {

inline constexpr double InchesPerFoot = 12.0;

enum class LinearUnits { Scientific = 1, Decimal, Engineering, Architectural, Fractional };

// The mode of this number, nothing if there is none.
std::optional<LinearUnits> linearUnits(int mode);

// `precision` is the number of decimals, or the power of two that is the largest denominator of a fraction. What is
// rounded up carries: 11.99999 inches are 1'.
std::u16string rtos(double number, LinearUnits mode, int precision, UnitStyle style);

// Reads what rtos writes and what people type: feet and inches in the engineering and architectural modes, fractions in
// every mode. Nothing if the whole text does not fit.
std::optional<double> distof(std::u16string_view text, LinearUnits mode);

} // namespace lisp
