#pragma once

#include "host/commands/Context.h"

namespace commands {

// After a dimension has been scaled: its picture shows the new measurement where it showed the old one, written by the
// DIM… variables or by the dimension's style. A text that shows no measurement stays what it is.
void showNewMeasurement(Context &context, RecordId dimension, double scale);

} // namespace commands
