#pragma once

#include "host/drawing/geometry/EntityShapes.h"
#include "host/drawing/geometry/TextMetrics.h"

#include <array>
#include <optional>

namespace geometry {

Font fontOf(const drawing::Database &database, drawing::RecordId style); // NoRecord: of a style that names none
Font fontOf(const drawing::Database &database, const Text &text);

// Where the glyphs stand: from places in capital letters' heights, from the beginning of the base line, to the world.
Matrix placement(const Text &text, const drawing::Database &database, const TextMetrics &metrics);

// The corners of the box about the ink, along the text's own directions. None: there is no ink.
std::optional<std::array<Vector, 4>> inkCorners(const Text &text, const drawing::Database &database,
                                                const TextMetrics &metrics);

// The texts that paragraphs are made of, after lines are broken and formatting codes resolved. Fractions are set in a
// line ("1/2"), and lines are not justified.
std::vector<Text> linesOf(const Paragraphs &paragraphs, const drawing::Database &database, const TextMetrics &metrics);

} // namespace geometry
