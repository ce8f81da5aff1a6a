#pragma once

#include "sdk/oda/OdRxExport.h"

#include <cstdint>

// Colours of entities.
class ODRX_EXPORT OdCmEntityColor
{
public:
    // The index, 1 to 255, of the colour of the standard palette that comes nearest: the least sum of the squares of
    // the differences in red, green and blue. The lowest index of several.
    static std::uint8_t lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
};
