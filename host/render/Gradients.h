#pragma once

#include "host/drawing/Database.h"
#include "host/render/DisplayList.h"

#include <optional>

namespace render {

// The gradient that a hatch is filled with, over the bounds of its loops on the page. None when it has none. All kinds
// are drawn as colours that change along a line; those that are the same on both sides change back from the middle on.
std::optional<Gradient> gradientOf(const drawing::Database &database, drawing::RecordId hatch, const QRectF &bounds);

} // namespace render
