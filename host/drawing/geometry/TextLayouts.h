#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/geometry/Shapes.h"
#include "host/text/ParagraphLayout.h"

#include <optional>

namespace geometry {

// What a text style says of its letters.
struct TextStyle
{
    std::u16string font; // its family where it has one, else its file
    bool isBold = false, isItalic = false;
    double widthFactor = 1;
    double slant = 0; // tangent of the oblique angle

    text::FontName fontName() const { return {font, isBold, isItalic}; }
};
TextStyle textStyleOf(const drawing::Database &database, drawing::RecordId style); // NoRecord: a plain one

// Where the letters of a text stand, as it is aligned: the layout's place (x, y) is at
// insertion + x * right + y * up.
text::Layout layOut(const Text &text, const TextStyle &style);
text::Layout layOut(const Paragraphs &paragraphs, const TextStyle &style);

// Where the base line of a text begins that is aligned at one place and so wide, in the layout's coordinates.
text::Place baseLineStart(HorizontalAlignment horizontal, VerticalAlignment vertical, double width);

// The box about the letters in the directions of the text, as four corners in the world. None when there is no ink.
template <class AnyText> std::optional<std::array<Vector, 4>> inkCorners(const AnyText &shape, const TextStyle &style)
{
    const text::Bounds ink = layOut(shape, style).bounds();
    if (ink.isEmpty())
        return std::nullopt;
    const auto place = [&](double x, double y) { return shape.insertion + shape.right * x + shape.up * y; };
    return std::array{place(ink.left, ink.bottom), place(ink.right, ink.bottom), place(ink.right, ink.top),
                      place(ink.left, ink.top)};
}

} // namespace geometry
