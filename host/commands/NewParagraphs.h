#pragma once

#include "host/commands/NewEntity.h"

namespace commands {

// Where an MTEXT is held, as the file numbers it.
enum class Attachment : std::int64_t { TopLeft = 1, MiddleLeft = 4, MiddleRight = 6 };

// An MTEXT in the making. The place is in the user's coordinates.
struct Paragraphs
{
    Point place;
    double width = 0, height = 0, rotation = 0, spacing = 1; // radians; the spacing as a factor of the usual one
    std::int64_t attachment = static_cast<std::int64_t>(Attachment::TopLeft), spacingStyle = 1;
    std::u16string style, text; // "\P" between lines
};

RecordId addParagraphs(Context &context, const Paragraphs &paragraphs);

// Lines until an empty one.
Task<std::u16string> askParagraphs(Context &context, const std::u16string_view prompt);

} // namespace commands
