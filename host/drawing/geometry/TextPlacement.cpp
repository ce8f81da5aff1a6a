#include "host/drawing/geometry/TextPlacement.h"

namespace geometry {

using drawing::NoRecord;
using drawing::RecordId;

namespace {

// Between the points of an aligned or fit text its advance is the span: of the latter in width alone.
void stretch(const Text &text, double advance, Matrix &matrix)
{
    const double factor = advance > 0 ? text.span / advance : 1;
    matrix.x = matrix.x * factor;
    if (text.horizontal == HorizontalAlignment::Aligned)
        matrix.y = matrix.y * factor;
}

Vector anchor(const Text &text, const TextSize &size, double descent)
{
    Vector place;
    switch (text.horizontal) {
    case HorizontalAlignment::Left:
    case HorizontalAlignment::Aligned:
    case HorizontalAlignment::Fit:
        break;
    case HorizontalAlignment::Centre:
        place.x = size.advance / 2;
        break;
    case HorizontalAlignment::Right:
        place.x = size.advance;
        break;
    case HorizontalAlignment::Middle: // of what is inked
        return size.hasInk() ? Vector{(size.left + size.right) / 2, (size.bottom + size.top) / 2, 0} : Vector{};
    }
    if (text.vertical == VerticalAlignment::Bottom)
        place.y = -descent;
    else if (text.vertical == VerticalAlignment::Middle)
        place.y = 0.5;
    else if (text.vertical == VerticalAlignment::Top)
        place.y = 1;
    return place;
}

} // namespace

Font fontOf(const drawing::Database &database, RecordId style)
{
    constexpr int FontFile = 3, ExtendedFlags = 1071;
    constexpr std::int64_t Italic = 0x1000000, Bold = 0x2000000;
    Font font;
    if (style == NoRecord)
        return font;
    drawing::GroupReader reader = database.reader(style);
    for (drawing::Item item; reader.next(item);)
        if (item.code == FontFile) {
            font.file = reader.text(item);
        } else if (item.code == drawing::groupcode::ExtendedString && font.family.empty()) {
            font.family = reader.text(item);
        } else if (item.code == ExtendedFlags) {
            font.isBold = (item.integer & Bold) != 0;
            font.isItalic = (item.integer & Italic) != 0;
        }
    return font;
}

Font fontOf(const drawing::Database &database, const Text &text)
{
    return text.font ? *text.font : fontOf(database, text.style);
}

Matrix placement(const Text &text, const drawing::Database &database, const TextMetrics &metrics)
{
    const Font font = fontOf(database, text);
    const TextSize size = metrics.measure(font, text.string);
    Matrix matrix{text.right, text.up, cross(text.right, text.up), text.insertion};
    if (text.span > 0)
        stretch(text, size.advance, matrix);
    matrix.origin = matrix.place(-anchor(text, size, metrics.descent(font)));
    return matrix;
}

std::optional<std::array<Vector, 4>> inkCorners(const Text &text, const drawing::Database &database,
                                                const TextMetrics &metrics)
{
    const TextSize size = metrics.measure(fontOf(database, text), text.string);
    if (!size.hasInk())
        return std::nullopt;
    const Matrix matrix = placement(text, database, metrics);
    return std::array{matrix.place({size.left, size.bottom, 0}), matrix.place({size.right, size.bottom, 0}),
                      matrix.place({size.right, size.top, 0}), matrix.place({size.left, size.top, 0})};
}

} // namespace geometry
