#pragma once

#include "host/drawing/Group.h"

#include <optional>
#include <string_view>
#include <vector>

namespace commands {

// One family of parallel lines. Degrees, and lengths before the pattern's scale.
struct HatchLine
{
    double angle;
    double baseX, baseY;
    double along, across;       // from one line to the next: in its direction, and to the left of it
    std::vector<double> dashes; // negative: a gap; none: unbroken
};

struct HatchPattern
{
    std::u16string name; // in capitals; SOLID has no lines
    std::vector<HatchLine> lines;
    bool isUserDefined = false;

    bool isSolid() const { return name == u"SOLID"; }
};

std::optional<HatchPattern> hatchPattern(std::u16string_view name); // none: there is no such pattern

// Parallel lines at a distance, and others across them.
HatchPattern userPattern(double spacing, bool isDouble);

// The groups of a HATCH that describe its pattern, scaled and turned; the angle is in degrees.
void addPattern(drawing::GroupList &groups, const HatchPattern &pattern, double scale, double angle);

} // namespace commands
