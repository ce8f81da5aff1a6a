#pragma once

#include <QByteArray>

namespace drawing {

// The file of an empty drawing: R2018, text, millimetres, one layer, one layout beside the model.
QByteArray newDrawing();

} // namespace drawing
