#include "sdk/oda/OdCmEntityColor.h"

#include "host/palette/Palette.h"

namespace {

constexpr int square(int number)
{
    return number * number;
}

} // namespace

std::uint8_t OdCmEntityColor::lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    std::size_t nearest = 1;
    int least = 4 * square(255);
    for (std::size_t index = 1; index < palette::Count; ++index) {
        const palette::Color &color = palette::colors[index];
        const int distance = square(color.red - red) + square(color.green - green) + square(color.blue - blue);
        if (distance < least) {
            least = distance;
            nearest = index;
        }
    }
    return static_cast<std::uint8_t>(nearest);
}
