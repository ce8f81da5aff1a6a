#pragma once

#include "host/drawing/Drawing.h"

#include <optional>
#include <span>
#include <vector>

namespace render {

// The entities of model and paper that look otherwise after these records have changed, each once; also those that are
// gone. None when anything may look otherwise: a layer, a block or a style is another one.
std::optional<std::vector<drawing::RecordId>> changedEntities(const drawing::Drawing &drawing,
                                                              std::span<const drawing::RecordId> records);

} // namespace render
