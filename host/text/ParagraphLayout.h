#pragma once

#include "host/text/Layout.h"

namespace text {

// A text of several lines with formatting codes, as in MTEXT.
struct ParagraphText
{
    std::u16string_view string; // with its codes
    FontName font;
    double height = 1;           // of a capital letter
    double width = 0;            // where lines are broken; 0: nowhere
    double widthFactor = 1;      // of letters
    double slant = 0;            // tangent of the oblique angle
    int attachment = 1;          // 1 to 9: top left, top centre, … bottom right
    double lineSpacing = 1;      // times 5/3 of the height
    bool isExactSpacing = false; // else a line grows with its tallest letter
};

// Sets it around the insertion point (0, 0), y upwards, in the units of `height`. Lines are broken at spaces. Knows
//
//     \P \N \X ^J   new line            \~ \\ \{ \} ^I   characters     \H \W \Q \T   height, width, slant, spacing
//     \L \O \K      lines, \l \o \k end them             \C \c          colours       \F \f font     \A height on line
//     \S            fractions with ^ / #                 \p             indents and alignment of a paragraph
//     { }           limits of what codes change          %%c … \U+XXXX  characters
Layout layOutParagraphs(const ParagraphText &text);

} // namespace text
