#include "sdk/oda/OdCmEntityColor.h"

#include "host/palette/Palette.h"

std::uint8_t OdCmEntityColor::lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return static_cast<std::uint8_t>(palette::nearest({red, green, blue}));
}
