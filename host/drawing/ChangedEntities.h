#pragma once

#include "host/drawing/Drawing.h"

#include <optional>
#include <span>
#include <vector>

namespace drawing {

// What may have changed: how entities of the model look, or only where they and those of the paper lie, for which
// layers make no difference.
enum class Aspect { Look, Shape };

// The entities for which that has changed with these records, each once; also those that are gone, or now on a sheet
// that is not current. None when it may be any: a block or a style is another one.
std::optional<std::vector<RecordId>> changedEntities(const Drawing &drawing, std::span<const RecordId> records,
                                                     Aspect aspect = Aspect::Look);

} // namespace drawing
