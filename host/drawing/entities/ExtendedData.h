#pragma once

#include "host/drawing/Drawing.h"

#include <functional>

// Extended data: groups from 1000 on behind those of an entity or object, by applications whose names are registered.
namespace drawing {

// The data of the applications that `takes` says yes to, as it stands.
GroupList extendedData(const Drawing &drawing, RecordId record, const std::function<bool(std::u16string_view)> &takes);

// The bytes that one group counts towards the limit of an entity.
int extendedSize(const Group &group);
inline constexpr int ExtendedSizeLimit = 16383;

bool isApplication(const Drawing &drawing, std::u16string_view name);
// False when the name is registered already, or is none.
bool registerApplication(Drawing &drawing, std::u16string_view name);

} // namespace drawing
