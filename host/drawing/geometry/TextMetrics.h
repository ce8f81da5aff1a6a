#pragma once

#include <string>
#include <string_view>

namespace geometry {

// What a text style says of its font, as it stands in the drawing. Which font there is for it the metrics know.
struct Font
{
    std::u16string file;   // "romans.shx", "arial.ttf"; may lack the suffix
    std::u16string family; // of an outline font, "Arial"; empty for the others and in older drawings
    bool isBold = false, isItalic = false;
    bool operator==(const Font &) const = default;
};

// The size of a string in capital letters' heights, from where it begins on the base line.
struct TextSize
{
    double advance = 0;                              // where a string after it would begin
    double left = 0, bottom = 0, right = 0, top = 0; // what is inked; right < left: nothing, as of spaces
    bool hasInk() const { return right >= left; }
};

class TextMetrics
{
public:
    virtual ~TextMetrics() = default;
    virtual TextSize measure(const Font &font, std::u16string_view text) const = 0;
    virtual double descent(const Font &font) const = 0; // how far below the base line letters reach, positive
};

} // namespace geometry
