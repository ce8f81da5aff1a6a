#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/Layouts.h"
#include "host/render/DisplayList.h"
#include "host/render/PageSetup.h"
#include "host/render/ShownSpace.h"

#include <QSizeF>

#include <optional>

namespace render {

// A page with what is to be drawn on it: all in millimetres, from the lower left corner.
struct Sheet
{
    struct Part
    {
        DisplayList list;
        ShownSpace space;
    };

    QSizeF size;
    std::vector<Part> parts;     // in drawing order
    std::size_t cutEntities = 0; // of which something is left out, as they show too much of blocks
    std::uint32_t background = 0xffffff;
};

// The model, as large as fits on a page as wide as an A3 sheet, which is as high as the model needs, within limits.
Sheet modelSheet(const drawing::Drawing &drawing);
// A layout on its paper, with the model in its viewports. Where the paper is not known, what the layout holds decides.
Sheet layoutSheet(const drawing::Drawing &drawing, const drawing::Layout &layout);

// What the drawing shows when it is opened: the model or a layout.
Sheet currentSheet(const drawing::Drawing &drawing);
// The sheet of the layout with this name, or of the model by "Model"; none when there is no such layout.
std::optional<Sheet> namedSheet(const drawing::Drawing &drawing, std::u16string_view name);
// The same on another paper.
std::optional<Sheet> namedSheet(const drawing::Drawing &drawing, std::u16string_view name, const PageSetup &setup);

} // namespace render
