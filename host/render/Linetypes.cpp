#include "host/render/Linetypes.h"

#include "host/drawing/geometry/Vector.h"

#include <cmath>

namespace render {

namespace {

constexpr int ElementCode = 49, KindCode = 74, StyleCode = 340, ScaleCode = 46, RotationCode = 50, XCode = 44,
              YCode = 45, TextCode = 9;
constexpr std::int64_t Upright = 1, HasText = 2;

void take(const drawing::Item &item, const drawing::GroupReader &reader, const drawing::Database &database,
          LinetypeElement &element, bool &hasText)
{
    switch (item.code) {
    case KindCode:
        element.isUpright = (item.integer & Upright) != 0;
        hasText = (item.integer & HasText) != 0;
        break;
    case StyleCode:
        element.style = database.find({item.handle});
        break;
    case ScaleCode:
        element.scale = item.real;
        break;
    case RotationCode:
        element.rotation = geometry::radians(item.real);
        break;
    case XCode:
        element.x = item.real;
        break;
    case YCode:
        element.y = item.real;
        break;
    case TextCode:
        if (hasText)
            element.text = reader.text(item);
        break;
    default:
        break;
    }
}

} // namespace

const Linetype &Linetypes::of(const std::u16string &name) const
{
    const auto known = m_linetypes.find(name);
    if (known != m_linetypes.end())
        return known->second;
    const auto id = m_drawing.tables().find(drawing::known::Linetype, name);
    return m_linetypes.emplace(name, id == drawing::NoRecord ? Linetype{} : read(id)).first->second;
}

Linetype Linetypes::read(drawing::RecordId id) const
{
    Linetype linetype;
    bool hasText = false;
    drawing::GroupReader reader = m_drawing.database().reader(id);
    for (drawing::Item item; reader.next(item) && item.code < drawing::groupcode::ExtendedString;) {
        if (item.code == ElementCode) {
            linetype.elements.push_back({});
            linetype.elements.back().length = item.real;
            linetype.length += std::abs(item.real);
            hasText = false;
        } else if (!linetype.elements.empty()) {
            take(item, reader, m_drawing.database(), linetype.elements.back(), hasText);
        }
    }
    return linetype.length > 0 && std::isfinite(linetype.length) ? linetype : Linetype{};
}

} // namespace render
