#pragma once

#include "host/text/FontFiles.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>
#include <vector>

namespace text {

struct Place
{
    double x = 0, y = 0;
    bool operator==(const Place &) const = default;
};

// A box with edges along the axes; empty until something was added.
struct Bounds
{
    double left = INFINITY, bottom = INFINITY, right = -INFINITY, top = -INFINITY;

    bool isEmpty() const { return !(left <= right); }
    void add(const Place &place)
    {
        left = std::min(left, place.x);
        bottom = std::min(bottom, place.y);
        right = std::max(right, place.x);
        top = std::max(top, place.y);
    }
};

// A letter in units of the height of a capital letter, from its origin on the base line. The outline is filled where a
// line from it leaves through the loops with a winding number other than zero; its curves are cut into lines.
struct Glyph
{
    double advance = 0;
    Bounds bounds; // of the exact curves; empty for a space
    std::vector<std::vector<Place>> outline;
};

// One font. A character that it lacks comes from the fallback font, scaled to the same capitals.
class Face
{
public:
    Face(FontFile file, const Face *fallback);
    ~Face();
    Face(const Face &) = delete;
    Face &operator=(const Face &) = delete;

    const Glyph &glyph(char32_t character) const; // stays valid
    bool has(char32_t character) const;

private:
    struct Font;

    Glyph read(int index) const;

    std::unique_ptr<Font> m_font;
    const Face *m_fallback;
    mutable std::unordered_map<char32_t, Glyph> m_glyphs;
};

} // namespace text
