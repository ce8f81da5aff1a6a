#include "host/drawing/geometry/TextLayouts.h"

namespace geometry {

namespace {

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

double baseOf(HorizontalAlignment horizontal, VerticalAlignment vertical)
{
    if (horizontal == HorizontalAlignment::Middle)
        return -Middle;
    switch (vertical) {
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

// Aligned texts become as large as fits between their points, fitted ones as wide.
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

TextStyle textStyleOf(const drawing::Database &database, drawing::RecordId style)
{
    constexpr int FontCode = 3, WidthCode = 41, ObliqueCode = 50, FamilyCode = 1000, EmphasisCode = 1071;
    constexpr std::int64_t Italic = 0x1000000, Bold = 0x2000000;
    TextStyle result;
    if (style == drawing::NoRecord) {
        result.font = u"txt";
        return result;
    }
    bool isFontData = false; // of several programs' extended data
    drawing::GroupReader reader = database.reader(style);
    for (drawing::Item item; reader.next(item);)
        switch (item.code) {
        case FontCode:
            result.font = reader.text(item);
            break;
        case WidthCode:
            result.widthFactor = item.real > 0 && std::isfinite(item.real) ? item.real : 1;
            break;
        case ObliqueCode:
            result.slant = std::tan(radians(std::clamp(item.real, -85.0, 85.0)));
            break;
        case drawing::groupcode::Application:
            isFontData = item.value == "ACAD";
            break;
        case FamilyCode: // goes before the file, which is that of one of the family's fonts
            if (isFontData)
                result.font = reader.text(item);
            break;
        case EmphasisCode:
            result.isItalic = isFontData && (item.integer & Italic) != 0;
            result.isBold = isFontData && (item.integer & Bold) != 0;
            break;
        default:
            break;
        }
    return result;
}

text::Place baseLineStart(HorizontalAlignment horizontal, VerticalAlignment vertical, double width)
{
    return {leftOf(horizontal, width), baseOf(horizontal, vertical)};
}

text::Layout layOut(const Text &text, const TextStyle &style)
{
    const text::Layout line = text::layOutLine(text.string, style.fontName());
    if (text.span > 0 && line.width > 0) {
        const double factor = text.span / line.width;
        return scaled(line, factor, text.horizontal == HorizontalAlignment::Fit ? 1 : factor);
    }
    text::Layout result;
    result.append(line, baseLineStart(text.horizontal, text.vertical, line.width));
    result.width = line.width;
    return result;
}

text::Layout layOut(const Paragraphs &paragraphs, const TextStyle &style)
{
    text::ParagraphText text;
    text.string = paragraphs.string;
    text.font = style.fontName();
    text.height = paragraphs.height;
    text.width = paragraphs.width;
    text.widthFactor = style.widthFactor;
    text.slant = style.slant;
    text.attachment = paragraphs.attachment;
    text.lineSpacing = paragraphs.lineSpacing;
    text.isExactSpacing = paragraphs.isExactSpacing;
    return text::layOutParagraphs(text);
}

} // namespace geometry
