#pragma once

#include "host/drawing/Database.h"
#include "host/text/Layout.h"

#include <unordered_map>

namespace render {

// What a text style says of fonts.
struct TextStyle
{
    std::u16string font;
    bool isBold = false, isItalic = false;
    double widthFactor = 1;
    double slant = 0; // tangent of the oblique angle

    text::FontName fontName() const { return {font, isBold, isItalic}; }
};

class TextStyles
{
public:
    explicit TextStyles(const drawing::Database &database) : m_database(database) {}
    const TextStyle &of(drawing::RecordId style) const; // stays valid; NoRecord gives a plain one

private:
    TextStyle read(drawing::RecordId id) const;

    const drawing::Database &m_database;
    mutable std::unordered_map<drawing::RecordId, TextStyle> m_styles;
};

} // namespace render
