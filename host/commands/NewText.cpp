#include "host/commands/NewText.h"

#include "host/drawing/edit/TextPlacing.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace commands {

using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;
using drawing::groupcode::FirstX;

namespace {

enum Code : int {
    TextCode = 1,
    StyleCode = 7,
    AlignmentPointCode = 11,
    ThicknessCode = 39,
    HeightCode = 40,
    WidthCode = 41,
    RotationCode = 50,
    ObliqueCode = 51,
    GenerationCode = 71,
    HorizontalCode = 72,
    VerticalCode = 73,
    VerticalOfAttributeCode = 74,
    ExtrusionCode = 210,
};

constexpr int Aligned = 3, Fit = 5;

constexpr std::array<Justification, 15> justifications = {{
    {u"Left", 0, 0, u"Specify start point of text: "},
    {u"Center", 1, 0, u"Specify center point of text: "},
    {u"Right", 2, 0, u"Specify right endpoint of text baseline: "},
    {u"Align", Aligned, 0, u"Specify first endpoint of text baseline: "},
    {u"Middle", 4, 0, u"Specify middle point of text: "},
    {u"Fit", Fit, 0, u"Specify first endpoint of text baseline: "},
    {u"TL", 0, 3, u"Specify top-left point of text: "},
    {u"TC", 1, 3, u"Specify top-center point of text: "},
    {u"TR", 2, 3, u"Specify top-right point of text: "},
    {u"ML", 0, 2, u"Specify middle-left point of text: "},
    {u"MC", 1, 2, u"Specify middle-center point of text: "},
    {u"MR", 2, 2, u"Specify middle-right point of text: "},
    {u"BL", 0, 1, u"Specify bottom-left point of text: "},
    {u"BC", 1, 1, u"Specify bottom-center point of text: "},
    {u"BR", 2, 1, u"Specify bottom-right point of text: "},
}};

constexpr std::u16string_view JustifyKeywords = u"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR";
constexpr std::u16string_view FirstKeywords =
    u"Justify Style Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR";

const Justification &justificationOf(std::u16string_view keyword)
{
    for (const Justification &one : justifications)
        if (one.keyword == keyword)
            return one;
    return justifications.front();
}

// What a line has of the one above it.
bool isLook(int code)
{
    constexpr std::array<int, 13> codes = {StyleCode,      FirstX,         AlignmentPointCode, ThicknessCode,
                                           HeightCode,     WidthCode,      RotationCode,       ObliqueCode,
                                           GenerationCode, HorizontalCode, VerticalCode,       VerticalOfAttributeCode,
                                           ExtrusionCode};
    return std::ranges::find(codes, code) != codes.end();
}

// What the current style gives to new texts.
struct Style
{
    double height = 0, width = 1, oblique = 0; // height 0: it is asked for
    std::int64_t generation = 0;

    Style(Context &context, const std::u16string &name)
    {
        const RecordId record = context.tables().find(drawing::known::Style, name);
        if (record == drawing::NoRecord)
            return;
        const drawing::GroupList groups = context.database().groups(record);
        height = drawing::realOf(groups, HeightCode);
        width = drawing::realOf(groups, WidthCode, 1);
        oblique = drawing::realOf(groups, RotationCode); // in a style this is the oblique angle
        generation = drawing::integerOf(groups, GenerationCode);
    }
};

Command askStyle(Context &context)
{
    const auto style = co_await context.ask().string({u"Enter style name: "});
    if (style.isNothing())
        co_return;
    if (context.tables().find(drawing::known::Style, style.value) == drawing::NoRecord)
        throw CommandError{u"Cannot find text style \"" + style.value + u"\"."};
    context.session().assign(u"TEXTSTYLE", style.value);
}

bool isThere(Context &context, RecordId text)
{
    return text != drawing::NoRecord && !context.database().record(text).isGone();
}

} // namespace

bool TextPlacing::isAligned() const
{
    return justification.horizontal == Aligned;
}

bool TextPlacing::hasTwoPoints() const
{
    return isAligned() || justification.horizontal == Fit;
}

