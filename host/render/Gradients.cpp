#include "host/render/Gradients.h"

#include <cmath>
#include <string>

namespace render {

namespace {

constexpr int HasGradientCode = 450, AngleCode = 460, ColorCode = 421, NameCode = 470;

struct Groups
{
    bool hasGradient = false;
    double angle = 0; // radians
    std::vector<std::uint32_t> colors;
    std::u16string name;
};

Groups read(const drawing::Database &database, drawing::RecordId hatch)
{
    Groups groups;
    drawing::GroupReader reader = database.reader(hatch);
    for (drawing::Item item; reader.next(item) && item.code < drawing::groupcode::ExtendedString;)
        if (item.code == HasGradientCode)
            groups.hasGradient = item.integer != 0;
        else if (item.code == AngleCode)
            groups.angle = std::isfinite(item.real) ? item.real : 0;
        else if (item.code == ColorCode)
            groups.colors.push_back(static_cast<std::uint32_t>(item.integer & 0xffffff));
        else if (item.code == NameCode)
            groups.name = reader.text(item);
    return groups;
}

} // namespace

std::optional<Gradient> gradientOf(const drawing::Database &database, drawing::RecordId hatch, const QRectF &bounds)
{
    const Groups groups = read(database, hatch);
    if (!groups.hasGradient || groups.colors.empty())
        return std::nullopt;
    const QPointF direction(std::cos(groups.angle), std::sin(groups.angle));
    const double reach = (std::abs(direction.x()) * bounds.width() + std::abs(direction.y()) * bounds.height()) / 2;
    Gradient gradient{bounds.center() - direction * reach, bounds.center() + direction * reach, groups.colors.front(),
                      groups.colors.back()};
    gradient.isMirrored = groups.name != u"LINEAR";
    if (groups.name.starts_with(u"INV"))
        std::swap(gradient.first, gradient.last);
    return gradient;
}

} // namespace render
