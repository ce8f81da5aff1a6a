#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/Layouts.h"

#include <optional>

namespace drawing {

// Layouts made, changed and shown. The current one holds its entities in the ENTITIES section, each other one in a
// block "*Paper_Space…" of its own. None of this is for the model, or for drawings before R2000, which have one sheet.

// Makes it the current one: its entities change places with those of the other.
bool activateLayout(Drawing &drawing, const Layout &layout);

// A new empty layout with the page setup of the original; none when the name is taken.
std::optional<Layout> addLayout(Drawing &drawing, const Layout &original, const std::u16string &name);
bool renameLayout(Drawing &drawing, const Layout &layout, const std::u16string &name);
// With its entities. False for the only one, and where no other can become the current one in its place.
bool deleteLayout(Drawing &drawing, const Layout &layout);

} // namespace drawing
