#pragma once

#include "host/interpreter/Value.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

// Numbers as the printers write them and as the reader and the conversions scan them. The locale plays no part.
namespace lisp {

// Six significant digits, always with a point or an exponent that tells a real from an integer: 1.0, 0.5, 1.0e+06.
std::u16string realText(double number);

using Number = std::variant<std::int32_t, double>;

// The number that a whole token is; nothing for any other token, which is then a symbol. An integer beyond ±2147483647
// is a real, and so is one with a point ("42.") or an exponent.
std::optional<Number> scanNumber(std::u16string_view token);

struct ScannedReal
{
    double value = 0.0;
    std::size_t length = 0; // characters used, 0: the text does not begin with a number
};

// The longest real that the text begins with, sign included. One too large for a double is infinite.
ScannedReal scanReal(std::u16string_view text);

// The integer that the text begins with after blanks, 0 if there is none; the nearest one if it does not fit.
std::int32_t leadingInteger(std::u16string_view text);
// The real that the text begins with after blanks, 0.0 if there is none.
double leadingReal(std::u16string_view text);

inline Value toValue(const Number &number)
{
    if (const auto *integer = std::get_if<std::int32_t>(&number))
        return Value::integer(*integer);
    return Value::real(std::get<double>(number));
}

} // namespace lisp
