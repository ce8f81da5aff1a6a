#pragma once

#include "host/text/Face.h"

#include <string_view>

namespace text {

// A font as a drawing asks for it: the name of its file ("simplex.shx", "arial.ttf") or of its family ("Arial").
struct FontName
{
    std::u16string_view name;
    bool isBold = false;
    bool isItalic = false;
};

// The font that stands for it. Drawings ask for fonts that few machines have, so that every one is replaced:
//
//     txt, simplex, romans, isocp…, gost, others in .shx      an evenly thin technical font
//     complex, romanc, romant, romand, times, georgia, …      a font with serifs
//     italic, italicc, italict                                the same, slanted
//     monotxt, courier, consolas, lucida console              a font with equal widths
//     arialn, names with "narrow" or "condensed"              a narrow font
//     all others                                              a font without serifs
const Face &faceFor(const FontName &font);

} // namespace text
