// -MTEXT: paragraphs of text in a box.

#include "host/commands/Commands.h"
#include "host/commands/NewParagraphs.h"
#include "host/commands/TableRecords.h"

#include <cmath>

namespace commands {

namespace {

constexpr std::u16string_view Justifications = u"TL TC TR ML MC MR BL BC BR"; // numbered from 1

struct NewParagraphs : Paragraphs
{
    Point first; // corner of the box
};

Command askJustification(Context &context, NewParagraphs &paragraphs)
{
    const auto choice =
        co_await context.ask().keyword({u"Enter justification [TL/TC/TR/ML/MC/MR/BL/BC/BR] <TL>: ", Justifications});
    constexpr std::size_t NameLength = 3; // with the blank
    if (!choice.isNothing())
        paragraphs.attachment = static_cast<std::int64_t>(Justifications.find(choice.keyword) / NameLength + 1);
}

// As a factor of a line's height: "1.5x", or the distance of two lines.
Command askSpacing(Context &context, NewParagraphs &paragraphs)
{
    constexpr double UsualLine = 5.0 / 3; // of the height of the letters
    const auto type = co_await context.ask().keyword(
        {u"Enter line spacing type [At least/Exactly] <At least>: ", u"Atleast Exactly"});
    paragraphs.spacingStyle = type.is(u"Exactly") ? 2 : 1;
    const auto typed = co_await context.ask().string({u"Enter line spacing factor or distance <1x>: "});
    if (typed.isNothing())
        co_return;
    const bool isFactor = typed.value.ends_with(u'x') || typed.value.ends_with(u'X');
    const std::optional<double> number =
        context.session().distanceOf(isFactor ? typed.value.substr(0, typed.value.size() - 1) : typed.value);
    const double factor = number ? (isFactor ? *number : *number / (UsualLine * paragraphs.height)) : 0;
    if (!(factor >= 0.25 && factor <= 4))
        throw CommandError{u"Line spacing must be between 0.25x and 4x."};
    paragraphs.spacing = factor;
}

Command askStyle(Context &context, NewParagraphs &paragraphs)
{
    const std::u16string prompt = u"Enter style name <" + paragraphs.style + u">: ";
    const auto name = co_await context.ask().string({prompt});
    if (name.isNothing())
        co_return;
    const RecordId style = findRecord(context, drawing::known::Style, name.value);
    if (style == drawing::NoRecord)
        throw CommandError{u"Text style \"" + name.value + u"\" not found."};
    paragraphs.style = context.database().name(style);
}

Command askHeight(Context &context, NewParagraphs &paragraphs)
{
    const std::u16string prompt = u"Specify height <" + context.session().distanceText(paragraphs.height) + u">: ";
    const auto height = co_await context.ask().distance({prompt, {}, Enter::Allowed, paragraphs.first}, Positive);
    paragraphs.height = height.hasValue() ? height.value : paragraphs.height;
}

// Where in the box the text is held.
Point heldPlace(const Point &corner, const Point &opposite, std::int64_t attachment)
{
    const double column = static_cast<double>((attachment - 1) % 3) / 2,
                 row = static_cast<double>((attachment - 1) / 3) / 2;
    const double left = std::min(corner.x, opposite.x), right = std::max(corner.x, opposite.x);
    const double bottom = std::min(corner.y, opposite.y), top = std::max(corner.y, opposite.y);
    return {left + (right - left) * column, top - (top - bottom) * row, corner.z};
}

// One option after the other, until the opposite corner or the width says how wide the text is.
Command askBox(Context &context, NewParagraphs &paragraphs)
{
    for (;;) {
        const auto corner = co_await context.ask().corner(
            {u"Specify opposite corner or [Height/Justify/Line spacing/Rotation/Style/Width]: ",
             u"Height Justify Line Rotation Style Width", Enter::Refused, paragraphs.first});
        if (corner.hasValue()) {
            paragraphs.width = std::abs(corner.value.x - paragraphs.first.x);
            paragraphs.place = heldPlace(paragraphs.first, corner.value, paragraphs.attachment);
            co_return;
        }
        if (corner.is(u"Width")) {
            const auto width =
                co_await context.ask().distance({u"Specify width: ", {}, Enter::Allowed, paragraphs.first});
            paragraphs.width = std::abs(width.value);
            paragraphs.place = paragraphs.first;
            co_return;
        }
        if (corner.is(u"Rotation")) {
            const auto angle = co_await context.ask().direction(
                {u"Specify rotation angle <0>: ", {}, Enter::Allowed, paragraphs.first});
            paragraphs.rotation = angle.value;
        } else if (corner.is(u"Height")) {
            co_await askHeight(context, paragraphs);
        } else if (corner.is(u"Justify")) {
            co_await askJustification(context, paragraphs);
        } else if (corner.is(u"Line")) {
            co_await askSpacing(context, paragraphs);
        } else {
            co_await askStyle(context, paragraphs);
        }
    }
}

} // namespace

Command paragraphText(Context &context)
{
    NewParagraphs paragraphs;
    paragraphs.style = context.session().text(u"TEXTSTYLE");
    paragraphs.height = context.session().real(u"TEXTSIZE");
    const auto first = co_await context.ask().point({u"Specify first corner: ", {}, Enter::Refused});
    paragraphs.first = first.value;
    co_await askBox(context, paragraphs);
    paragraphs.text = co_await askParagraphs(context, u"MText: ");
    if (paragraphs.text.empty())
        co_return;
    addParagraphs(context, paragraphs);
    context.session().assign(u"TEXTSIZE", paragraphs.height);
}

} // namespace commands
