#pragma once

#include <span>

namespace text {

// The fonts that are part of the program: the content of their TrueType files.
enum class FontFile {
    Sans,
    SansBold,
    SansItalic,
    SansBoldItalic,
    SansNarrow,
    Serif,
    SerifBold,
    SerifItalic,
    Mono,
    Technical, // evenly thin, as lettering by a plotter's pen
    Fallback,  // has the characters that the others lack
    Count
};
std::span<const unsigned char> fontFile(FontFile file);

} // namespace text
