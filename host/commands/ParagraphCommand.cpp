// -MTEXT: paragraphs of text in a box.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"

#include <cmath>

namespace commands {

using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;

namespace {

constexpr std::u16string_view Justifications = u"TL TC TR ML MC MR BL BC BR"; // numbered from 1

struct Paragraphs
{
    Point first, place;
    double width = 0, height = 0, rotation = 0, spacing = 1;
    std::int64_t attachment = 1, spacingStyle = 1;
    std::u16string style;
};

Command askJustification(Context &context, Paragraphs &paragraphs)
{
    const auto choice =
        co_await context.ask().keyword({u"Enter justification [TL/TC/TR/ML/MC/MR/BL/BC/BR] <TL>: ", Justifications});
    constexpr std::size_t NameLength = 3; // with the blank
    if (!choice.isNothing())
        paragraphs.attachment = static_cast<std::int64_t>(Justifications.find(choice.keyword) / NameLength + 1);
}

// As a factor of a line's height: "1.5x", or the distance of two lines.
Command askSpacing(Context &context, Paragraphs &paragraphs)
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

Command askStyle(Context &context, Paragraphs &paragraphs)
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

Command askHeight(Context &context, Paragraphs &paragraphs)
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
Command askBox(Context &context, Paragraphs &paragraphs)
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

// Lines until an empty one.
Task<std::u16string> askLines(Context &context)
{
    std::u16string text;
    for (;;) {
        const auto line = co_await context.ask().string({u"MText: ", {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
        if (line.isNothing())
            co_return text;
        text += (text.empty() ? u"" : u"\\P") + line.value;
    }
}

// A file has long texts in pieces.
void addContent(drawing::GroupList &groups, const std::u16string &text)
{
    constexpr std::size_t Longest = 250;
    constexpr int PieceCode = 3, LastCode = 1;
    std::size_t place = 0;
    for (; text.size() - place > Longest; place += Longest)
        groups.push_back(textGroup(PieceCode, text.substr(place, Longest)));
    groups.push_back(textGroup(LastCode, text.substr(place)));
}

void addParagraphs(Context &context, const Paragraphs &paragraphs, const std::u16string &text)
{
    const WorkPlane plane(context.session());
    const Vector along =
        plane.world({std::cos(paragraphs.rotation), std::sin(paragraphs.rotation), 0}) - plane.world({});
    drawing::GroupList groups = newEntity(context, u"MTEXT");
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbMText"));
    groups.push_back(pointGroup(10, plane.world(paragraphs.place)));
    groups.push_back(realGroup(40, paragraphs.height));
    groups.push_back(realGroup(41, paragraphs.width));
    groups.push_back(integerGroup(71, paragraphs.attachment));
    groups.push_back(integerGroup(72, 5)); // the flow of the text as the style has it
    addContent(groups, text);
    groups.push_back(textGroup(7, paragraphs.style));
    if (plane.normal() != Vector{0, 0, 1})
        groups.push_back(pointGroup(210, plane.normal()));
    groups.push_back(pointGroup(11, along));
    groups.push_back(integerGroup(73, paragraphs.spacingStyle));
    groups.push_back(realGroup(44, paragraphs.spacing));
    addEntity(context, groups);
}

} // namespace

Command paragraphText(Context &context)
{
    Paragraphs paragraphs;
    paragraphs.style = context.session().text(u"TEXTSTYLE");
    paragraphs.height = context.session().real(u"TEXTSIZE");
    const auto first = co_await context.ask().point({u"Specify first corner: ", {}, Enter::Refused});
    paragraphs.first = first.value;
    co_await askBox(context, paragraphs);
    const std::u16string text = co_await askLines(context);
    if (text.empty())
        co_return;
    addParagraphs(context, paragraphs, text);
    context.session().assign(u"TEXTSIZE", paragraphs.height);
}

} // namespace commands
