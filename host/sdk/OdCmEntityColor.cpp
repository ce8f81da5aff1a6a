#include "sdk/oda/OdCmEntityColor.h"

#include <array>

namespace {

struct Color
{
    int red, green, blue;
};

constexpr int FirstHue = 10, FirstGrey = 250, Indices = 256;

// Six primaries with white behind them, and two greys.
constexpr Color basicColors[] = {{0, 0, 0},   {255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},
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

constexpr std::array<Color, Indices> palette = [] {
    std::array<Color, Indices> colors{};
    for (int index = 0; index < Indices; ++index)
        colors[static_cast<std::size_t>(index)] = index < FirstHue    ? basicColors[index]
                                                  : index < FirstGrey ? hueColor(index)
                                                                      : grey(index);
    return colors;
}();

constexpr int square(int number)
{
    return number * number;
}

} // namespace

std::uint8_t OdCmEntityColor::lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    std::size_t nearest = 1;
    int least = 4 * square(255);
    for (std::size_t index = 1; index < palette.size(); ++index) {
        const Color &color = palette[index];
        const int distance = square(color.red - red) + square(color.green - green) + square(color.blue - blue);
        if (distance < least) {
            least = distance;
            nearest = index;
        }
    }
    return static_cast<std::uint8_t>(nearest);
}
