#pragma once

#include "host/drawing/entities/ValueChange.h"
#include "host/interpreter/Value.h"

#include <optional>

// What a list says anew that holds a record's listing with other values here and there, as programs put them into what
// entget gave them. `list` is without the record's name. Nothing for any other list: one of other groups, or of another
// order, or with another head, or with extended data.
std::optional<drawing::ValueChanges> changedValues(const drawing::Drawing &drawing,
                                                   const drawing::EntityListing &listing, lisp::Value list);
