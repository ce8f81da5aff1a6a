#pragma once

#include "host/render/Layers.h"

namespace render {

// What an MTEXT hides what is below it with.
struct TextMask
{
    std::optional<NamedColor> color; // none: that of the background
    double size = 1.5; // 1: the box of the text; each tenth more adds a tenth of the text height around it
};
std::optional<TextMask> textMaskOf(const drawing::Database &database, drawing::RecordId text);

} // namespace render
