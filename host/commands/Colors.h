#pragma once

#include "host/drawing/Database.h"

#include <optional>
#include <string>
#include <string_view>

namespace commands {

// A colour as people name it.
struct Color
{
    static constexpr int ByBlock = 0, ByLayer = 256;

    int index = ByLayer;                  // 1 to 255, ByBlock or ByLayer
    std::optional<std::int64_t> rgb = {}; // 0xRRGGBB, before the index

    bool operator==(const Color &) const = default;
};

// "red", "5", "BYLAYER", "RGB:10,20,30" and "10,20,30".
std::optional<Color> colorFromText(std::u16string_view text);
std::u16string colorText(const Color &color); // as CECOLOR has it

// Gives an entity of the drawing the colour: its groups 62 and 420, behind its layer, which a colour by layer does
// without.
void setColor(const drawing::Database &database, drawing::GroupList &groups, const Color &color);

// Of a colour from red, green and blue the nearest one, which stands beside it for those who know numbers alone.
int indexOf(const Color &color);
// What else stands in the groups of an entity or layer: the red, green and blue, in files that can have them.
std::optional<drawing::Group> trueColorGroup(const drawing::Database &database, const Color &color);
void removeTrueColor(drawing::GroupList &groups);

} // namespace commands
