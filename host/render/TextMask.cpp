#include "host/render/TextMask.h"

#include <cmath>

namespace render {

std::optional<TextMask> textMaskOf(const drawing::Database &database, drawing::RecordId text)
{
    constexpr int KindCode = 90, ColorCode = 63, TrueColorCode = 421, SizeCode = 45;
    constexpr std::int64_t HasColor = 1, HasBackground = 2;
    std::int64_t kind = 0;
    TextMask mask;
    NamedColor color;
    drawing::GroupReader reader = database.reader(text);
    for (drawing::Item item; reader.next(item) && item.code < drawing::groupcode::ExtendedString;)
        if (item.code == drawing::groupcode::EmbeddedObject)
            break; // the groups after it mean other things
        else if (item.code == KindCode)
            kind = item.integer;
        else if (item.code == ColorCode)
            color.index = static_cast<int>(item.integer);
        else if (item.code == TrueColorCode)
            color.trueColor = static_cast<std::uint32_t>(item.integer & 0xffffff);
        else if (item.code == SizeCode && std::isfinite(item.real))
            mask.size = item.real;
    if ((kind & (HasColor | HasBackground)) == 0)
        return std::nullopt;
    if ((kind & HasBackground) == 0)
        mask.color = color;
    return mask;
}

} // namespace render
