#include "host/render/TextPlacement.h"

namespace render {

namespace {

using geometry::HorizontalAlignment;
using geometry::VerticalAlignment;

constexpr double Descent = 1.0 / 3, Middle = 0.5; // below the base line, and above it

double leftOf(HorizontalAlignment alignment, double width)
{
    switch (alignment) {
    case HorizontalAlignment::Centre:
    case HorizontalAlignment::Middle:
        return -width / 2;
    case HorizontalAlignment::Right:
        return -width;
    default:
        return 0;
    }
}

double baseOf(const geometry::Text &text)
{
    if (text.horizontal == HorizontalAlignment::Middle)
        return -Middle;
    switch (text.vertical) {
    case VerticalAlignment::Bottom:
        return Descent;
    case VerticalAlignment::Middle:
        return -Middle;
    case VerticalAlignment::Top:
        return -1;
    case VerticalAlignment::Baseline:
        break;
    }
    return 0;
}

text::Layout scaled(text::Layout layout, double x, double y)
{
    for (text::PlacedGlyph &glyph : layout.glyphs) {
        glyph.at = {glyph.at.x * x, glyph.at.y * y};
        glyph.height *= y;
        glyph.widthFactor *= x / y;
    }
    for (text::Rule &rule : layout.rules) {
        rule.from = {rule.from.x * x, rule.from.y * y};
        rule.to = {rule.to.x * x, rule.to.y * y};
    }
    layout.width *= x;
    return layout;
}

} // namespace

text::Layout placed(const text::Layout &line, const geometry::Text &text)
{
    if (text.span > 0 && line.width > 0) {
        const double factor = text.span / line.width;
        return scaled(line, factor, text.horizontal == HorizontalAlignment::Fit ? 1 : factor);
    }
    text::Layout result;
    result.append(line, {leftOf(text.horizontal, line.width), baseOf(text)});
    result.width = line.width;
    return result;
}

} // namespace render
