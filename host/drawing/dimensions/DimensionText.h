#pragma once

#include "host/drawing/dimensions/DimensionStyle.h"

namespace drawing {

// A length as dimensions show it. "<>" in a text is the length; the empty text is the length alone.
std::u16string dimensionText(const DimensionStyle &style, double length, const std::u16string &typed,
                             std::u16string_view prefix = {});

// The same of an angle in radians, which is shown in degrees.
std::u16string angleText(const DimensionStyle &style, double angle, const std::u16string &typed);

// What stands ahead of the lengths that dimensions of radii and diameters show.
inline constexpr std::u16string_view RadiusPrefix = u"R", DiameterPrefix = u"%%c";

} // namespace drawing
