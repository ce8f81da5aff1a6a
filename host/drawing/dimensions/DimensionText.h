#pragma once

#include "host/drawing/dimensions/DimensionStyle.h"

namespace drawing {

// A length as dimensions show it. "<>" in a text is the length; the empty text is the length alone.
std::u16string dimensionText(const DimensionStyle &style, double length, const std::u16string &typed,
                             std::u16string_view prefix = {});

// What stands ahead of the lengths that dimensions of radii and diameters show.
inline constexpr std::u16string_view RadiusPrefix = u"R", DiameterPrefix = u"%%c";

} // namespace drawing
