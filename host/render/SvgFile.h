#pragma once

#include "host/render/Sheet.h"

#include <QByteArray>

namespace render {

// The sheet as an SVG picture with millimetres for units, y downwards. Written by hand: Qt's own generator leaves out
// what is clipped, which every viewport is.
QByteArray svgOf(const Sheet &sheet);

} // namespace render
