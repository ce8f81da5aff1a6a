#include "host/commands/HatchPatterns.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/geometry/Vector.h"

#include <QStringView>

#include <cmath>
#include <numbers>

namespace commands {

using drawing::integerGroup;
using drawing::realGroup;

namespace {

constexpr double Spacing = 3.175; // an eighth of an inch, in millimetres

constexpr double Diagonal = Spacing * std::numbers::sqrt2; // along the x axis between lines at 45 degrees
constexpr double Half = Spacing / 2, Long = 2.5 * Spacing; // of dashes
constexpr double Row = Spacing * std::numbers::sqrt3 / 2;  // of hexagons with sides as long as Spacing
constexpr double Block = 203.2;                            // eight inches, of masonry in its real size

// Simple ones, after the section linings of drafting standards. Spacings are as usual on paper.
const HatchPattern patterns[] = {
    {u"SOLID", {}},
    {u"ANSI31", {{45, 0, 0, 0, Spacing, {}}}},
    {u"ANSI32", {{45, 0, 0, 0, 3 * Spacing, {}}, {45, 4.490128, 0, 0, 3 * Spacing, {}}}},
    {u"ANSI33", {{45, 0, 0, 0, 2 * Spacing, {}}, {45, Diagonal, 0, 0, 2 * Spacing, {Spacing, -Half}}}},
    {u"ANSI34",
     {{45, 0, 0, 0, 6 * Spacing, {}},
      {45, Diagonal, 0, 0, 6 * Spacing, {}},
      {45, 2 * Diagonal, 0, 0, 6 * Spacing, {}},
      {45, 3 * Diagonal, 0, 0, 6 * Spacing, {}}}},
    {u"ANSI35", {{45, 0, 0, 0, 2 * Spacing, {}}, {45, Diagonal, 0, 0, 2 * Spacing, {Long, -Half, 0, -Half}}}},
    {u"ANSI36", {{45, 0, 0, 1.75 * Spacing, Spacing, {Long, -Half, 0, -Half}}}},
    {u"ANSI38", {{45, 0, 0, 0, Spacing, {}}, {135, 0, 0, 2 * Spacing, Spacing, {Long, -1.5 * Spacing}}}},
    {u"ANSI37", {{45, 0, 0, 0, Spacing, {}}, {135, 0, 0, 0, Spacing, {}}}},
    {u"LINE", {{0, 0, 0, 0, Spacing, {}}}},
    {u"NET", {{0, 0, 0, 0, Spacing, {}}, {90, 0, 0, 0, Spacing, {}}}},
    {u"NET3", {{0, 0, 0, 0, Spacing, {}}, {60, 0, 0, 0, Spacing, {}}, {120, 0, 0, 0, Spacing, {}}}},
    {u"DASH", {{0, 0, 0, Spacing, Spacing, {Spacing, -Spacing}}}},
    {u"DOTS", {{0, 0, 0, Spacing / 4, Spacing / 2, {0, -Spacing / 2}}}},
    {u"ANGLE", {{0, 0, 0, 0, 2 * Spacing, {1.5 * Spacing, -Half}}, {90, 0, 0, 0, 2 * Spacing, {1.5 * Spacing, -Half}}}},
    {u"CROSS",
     {{0, 0, 0, 2 * Spacing, 2 * Spacing, {Spacing, -3 * Spacing}},
      {90, Half, -Half, 2 * Spacing, 2 * Spacing, {Spacing, -3 * Spacing}}}},
    {u"GRATE", {{0, 0, 0, 0, Half / 2, {}}, {90, 0, 0, 0, Spacing, {}}}},
    // The three directions of the edges of a honeycomb, each with the honeycomb's own lattice.
    {u"HEX",
     {{0, 0, 0, 1.5 * Spacing, Row, {Spacing, -2 * Spacing}},
      {60, Spacing, 0, 1.5 * Spacing, Row, {Spacing, -2 * Spacing}},
      {120, 0, 0, 1.5 * Spacing, Row, {Spacing, -2 * Spacing}}}},
    {u"HONEY",
     {{90, 0, 0, 1.5 * Spacing, Row, {Spacing, -2 * Spacing}},
      {150, 0, Spacing, 1.5 * Spacing, Row, {Spacing, -2 * Spacing}},
      {210, 0, 0, 1.5 * Spacing, Row, {Spacing, -2 * Spacing}}}},
    {u"INSUL",
     {{0, 0, 0, 0, 3 * Spacing, {}},
      {0, 0, Spacing, 0, 3 * Spacing, {Spacing, -Spacing}},
      {0, 0, 2 * Spacing, 0, 3 * Spacing, {Spacing, -Spacing}}}},
    {u"PLAST", {{0, 0, 0, 0, 2 * Spacing, {}}, {0, 0, Half / 2, 0, 2 * Spacing, {}}, {0, 0, Half, 0, 2 * Spacing, {}}}},
    {u"SQUARE", {{0, 0, 0, 0, Spacing, {Spacing, -Spacing}}, {90, 0, 0, 0, Spacing, {Spacing, -Spacing}}}},
    {u"STEEL", {{45, 0, 0, 0, Spacing, {}}, {45, 0, Half, 0, Spacing, {}}}},
    {u"ZIGZAG",
     {{0, 0, 0, Spacing, Spacing, {Spacing, -Spacing}}, {90, Spacing, 0, Spacing, Spacing, {Spacing, -Spacing}}}},
    {u"AR-B88", {{0, 0, 0, 0, Block, {}}, {90, 0, 0, Block, Block / 2, {Block, -Block}}}},
    {u"AR-B816", {{0, 0, 0, 0, Block, {}}, {90, 0, 0, Block, Block, {Block, -Block}}}},
    {u"ACAD_ISO02W100", {{0, 0, 0, 0, 5, {12, -3}}}},
    {u"ACAD_ISO03W100", {{0, 0, 0, 0, 5, {12, -18}}}},
    {u"ACAD_ISO04W100", {{0, 0, 0, 0, 5, {24, -3, 0.5, -3}}}},
    {u"ACAD_ISO07W100", {{0, 0, 0, 0, 5, {0.5, -3}}}},
    {u"ACAD_ISO10W100", {{0, 0, 0, 0, 5, {12, -3, 0.5, -3}}}},
    {u"BRICK", {{0, 0, 0, 0, 2 * Spacing, {}}, {90, 0, 0, 2 * Spacing, 2 * Spacing, {2 * Spacing, -2 * Spacing}}}},
};

struct Turned
{
    double x, y;
};

Turned turned(double x, double y, double degrees)
{
    const double angle = geometry::radians(degrees);
    return {x * std::cos(angle) - y * std::sin(angle), x * std::sin(angle) + y * std::cos(angle)};
}

} // namespace

std::optional<HatchPattern> hatchPattern(std::u16string_view name)
{
    const QStringView wanted(name.data(), static_cast<qsizetype>(name.size()));
    for (const HatchPattern &pattern : patterns)
        if (wanted.compare(QStringView(pattern.name), Qt::CaseInsensitive) == 0)
            return pattern;
    return std::nullopt;
}

HatchPattern userPattern(double spacing, bool isDouble)
{
    HatchPattern pattern{u"_USER", {{0, 0, 0, 0, spacing, {}}}, true};
    if (isDouble)
        pattern.lines.push_back({90, 0, 0, 0, spacing, {}});
    return pattern;
}

void addPattern(drawing::GroupList &groups, const HatchPattern &pattern, double scale, double angle)
{
    constexpr std::int64_t UserDefined = 0, Predefined = 1;
    groups.push_back(integerGroup(75, 0)); // islands in islands are hatched
    groups.push_back(integerGroup(76, pattern.isUserDefined ? UserDefined : Predefined));
    if (pattern.isSolid())
        return;
    groups.push_back(realGroup(52, angle));
    groups.push_back(realGroup(41, scale));
    groups.push_back(integerGroup(77, pattern.isUserDefined && pattern.lines.size() > 1 ? 1 : 0));
    groups.push_back(integerGroup(78, static_cast<std::int64_t>(pattern.lines.size())));
    for (const HatchLine &line : pattern.lines) {
        const Turned base = turned(line.baseX * scale, line.baseY * scale, angle),
                     offset = turned(line.along * scale, line.across * scale, line.angle + angle);
        groups.push_back(realGroup(53, line.angle + angle));
        groups.push_back(realGroup(43, base.x));
        groups.push_back(realGroup(44, base.y));
        groups.push_back(realGroup(45, offset.x));
        groups.push_back(realGroup(46, offset.y));
        groups.push_back(integerGroup(79, static_cast<std::int64_t>(line.dashes.size())));
        for (const double dash : line.dashes)
            groups.push_back(realGroup(49, dash * scale));
    }
}

} // namespace commands
