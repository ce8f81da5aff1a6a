#pragma once

#include "host/commands/NewEntity.h"

// One line of text in the making: of TEXT, and of an attribute's definition.
namespace commands {

struct Justification
{
    std::u16string_view keyword;
    int horizontal, vertical;
    std::u16string_view prompt;
};

// Where it is to stand.
struct TextPlacing
{
    Justification justification;
    Point first, second; // the second for Align and Fit

    bool isAligned() const;
    bool hasTwoPoints() const;
};

struct TextSize
{
    double height, rotation; // radians
};

// With Justify and Style among the answers. None: below the last line, which is there.
Task<std::optional<TextPlacing>> askTextPlacing(Context &context, RecordId last);

// The height where the style leaves it open, which TEXTSIZE keeps then; and the rotation.
Task<TextSize> askTextSize(Context &context, const TextPlacing placing);

// What it says, and what its type has beyond a text.
struct TextLine
{
    std::u16string type, content;
    GroupList more = {};
};

RecordId addText(Context &context, const TextLine &line, const TextPlacing &placing, const TextSize &size);
// As another one stands and looks, one line further down.
RecordId addTextBelow(Context &context, const TextLine &line, RecordId above);

} // namespace commands
