#pragma once

#include "host/drawing/Database.h"

namespace drawing {

// The variables of the HEADER section, by their names with the dollar sign.

RecordId findVariable(const Database &database, std::string_view name);
std::optional<Group> variable(const Database &database, std::string_view name); // its value; none: it is not there
// Adds the variable when it is not there. False when the value cannot be written.
bool setVariable(Database &database, std::string_view name, const Group &value);

} // namespace drawing