Task<std::optional<TextPlacing>> askTextPlacing(Context &context, RecordId last)
{
    TextPlacing placing{justifications.front(), {}, {}};
    for (;;) {
        const auto start =
            co_await context.ask().point({u"Specify start point of text or [Justify/Style]: ", FirstKeywords});
        if (start.isNothing()) {
            if (isThere(context, last))
                co_return std::nullopt;
            context.session().print(u"\nNo text to continue.\n");
            continue;
        }
        if (start.hasValue()) {
            placing.first = start.value;
            co_return placing;
        }
        if (start.is(u"Style")) {
            co_await askStyle(context);
            continue;
        }
        std::u16string keyword = start.keyword;
        if (start.is(u"Justify")) {
            const auto choice = co_await context.ask().keyword(
                {u"Enter an option [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR]: ", JustifyKeywords,
                 Enter::Refused});
            keyword = choice.keyword;
        }
        placing.justification = justificationOf(keyword);
        const auto first = co_await context.ask().point({placing.justification.prompt, {}, Enter::Refused});
        placing.first = first.value;
        if (placing.hasTwoPoints()) {
            const auto second = co_await context.ask().point(
                {u"Specify second endpoint of text baseline: ", {}, Enter::Refused, placing.first});
            placing.second = second.value;
        }
        co_return placing;
    }
}

Task<TextSize> askTextSize(Context &context, const TextPlacing placing)
{
    const Style style(context, context.session().text(u"TEXTSTYLE"));
    double height = style.height > 0 ? style.height : context.session().real(u"TEXTSIZE");
    if (style.height == 0 && !placing.isAligned()) {
        const std::u16string prompt = u"Specify height <" + context.session().distanceText(height) + u">: ";
        const auto asked = co_await context.ask().distance({prompt, {}, Enter::Allowed, placing.first}, Positive);
        height = asked.hasValue() ? asked.value : height;
        context.session().assign(u"TEXTSIZE", height);
    }
    double rotation = 0;
    if (placing.hasTwoPoints()) {
        rotation = std::atan2(placing.second.y - placing.first.y, placing.second.x - placing.first.x);
    } else {
        const auto asked = co_await context.ask().direction(
            {u"Specify rotation angle of text <0>: ", {}, Enter::Allowed, placing.first});
        rotation = asked.hasValue() ? asked.value : 0;
    }
    co_return TextSize{height, rotation};
}

RecordId addText(Context &context, const TextLine &line, const TextPlacing &placing, const TextSize &size)
{
    const WorkPlane plane(context.session());
    const Justification &justification = placing.justification;
    const bool isLeft = justification.horizontal == 0 && justification.vertical == 0;
    const Vector place = plane.object(placing.first);
    const Style style(context, context.session().text(u"TEXTSTYLE"));
    const int verticalCode = line.type == u"TEXT" ? VerticalCode : VerticalOfAttributeCode;
    GroupList groups = newEntity(context, line.type);
    groups.push_back(pointGroup(FirstX, place));
    groups.push_back(realGroup(HeightCode, size.height));
    groups.push_back(textGroup(TextCode, line.content));
    groups.push_back(realGroup(RotationCode, degrees(plane.objectAngle(size.rotation))));
    if (style.width != 1)
        groups.push_back(realGroup(WidthCode, style.width));
    if (style.oblique != 0)
        groups.push_back(realGroup(ObliqueCode, style.oblique));
    groups.push_back(textGroup(StyleCode, context.session().text(u"TEXTSTYLE")));
    if (style.generation != 0)
        groups.push_back(integerGroup(GenerationCode, style.generation));
    if (!isLeft) {
        groups.push_back(integerGroup(HorizontalCode, justification.horizontal));
        groups.push_back(pointGroup(AlignmentPointCode, placing.hasTwoPoints() ? plane.object(placing.second) : place));
        groups.push_back(integerGroup(verticalCode, justification.vertical));
    }
    groups.insert(groups.end(), line.more.begin(), line.more.end());
    drawing::settleText(context.drawing(), groups);
    extrude(context, plane, groups);
    return addEntity(context, groups);
}

RecordId addTextBelow(Context &context, const TextLine &line, RecordId above)
{
    constexpr double LineDistance = 5.0 / 3; // of the height
    const GroupList look = context.database().groups(above);
    const double rotation = geometry::radians(drawing::realOf(look, RotationCode));
    const double distance = drawing::realOf(look, HeightCode) * LineDistance;
    const Vector down{std::sin(rotation) * distance, -std::cos(rotation) * distance, 0};
    GroupList groups = newEntity(context, line.type);
    for (const drawing::Group &group : look)
        if (isLook(group.code))
            groups.push_back(group);
    for (const int code : {int(FirstX), int(AlignmentPointCode)})
        if (drawing::hasGroup(groups, code))
            drawing::setGroup(groups, pointGroup(code, drawing::placeOf(groups, code) + down));
    groups.push_back(textGroup(TextCode, line.content));
    groups.insert(groups.end(), line.more.begin(), line.more.end());
    drawing::settleText(context.drawing(), groups);
    return addEntity(context, groups);
}

} // namespace commands
