#pragma once

#include "host/drawing/Drawing.h"
#include "host/kernel/variables/VariableTable.h"

#include <optional>
#include <string>

// The name of something that a drawing has, as its record spells it: what a variable is when it is set to the name in
// any case. None: the drawing has no such thing, or it cannot be current, as a frozen layer, or what an external
// reference has brought along.
std::optional<std::u16string> spelledName(const drawing::Drawing &drawing, NameOf what, std::u16string_view name);
