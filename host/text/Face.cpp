#include "host/text/Face.h"

#include <cassert>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wcast-align"
#pragma GCC diagnostic ignored "-Wunused-parameter"
#define STBTT_STATIC
#define STB_TRUETYPE_IMPLEMENTATION
#include <stb/stb_truetype.h>
#pragma GCC diagnostic pop

namespace text {

struct Face::Font
{
    stbtt_fontinfo info = {};
    double scale = 1; // from the font's units to capital heights
};

namespace {

constexpr int PiecesOfCurve = 6; // a quarter of a letter O stays within 1/200 of its height

Place pointOn(const Place &from, const Place &control, const Place &to, double t)
{
    const double a = (1 - t) * (1 - t), b = 2 * t * (1 - t), c = t * t;
    return {a * from.x + b * control.x + c * to.x, a * from.y + b * control.y + c * to.y};
}

} // namespace

Face::Face(FontFile file, const Face *fallback) : m_font(std::make_unique<Font>()), m_fallback(fallback)
{
    const unsigned char *data = fontFile(file).data();
    [[maybe_unused]] const int isRead = stbtt_InitFont(&m_font->info, data, stbtt_GetFontOffsetForIndex(data, 0));
    assert(isRead);
    int left, bottom, right, top;
    const bool hasCapital = stbtt_GetCodepointBox(&m_font->info, 'H', &left, &bottom, &right, &top) && top > 0;
    m_font->scale = hasCapital ? 1.0 / top : 1;
}

Face::~Face() = default;

bool Face::has(char32_t character) const
{
    return stbtt_FindGlyphIndex(&m_font->info, static_cast<int>(character)) != 0;
}

const Glyph &Face::glyph(char32_t character) const
{
    const auto known = m_glyphs.find(character);
    if (known != m_glyphs.end())
        return known->second;
    if (m_fallback && !has(character) && m_fallback->has(character))
        return m_fallback->glyph(character);
    const int index = stbtt_FindGlyphIndex(&m_font->info, static_cast<int>(character));
    return m_glyphs.emplace(character, read(index)).first->second;
}

Glyph Face::read(int index) const
{
    Glyph glyph;
    const double scale = m_font->scale;
    int advance, bearing, left, bottom, right, top;
    stbtt_GetGlyphHMetrics(&m_font->info, index, &advance, &bearing);
    glyph.advance = advance * scale;
    if (stbtt_GetGlyphBox(&m_font->info, index, &left, &bottom, &right, &top) && left <= right) {
        glyph.bounds.add({left * scale, bottom * scale});
        glyph.bounds.add({right * scale, top * scale});
    }
    stbtt_vertex *vertices = nullptr;
    const int count = stbtt_GetGlyphShape(&m_font->info, index, &vertices);
    for (const stbtt_vertex *vertex = vertices; vertex != vertices + count; ++vertex) {
        const Place to{vertex->x * scale, vertex->y * scale};
        if (vertex->type == STBTT_vmove)
            glyph.outline.emplace_back();
        if (vertex->type == STBTT_vcurve) {
            const Place from = glyph.outline.back().back(), control{vertex->cx * scale, vertex->cy * scale};
            for (int piece = 1; piece < PiecesOfCurve; ++piece)
                glyph.outline.back().push_back(pointOn(from, control, to, static_cast<double>(piece) / PiecesOfCurve));
        }
        glyph.outline.back().push_back(to);
    }
    stbtt_FreeShape(&m_font->info, vertices);
    return glyph;
}

} // namespace text
