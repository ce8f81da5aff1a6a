#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <span>

// Lineweights as group 370 has them.
namespace drawing {

// The three that stand for another's weight, then hundredths of a millimetre. There are no others: a file with another
// one is not read everywhere.
inline constexpr int lineweights[] = {-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                      50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
inline constexpr int DefaultLineweight = -3, LineweightByBlock = -2, LineweightByLayer = -1;

// The nearest one that there is; the thinner of two that are as near.
constexpr int nearestLineweight(std::int64_t weight)
{
    int below = lineweights[0];
    for (const int above : std::span(lineweights).subspan(1)) {
        if (weight <= above)
            return weight - below <= above - weight ? below : above;
        below = above;
    }
    return below;
}

// The nearest one to a width, which is not negative.
inline int lineweightOf(double millimetres)
{
    constexpr double Hundredths = 100, Thickest = std::end(lineweights)[-1];
    return nearestLineweight(std::llround(std::min(millimetres * Hundredths, Thickest)));
}

} // namespace drawing
