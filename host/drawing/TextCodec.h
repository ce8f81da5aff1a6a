#pragma once

#include "host/drawing/CodePage.h"

#include <string>
#include <string_view>

namespace drawing {

// Texts of a drawing: UTF-16 in the program, bytes in the file. In the file a character that the encoding lacks stands
// as \U+XXXX, a control character as ^ and a letter, and ^ itself as "^ ". What decodes encodes to the same bytes
// again, unless the file writes \U+ for a character that its encoding has.
class TextCodec
{
public:
    TextCodec() = default; // UTF-8, as drawings since R2007
    explicit TextCodec(const CodePage &codePage) : m_codePage(&codePage) {}

    std::u16string decode(std::string_view bytes) const;
    bool decodesTo(std::string_view bytes, std::u16string_view text) const; // without memory of its own for ASCII
    static bool isPlain(std::string_view bytes);                            // decodes to the same ASCII characters
    std::string encode(std::u16string_view text) const;

private:
    void encodeUnit(std::u16string_view text, std::size_t &at, std::string &bytes) const;

    const CodePage *m_codePage = nullptr;
};

// Of DXF's own names and values, which are ASCII.
std::u16string widened(std::string_view ascii);

// To compare names by: they differ in case alone when this is equal.
std::u16string folded(std::u16string_view name);

} // namespace drawing
