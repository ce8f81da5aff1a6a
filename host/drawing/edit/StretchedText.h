#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Matrix.h"

#include <optional>

namespace drawing {

// The groups of a TEXT, ATTRIB, ATTDEF, SHAPE or MTEXT whose letters stand where any affine matrix takes them, leaning
// and as wide as it makes them; also the other way round, as in a mirror. None when it leaves a line of their plane.
std::optional<GroupList> stretchedText(const Drawing &drawing, GroupList text, const geometry::Matrix &matrix);
bool isTextType(std::u16string_view type); // one of these

} // namespace drawing
