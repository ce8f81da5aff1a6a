// LEADER, and the same within DIM and DIM1: an arrow, the way to a text, and the text.

#include "host/commands/Commands.h"
#include "host/commands/DimensionKinds.h"
#include "host/commands/DimensionVariables.h"
#include "host/commands/NewParagraphs.h"

#include <cmath>

namespace commands {

using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;

namespace {

struct Leader
{
    std::vector<Point> places; // in the user's coordinates; the arrow is at the first
    bool hasArrow = true, isSpline = false;
    std::u16string text;

    // The text stands on the side to which the last part goes.
    double side() const { return places.back().x < places[places.size() - 2].x ? -1 : 1; }
    bool endsLevel() const
    {
        constexpr double Steepest = 15; // degrees
        const Vector last = geometry::vectorOf(places.back()) - geometry::vectorOf(places[places.size() - 2]);
        return std::abs(last.y) <= std::tan(geometry::radians(Steepest)) * std::abs(last.x);
    }
};

Command askFormat(Context &context, Leader &leader)
{
    for (;;) {
        const auto choice = co_await context.ask().keyword(
            {u"Enter leader format option [Spline/STraight/Arrow/None] <Exit>: ", u"Spline STraight Arrow None Exit"});
        if (choice.isNothing() || choice.is(u"Exit"))
            co_return;
        if (choice.is(u"Spline") || choice.is(u"STraight"))
            leader.isSpline = choice.is(u"Spline");
        else
            leader.hasArrow = choice.is(u"Arrow");
    }
}

Command askWay(Context &context, Leader &leader)
{
    const auto start = co_await context.ask().point({u"Specify leader start point: ", {}, Enter::Refused});
    const auto second = co_await context.ask().point({u"Specify next point: ", {}, Enter::Refused, start.value});
    leader.places = {start.value, second.value};
    for (;;) {
        const auto next =
            co_await context.ask().point({u"Specify next point or [Annotation/Format/Undo] <Annotation>: ",
                                          u"Annotation Format Undo", Enter::Allowed, leader.places.back()});
        if (next.hasValue())
            leader.places.push_back(next.value);
        else if (next.is(u"Format"))
            co_await askFormat(context, leader);
        else if (!next.is(u"Undo"))
            co_return;
        else if (leader.places.size() > 2)
            leader.places.pop_back();
    }
}

// Enter at the first line leads to the kinds of annotation.
Task<std::u16string> askAnnotation(Context &context)
{
    const auto first = co_await context.ask().string(
        {u"Enter first line of annotation text or <options>: ", {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
    if (first.isNothing()) {
        const auto choice =
            co_await context.ask().keyword({u"Enter an annotation option [None/Mtext] <Mtext>: ", u"None Mtext"});
        if (choice.is(u"None"))
            co_return std::u16string();
        std::u16string text = co_await askParagraphs(context, u"MText: ");
        co_return text;
    }
    const std::u16string more = co_await askParagraphs(context, u"Enter next line of annotation text: ");
    co_return more.empty() ? first.value : first.value + u"\\P" + more;
}

// A text stands behind an end that is nearly level, else behind a level one as long as an arrow.
RecordId addAnnotation(Context &context, Leader &leader)
{
    const drawing::DimensionStyle style = currentStyle(context);
    const double side = leader.side();
    if (!leader.endsLevel()) {
        const Point &end = leader.places.back();
        leader.places.push_back({end.x + side * style.arrowSize, end.y, end.z});
    }
    const Point &end = leader.places.back();
    Paragraphs paragraphs;
    paragraphs.place = {end.x + side * style.gap, end.y, end.z};
    paragraphs.height = style.textHeight;
    paragraphs.attachment = static_cast<std::int64_t>(side < 0 ? Attachment::MiddleRight : Attachment::MiddleLeft);
    paragraphs.style = style.textStyle;
    paragraphs.text = leader.text;
    return addParagraphs(context, paragraphs);
}

void addLeader(Context &context, Leader leader)
{
    constexpr std::int64_t Paragraph = 0, WithoutAnnotation = 3;
    const RecordId annotation = leader.text.empty() ? drawing::NoRecord : addAnnotation(context, leader);
    const bool hasText = annotation != drawing::NoRecord;
    const WorkPlane plane(context.session());
    GroupList groups = newEntity(context, u"LEADER");
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbLeader"));
    groups.push_back(textGroup(3, context.session().text(u"DIMSTYLE")));
    groups.push_back(integerGroup(71, leader.hasArrow ? 1 : 0));
    groups.push_back(integerGroup(72, leader.isSpline ? 1 : 0));
    groups.push_back(integerGroup(73, hasText ? Paragraph : WithoutAnnotation));
    groups.push_back(integerGroup(74, leader.side() < 0 ? 0 : 1));
    groups.push_back(integerGroup(75, 0)); // the level end is one of the places
    groups.push_back(realGroup(40, currentStyle(context).textHeight));
    groups.push_back(integerGroup(76, static_cast<std::int64_t>(leader.places.size())));
    for (const Point &place : leader.places)
        groups.push_back(pointGroup(10, plane.world(place)));
    if (hasText)
        groups.push_back({340, drawing::Handle{context.database().record(annotation).handle}});
    groups.push_back(pointGroup(210, plane.normal()));
    groups.push_back(pointGroup(211, plane.world({1, 0, 0}) - plane.world({})));
    giveCurrentStyle(context, groups);
    addEntity(context, groups);
}

} // namespace

Command drawLeader(Context &context, TextQuestion question)
{
    Leader leader;
    co_await askWay(context, leader);
    if (question == TextQuestion::AtEnd) {
        const auto text =
            co_await context.ask().string({u"Enter dimension text: ", {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
        leader.text = text.value;
    } else {
        leader.text = co_await askAnnotation(context);
    }
    addLeader(context, leader);
}

Command leader(Context &context)
{
    return drawLeader(context, TextQuestion::AsOption);
}

} // namespace commands
