#pragma once

#include "host/drawing/Group.h"

#include <cstdint>
#include <optional>
#include <string>

namespace commands {

// What PLOT has been told.
struct PlotJob
{
    enum class Area { Extents, Layout, Window };
    enum class Offset { Given, Centred };

    // How the drawing lies on the paper; lengths of the paper in millimetres.
    struct Page
    {
        double width = 0, height = 0; // as the drawing is read
        Area area = Area::Extents;
        drawing::Point lower, upper; // of Area::Window, in the world
        double scale = 0;            // millimetres for a drawing unit; 0: as large as fits
        Offset offset = Offset::Given;
        double offsetX = 0, offsetY = 0; // from the lower left corner
    };

    std::u16string layout;    // its name, or "Model"
    std::optional<Page> page; // none: as the layout itself says
    std::u16string path;      // ends with .png, .svg or .pdf
};

} // namespace commands
