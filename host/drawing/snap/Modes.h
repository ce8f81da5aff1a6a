#pragma once

#include <optional>
#include <string>
#include <string_view>

// Object snaps: which places of an entity are meant when a person points near it.
namespace snap {

// As in the variable OSMODE.
enum Mode : unsigned {
    None = 0,
    End = 1,
    Middle = 2,
    Center = 4,
    Node = 8,
    Quadrant = 16,
    Intersection = 32,
    Insertion = 64,
    Perpendicular = 128,
    Tangent = 256,
    Nearest = 512,
    ApparentIntersection = 2048, // of what crosses only as seen from above
    Suppressed = 16384,          // none of the others holds
};
using Modes = unsigned; // several of them

// "_end,int": names of three letters or more, of any case, "_" in front or not, with commas between them; "non" and
// "off" are None. Names without an effect here (quick, extension, parallel) are read over. Nothing for other texts.
std::optional<Modes> modesFromText(std::u16string_view text);

// "endpoint", as it is called in messages and at the cursor; of several "endpoint or midpoint".
std::u16string namesOf(Modes modes);

} // namespace snap
