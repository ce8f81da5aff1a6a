#pragma once

#include "host/interpreter/text/DecimalText.h"

#include <optional>
#include <string>
#include <string_view>

// Angles as text, in the modes of AUNITS. Angles in the interface are radians.
namespace lisp {

enum class AngularUnits { Degrees, DegreesMinutesSeconds, Grads, Radians, Surveyor };

// The mode of this number, nothing if there is none.
std::optional<AngularUnits> angularUnits(int mode);

// The angle is first brought between 0 and a full turn. `precision` is the number of decimals; with minutes and seconds
// 0 stops at degrees, 2 at minutes, 4 at seconds (1 and 3 at the tens of them), and what is above 4 are decimals of
// seconds.
std::u16string angtos(double angle, AngularUnits units, int precision, UnitStyle style);

// Reads what angtos writes and what people type; a suffix (d g r) or a bearing (N … E) goes before `units`. Gives an
// angle between 0 and a full turn, nothing if the whole text does not fit.
std::optional<double> angtof(std::u16string_view text, AngularUnits units);

} // namespace lisp
