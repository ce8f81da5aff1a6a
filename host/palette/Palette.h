#pragma once

#include <array>
#include <cstddef>

// The standard palette of 256 colours that drawings number their colours by (group 62 of the DXF
// reference). Number 7 is white on dark and black on light backgrounds; 0 stands for the colour of the block.
namespace palette {

struct Color
{
    int red, green, blue;
};

inline constexpr std::size_t Count = 256;
inline constexpr int FirstHue = 10, FirstGrey = 250;

// Six primaries with white behind them, and two greys.
inline constexpr Color basicColors[] = {{0, 0, 0},   {255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},
                                        {0, 0, 255}, {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192}};

// Ten colours of each hue, hues in steps of 15 degrees: five brightnesses, each pure and then half saturated.
constexpr Color hueColor(int index)
{
    constexpr int brightnesses[] = {255, 165, 127, 76, 38};
    constexpr int HuesInSector = 4; // a sector of 60 degrees lies between a primary and the next
    const int hue = index / 10 - 1;
    const int most = brightnesses[index % 10 / 2];
    const int least = index % 2 == 0 ? 0 : most / 2;
    const int step = hue % HuesInSector;
    const int rising = least + (most - least) * step / HuesInSector;
    const int falling = least + (most - least) * (HuesInSector - step) / HuesInSector;
    const Color sectors[] = {{most, rising, least},  {falling, most, least}, {least, most, rising},
                             {least, falling, most}, {rising, least, most},  {most, least, falling}};
    return sectors[hue / HuesInSector];
}

constexpr Color grey(int index)
{
    constexpr int Darkest = 51, White = 255, Steps = 5;
    const int level = Darkest + (White - Darkest) * (index - FirstGrey) / Steps;
    return {level, level, level};
}

inline constexpr std::array<Color, Count> colors = [] {
    std::array<Color, Count> table{};
    for (int index = 0; index < static_cast<int>(Count); ++index)
        table[static_cast<std::size_t>(index)] = index < FirstHue    ? basicColors[index]
                                                 : index < FirstGrey ? hueColor(index)
                                                                     : grey(index);
    return table;
}();

// The number, from 1 on, of the colour that looks most alike; the lowest of several.
constexpr int nearest(const Color &wanted)
{
    const auto square = [](int number) { return number * number; };
    const auto distance = [&](std::size_t index) {
        const Color &color = colors[index];
        return square(color.red - wanted.red) + square(color.green - wanted.green) + square(color.blue - wanted.blue);
    };
    std::size_t best = 1;
    for (std::size_t index = 2; index < Count; ++index)
        best = distance(index) < distance(best) ? index : best;
    return static_cast<int>(best);
}

} // namespace palette
