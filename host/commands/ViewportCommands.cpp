// -VPORTS and MVIEW: the windows of a layout into the model.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"
#include "host/commands/SelectObjects.h"
#include "host/drawing/Layouts.h"
#include "host/drawing/geometry/Extents.h"
#include "host/drawing/selection/Candidates.h"

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::flatPointGroup;
using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;

namespace {

constexpr int NumberCode = 69, FlagsCode = 90;
constexpr std::int64_t LockedFlag = 0x4000, OffFlag = 0x20000;

struct Rectangle
{
    Vector lower, upper;
};

Rectangle rectangleOf(const Point &a, const Point &b)
{
    return {{std::min(a.x, b.x), std::min(a.y, b.y), 0}, {std::max(a.x, b.x), std::max(a.y, b.y), 0}};
}

// What of the paper can be printed on; its lower left corner is the layout's origin.
Rectangle printableArea(Context &context)
{
    enum Code : int { LeftMargin = 40, BottomMargin, RightMargin, TopMargin, PaperWidth, PaperHeight, Turns = 73 };
    const std::optional<drawing::Layout> layout = drawing::activeLayout(context.drawing());
    const GroupList groups = layout ? context.database().groups(layout->object) : GroupList();
    const double width = drawing::realOf(groups, PaperWidth) - drawing::realOf(groups, LeftMargin) -
                         drawing::realOf(groups, RightMargin);
    const double height = drawing::realOf(groups, PaperHeight) - drawing::realOf(groups, BottomMargin) -
                          drawing::realOf(groups, TopMargin);
    const bool isTurned = drawing::integerOf(groups, Turns) % 2 != 0;
    return {{}, isTurned ? Vector{height, width, 0} : Vector{width, height, 0}};
}

// All of the model, or where it is empty, its limits.
Rectangle modelArea(Context &context)
{
    geometry::Box box;
    for (const RecordId entity : selection::visibleEntities(context.drawing(), {selection::Space::Model}))
        if (const std::optional<geometry::Box> one = geometry::extentsOf(context.drawing(), entity))
            box.add(*one);
    if (!box.isEmpty() && (box.maximum.x > box.minimum.x || box.maximum.y > box.minimum.y))
        return {box.minimum, box.maximum};
    return rectangleOf(context.session().point(u"LIMMIN"), context.session().point(u"LIMMAX"));
}

// 1 is the sheet itself.
std::int64_t freeNumber(Context &context)
{
    std::int64_t last = 1;
    for (const RecordId entity : selection::allEntities(context.drawing()))
        if (context.database().type(entity) == u"VIEWPORT")
            last = std::max(last, drawing::integerOf(context.database().groups(entity), NumberCode));
    return last + 1;
}

void addViewport(Context &context, const Rectangle &place)
{
    const double width = place.upper.x - place.lower.x, height = place.upper.y - place.lower.y;
    if (!(width > 0 && height > 0))
        throw CommandError{u"The viewport has no size."};
    const Rectangle seen = modelArea(context);
    const double viewHeight = std::max(seen.upper.y - seen.lower.y, (seen.upper.x - seen.lower.x) * height / width);
    const std::int64_t number = freeNumber(context);
    constexpr std::int64_t UsualFlags = 0x8060; // its coordinate system's icon is shown, and follows
    GroupList groups = newEntity(context, u"VIEWPORT");
    groups.push_back(drawing::textGroup(drawing::groupcode::Subclass, u"AcDbViewport"));
    groups.push_back(pointGroup(10, (place.lower + place.upper) * 0.5));
    groups.push_back(realGroup(40, width));
    groups.push_back(realGroup(41, height));
    groups.push_back(integerGroup(68, number));
    groups.push_back(integerGroup(NumberCode, number));
    groups.push_back(flatPointGroup(12, (seen.lower + seen.upper) * 0.5));
    for (const int spacing : {14, 15})
        groups.push_back(flatPointGroup(spacing, {10, 10, 0}));
    groups.push_back(pointGroup(16, {0, 0, 1}));
    groups.push_back(pointGroup(17, {}));
    groups.push_back(realGroup(42, 50)); // a lens
    groups.push_back(realGroup(45, viewHeight));
    groups.push_back(integerGroup(72, 1000));
    groups.push_back(integerGroup(FlagsCode, UsualFlags));
    addEntity(context, groups);
}

enum class Setting { On, Off };

Command setFlag(Context &context, const std::int64_t flag, const Setting setting)
{
    for (const RecordId entity : co_await selectObjects(context)) {
        if (context.database().type(entity) != u"VIEWPORT")
            continue;
        GroupList groups = context.database().groups(entity);
        const std::int64_t flags = drawing::integerOf(groups, FlagsCode);
        drawing::setGroup(groups, integerGroup(FlagsCode, setting == Setting::On ? flags | flag : flags & ~flag));
        context.database().replace(entity, groups);
    }
}

// There is one view of the model. What a program says of others is heard and changes nothing.
Command modelViewports(Context &context)
{
    const auto option = co_await context.ask().keyword(
        {u"Enter an option [Save/Restore/Delete/SIngle/?/2/3/4] <3>: ", u"Save Restore Delete SIngle ? 2 3 4"});
    if (option.is(u"Save") || option.is(u"Restore") || option.is(u"Delete"))
        co_await context.ask().string({u"Enter name of viewport configuration: ", {}, Enter::Refused});
    else if (option.is(u"2"))
        co_await context.ask().keyword(
            {u"Enter a configuration option [Horizontal/Vertical] <Vertical>: ", u"Horizontal Vertical"});
    else if (option.is(u"3") || option.isNothing())
        co_await context.ask().keyword(
            {u"Enter a configuration option [Horizontal/Vertical/Above/Below/Left/Right] <Right>: ",
             u"Horizontal Vertical Above Below Left Right"});
    if (!option.is(u"SIngle"))
        context.say(u"The model is shown in one viewport here.");
}

} // namespace

Command viewports(Context &context)
{
    if (context.session().integer(u"TILEMODE") != 0)
        co_return co_await modelViewports(context);
    if (!context.session().isPaperSpaceCurrent())
        throw CommandError{u"** Command only valid in Paper space **"};
    const auto corner =
        co_await context.ask().point({u"Specify corner of viewport or [ON/OFF/Fit/Lock] <Fit>: ", u"ON OFF Fit Lock"});
    if (corner.hasValue()) {
        const auto opposite =
            co_await context.ask().corner({u"Specify opposite corner: ", {}, Enter::Refused, corner.value});
        addViewport(context, rectangleOf(corner.value, opposite.value));
    } else if (corner.is(u"ON")) {
        co_await setFlag(context, OffFlag, Setting::Off);
    } else if (corner.is(u"OFF")) {
        co_await setFlag(context, OffFlag, Setting::On);
    } else if (corner.is(u"Lock")) {
        const auto locks =
            co_await context.ask().keyword({u"Viewport View Locking [ON/OFF]: ", u"ON OFF", Enter::Refused});
        co_await setFlag(context, LockedFlag, locks.is(u"ON") ? Setting::On : Setting::Off);
    } else {
        addViewport(context, printableArea(context));
    }
}

} // namespace commands
