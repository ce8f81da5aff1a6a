#pragma once

#include "host/drawing/geometry/TextMetrics.h"

namespace geometry {

// A font whose letters are all alike: 0.5 wide with ink from 0.1 to 0.4, as high as capitals; "g" reaches 0.25 below
// the base line. Spaces have no ink.
class FixedMetrics final : public TextMetrics
{
public:
    TextSize measure(const Font &, std::u16string_view text) const override
    {
        const std::size_t first = text.find_first_not_of(u' '), last = text.find_last_not_of(u' ');
        TextSize size{0.5 * static_cast<double>(text.size()), 0, 0, -1, 0};
        if (first == text.npos)
            return size;
        size.left = 0.5 * static_cast<double>(first) + 0.1;
        size.right = 0.5 * static_cast<double>(last) + 0.4;
        size.bottom = text.find(u'g') == text.npos ? 0 : -0.25;
        size.top = 1;
        return size;
    }
    double descent(const Font &) const override { return 0.25; }
};

// Texts have no extents.
class NoMetrics final : public TextMetrics
{
public:
    TextSize measure(const Font &, std::u16string_view) const override { return {0, 0, 0, -1, 0}; }
    double descent(const Font &) const override { return 0; }
};

} // namespace geometry
