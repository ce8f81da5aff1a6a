#pragma once

#include "host/drawing/Drawing.h"

#include <optional>
#include <span>
#include <vector>

namespace drawing {

// The entities of model and paper that look otherwise after these records have changed, each once; also those that are
// gone. None when anything may look otherwise: a layer, a block or a style is another one.
std::optional<std::vector<RecordId>> changedEntities(const Drawing &drawing, std::span<const RecordId> records);

} // namespace drawing
