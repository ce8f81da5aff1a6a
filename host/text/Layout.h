#pragma once

#include "host/text/Faces.h"

#include <cstdint>
#include <optional>
#include <string>

namespace text {

// A colour that stands in the text itself.
struct InlineColor
{
    int index = -1; // as in group 62; negative: the text's own
    std::optional<std::uint32_t> rgb;
    bool operator==(const InlineColor &) const = default;
};

// A letter at its place: the glyph's (x, y) stands at at + height * (widthFactor * x + slant * y, y).
struct PlacedGlyph
{
    const Glyph *glyph = nullptr;
    Place at;
    double height = 1;
    double widthFactor = 1;
    double slant = 0;
    InlineColor color = {};

    Place place(const Place &p) const
    {
        return {at.x + height * (widthFactor * p.x + slant * p.y), at.y + height * p.y};
    }
};

// A line under, over or through letters, or between the halves of a fraction.
struct Rule
{
    Place from, to;
    InlineColor color = {};
};

struct Layout
{
    std::vector<PlacedGlyph> glyphs;
    std::vector<Rule> rules;
    double width = 0; // from the first letter's origin to where a next one would stand, spaces too

    void append(const Layout &other, const Place &by);
    Bounds bounds() const; // of the letters alone
};

// One line of text as in TEXT, from (0, 0) along the x axis, in capital heights. Knows %%c, %%d, %%p, %%% and %%nnn for
// characters, and %%u, %%o and %%k, which switch a line under, over and through the letters on and off.
Layout layOutLine(std::u16string_view string, const FontName &font);

} // namespace text
