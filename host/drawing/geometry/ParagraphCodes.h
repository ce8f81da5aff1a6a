#pragma once

#include "host/drawing/geometry/TextMetrics.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace geometry {

// A piece of one look within paragraphs.
struct Run
{
    std::u16string text;
    double height = 1; // of capital letters, in drawing units
    double widthFactor = 1;
    double oblique = 0;       // in degrees
    std::optional<Font> font; // where it is not the style's
};

// The paragraphs of a text with the formatting codes of MTEXT. What the codes say of colours, lines at the text,
// tabulators and indents is left out; the parts of a fraction are joined with "/".
std::vector<std::vector<Run>> paragraphsOf(std::u16string_view text, double height);

} // namespace geometry
