#pragma once

#include "host/commands/Context.h"

namespace commands {

// A length as dimensions show it: DIMLFAC, DIMRND, DIMDEC, DIMZIN, DIMPOST. "<>" in a text is the length; the empty
// text is the length alone.
std::u16string dimensionText(Context &context, double length, const std::u16string &typed,
                             std::u16string_view prefix = {});

// What stands ahead of the lengths that dimensions of radii and diameters show.
inline constexpr std::u16string_view RadiusPrefix = u"R", DiameterPrefix = u"%%c";

// After a dimension has been scaled: its picture shows the new measurement where it showed the old one, written by the
// DIM… variables or by the dimension's style. A text that shows no measurement stays what it is.
void showNewMeasurement(Context &context, RecordId dimension, double scale);

} // namespace commands
