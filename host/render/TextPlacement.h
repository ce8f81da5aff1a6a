#pragma once

#include "host/drawing/geometry/Shapes.h"
#include "host/text/Layout.h"

namespace render {

// Puts a line that begins at (0, 0) as the text is aligned, in text heights from its insertion point. Aligned texts
// become as large as fits between their points, fitted ones as wide.
text::Layout placed(const text::Layout &line, const geometry::Text &text);

} // namespace render
