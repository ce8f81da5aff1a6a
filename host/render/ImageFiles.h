#pragma once

#include "host/drawing/Drawing.h"

#include <QImage>

namespace render {

// The picture that an image's definition names: the file at its path, or one of that name beside the drawing. Null when
// there is none that can be read.
QImage imageFile(const drawing::Drawing &drawing, drawing::RecordId definition);

} // namespace render
