#pragma once

#include "host/drawing/Drawing.h"

#include <optional>
#include <span>
#include <vector>

namespace render {

// The entities of the model that look otherwise after these records have changed, each once; those that are gone, too.
// None when anything may look otherwise: a layer, a block or a style is another one.
std::optional<std::vector<drawing::RecordId>> changedModelEntities(const drawing::Drawing &drawing,
                                                                   std::span<const drawing::RecordId> records);

} // namespace render
