#include "host/render/TextStyles.h"

#include "host/drawing/geometry/Vector.h"

namespace render {

namespace {

constexpr int FontCode = 3, WidthCode = 41, ObliqueCode = 50, FamilyCode = 1000, EmphasisCode = 1071;
constexpr std::int64_t Italic = 0x1000000, Bold = 0x2000000;

} // namespace

const TextStyle &TextStyles::of(drawing::RecordId style) const
{
    const auto known = m_styles.find(style);
    if (known != m_styles.end())
        return known->second;
    return m_styles.emplace(style, style == drawing::NoRecord ? TextStyle{u"txt"} : read(style)).first->second;
}

TextStyle TextStyles::read(drawing::RecordId id) const
{
    TextStyle style;
    drawing::GroupReader reader = m_database.reader(id);
    for (drawing::Item item; reader.next(item);)
        switch (item.code) {
        case FontCode:
            style.font = reader.text(item);
            break;
        case WidthCode:
            style.widthFactor = item.real > 0 && std::isfinite(item.real) ? item.real : 1;
            break;
        case ObliqueCode:
            style.slant = std::tan(geometry::radians(std::clamp(item.real, -85.0, 85.0)));
            break;
        case FamilyCode: // goes before the file, which is that of one of the family's fonts
            style.font = reader.text(item);
            break;
        case EmphasisCode:
            style.isItalic = (item.integer & Italic) != 0;
            style.isBold = (item.integer & Bold) != 0;
            break;
        default:
            break;
        }
    return style;
}

} // namespace render
