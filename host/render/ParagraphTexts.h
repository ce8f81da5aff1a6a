#pragma once

#include "host/drawing/geometry/Shapes.h"
#include "host/render/TextStyles.h"
#include "host/text/ParagraphLayout.h"

namespace render {

// Lays the text out in the style that it names.
inline text::Layout layOut(const geometry::Paragraphs &paragraphs, const TextStyle &style)
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

} // namespace render
