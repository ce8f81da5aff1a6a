// HATCH and BOUNDARY: areas about places, or of selected objects.

#include "host/commands/Commands.h"
#include "host/commands/Edges.h"
#include "host/commands/HatchPatterns.h"
#include "host/commands/NewEntity.h"
#include "host/commands/Picking.h"
#include "host/commands/SelectObjects.h"
#include "host/drawing/edit/CurveNet.h"
#include "host/drawing/edit/CurveWay.h"

#include <QString>

#include <algorithm>
#include <array>

namespace commands {

using drawing::CurveNet;
using drawing::integerGroup;
using drawing::Loop;
using drawing::realGroup;

namespace {

constexpr double Gap = 1e-6; // of the height of the view: ends this near meet

CurveNet netOf(Context &context, const Selection &entities)
{
    return CurveNet(Edges(context, entities).courses(), context.session().real(u"VIEWSIZE") * Gap);
}

std::vector<Loop> loopsAbout(Context &context, const Point &place, const Selection &candidates,
                             CurveNet::Islands islands)
{
    const Vector world = WorkPlane(context.session()).world(place);
    return netOf(context, candidates).loopsAbout(world, islands);
}

// Closed objects are loops by themselves; others where they enclose something together.
std::vector<Loop> loopsOf(Context &context, const Selection &entities)
{
    std::vector<Loop> loops;
    Selection open;
    for (const RecordId entity : entities) {
        const std::optional<drawing::CurveWay> way = drawing::CurveWay::of(context.drawing(), entity);
        if (!way || !way->isClosed()) {
            open.push_back(entity);
            continue;
        }
        Loop loop;
        for (const geometry::Course &piece : way->pieces())
            loop.push_back(piece.curve());
        loops.push_back(std::move(loop));
    }
    const std::vector<Loop> enclosed = netOf(context, open).outerLoops();
    loops.insert(loops.end(), enclosed.begin(), enclosed.end());
    return loops;
}

// --- HATCH ---

struct HatchSettings
{
    HatchPattern pattern;
    double scale = 1, angle = 0; // degrees
};

HatchSettings currentSettings(const Session &session)
{
    const std::u16string name = session.text(u"HPNAME");
    return {hatchPattern(name).value_or(*hatchPattern(u"ANSI31")), session.real(u"HPSCALE"),
            session.real(u"HPANG") * (360 / geometry::FullTurn)};
}

Task<void> askUserPattern(Context &context, HatchSettings &settings)
{
    const auto angle = co_await context.ask().angle({u"Specify angle for crosshatch lines <0>: "});
    const auto spacing = co_await context.ask().distance({u"Specify spacing between the lines <1.0000>: "}, Positive);
    const auto isDouble = co_await context.ask().keyword({u"Double hatch area? [Yes/No] <N>: ", u"Yes No"});
    settings.angle = degrees(angle.hasValue() ? angle.value : 0);
    settings.scale = 1;
    settings.pattern = userPattern(spacing.hasValue() ? spacing.value : 1, isDouble.is(u"Yes"));
}

// "name" or "name,style"; "U" for lines of one's own.
Task<void> askPattern(Context &context, std::u16string typed, HatchSettings &settings)
{
    if (typed.starts_with(u'_'))
        typed.erase(0, 1);
    typed.resize(std::min(typed.find(u','), typed.size()));
    if (typed == u"u" || typed == u"U") {
        co_await askUserPattern(context, settings);
        co_return;
    }
    const std::optional<HatchPattern> pattern = hatchPattern(typed);
    if (!pattern)
        throw CommandError{u"Pattern " + typed + u" was not found."};
    settings.pattern = *pattern;
    context.session().set(u"HPNAME", pattern->name);
    if (pattern->isSolid())
        co_return;
    const std::u16string scaleText = QString::number(settings.scale, 'f', 4).toStdU16String();
    const std::u16string scalePrompt = u"Specify a scale for the pattern <" + scaleText + u">: ";
    const auto scale = co_await context.ask().real({scalePrompt}, Positive);
    const auto angle = co_await context.ask().angle({u"Specify an angle for the pattern <0>: "});
    if (scale.hasValue())
        settings.scale = scale.value;
    if (angle.hasValue())
        settings.angle = degrees(angle.value);
    context.session().set(u"HPSCALE", settings.scale);
    context.session().set(u"HPANG", geometry::radians(settings.angle));
}

void addLoop(const Loop &loop, bool isOutermost, GroupList &groups)
{
    constexpr std::int64_t External = 1, Polyline = 2, Outermost = 16;
    const drawing::PolylineData polyline = drawing::polylineOf(loop);
    groups.push_back(integerGroup(92, Polyline | (isOutermost ? External : Outermost)));
    groups.push_back(integerGroup(72, 1)); // with bulges
    groups.push_back(integerGroup(73, 1)); // closed
    groups.push_back(integerGroup(93, static_cast<std::int64_t>(polyline.vertices.size())));
    for (const auto &vertex : polyline.vertices) {
        groups.push_back(drawing::flatPointGroup(10, vertex.place));
        groups.push_back(realGroup(42, vertex.bulge));
    }
    groups.push_back(integerGroup(97, 0));
}

void addHatch(Context &context, const std::vector<Loop> &loops, const HatchSettings &settings)
{
    const double height = loops.front().empty() ? 0 : geometry::startOf(loops.front().front()).z;
    GroupList groups = newEntity(context, u"HATCH");
    groups.push_back(drawing::textGroup(drawing::groupcode::Subclass, u"AcDbHatch"));
    groups.push_back(drawing::pointGroup(10, {0, 0, height}));
    groups.push_back(drawing::pointGroup(210, {0, 0, 1}));
    groups.push_back(drawing::textGroup(2, settings.pattern.name));
    groups.push_back(integerGroup(70, settings.pattern.isSolid() ? 1 : 0));
    groups.push_back(integerGroup(71, 0)); // does not follow its boundary
    groups.push_back(integerGroup(91, static_cast<std::int64_t>(loops.size())));
    for (std::size_t i = 0; i < loops.size(); ++i)
        addLoop(loops[i], i == 0, groups);
    addPattern(groups, settings.pattern, settings.scale, settings.angle);
    groups.push_back(integerGroup(98, 0));
    addEntity(context, groups);
}

// Asks for a pattern's name in the middle of the command.
Task<void> askProperties(Context &context, HatchSettings &settings)
{
    const std::u16string prompt =
        u"Enter a pattern name or [?/Solid/User defined] <" + context.session().text(u"HPNAME") + u">: ";
    const auto name = co_await context.ask().string({prompt});
    std::u16string typed = name.isNothing() ? context.session().text(u"HPNAME") : name.value;
    if (typed == u"s" || typed == u"S" || typed == u"_s")
        typed = u"SOLID";
    co_await askPattern(context, typed, settings);
}

Command hatchObjects(Context &context, const HatchSettings settings)
{
    const Selection entities = co_await selectObjects(context, Purpose::Look);
    if (entities.empty())
        co_return;
    const std::vector<Loop> loops = loopsOf(context, entities);
    if (loops.empty())
        throw CommandError{u"Unable to hatch the boundary."};
    addHatch(context, loops, settings);
}

// --- BOUNDARY ---

struct BoundarySettings
{
    CurveNet::Islands islands = CurveNet::Islands::With;
    std::optional<Selection> candidates; // none: all that is seen
};

// The direction of the first ray is asked for as programs expect; the loop about a place is the same from all sides.
Task<void> askIslands(Context &context, BoundarySettings &settings)
{
    const auto wanted = co_await context.ask().keyword({u"Do you want island detection? [Yes/No] <Y>: ", u"Yes No"});
    settings.islands = wanted.is(u"No") ? CurveNet::Islands::Without : CurveNet::Islands::With;
    if (wanted.is(u"No"))
        co_await context.ask().string({u"Enter type of ray casting [Nearest/+X/-X/+Y/-Y/Angle] <Nearest>: "});
}

Task<void> askCandidates(Context &context, BoundarySettings &settings)
{
    const auto set = co_await context.ask().keyword(
        {u"Specify candidate set for boundary [New/Everything] <Everything>: ", u"New Everything"});
    settings.candidates.reset();
    if (set.is(u"New"))
        settings.candidates = co_await selectObjects(context, Purpose::Look);
}

Task<void> askObjectType(Context &context)
{
    const auto type = co_await context.ask().keyword(
        {u"Enter type of boundary object [Region/Polyline] <Polyline>: ", u"Region Polyline"});
    if (type.is(u"Region"))
        throw CommandError{u"Regions cannot be made."};
}

Task<void> askAdvanced(Context &context, BoundarySettings &settings)
{
    for (;;) {
        const auto option = co_await context.ask().keyword(
            {u"Enter an option [Boundary set/Island detection/Object type]: ", u"Boundary Island Object"});
        if (option.isNothing())
            co_return;
        if (option.is(u"Island"))
            co_await askIslands(context, settings);
        else if (option.is(u"Object"))
            co_await askObjectType(context);
        else
            co_await askCandidates(context, settings);
    }
}

// What a hatch has now; its pattern, where it is none of those here, gives place to the first.
HatchSettings settingsOf(const GroupList &groups)
{
    const std::optional<HatchPattern> pattern = hatchPattern(drawing::textOf(groups, 2));
    return {pattern.value_or(*hatchPattern(u"ANSI31")), drawing::realOf(groups, 41, 1), drawing::realOf(groups, 52)};
}

// The pattern's groups follow the boundaries in one piece.
void replacePattern(GroupList &groups, const HatchSettings &settings)
{
    constexpr std::array codes{41, 43, 44, 45, 46, 49, 52, 53, 73, 75, 76, 77, 78, 79};
    constexpr int StyleCode = 75;
    const auto begin =
        std::find_if(groups.begin(), groups.end(), [](const drawing::Group &group) { return group.code == StyleCode; });
    const auto end = std::find_if(begin, groups.end(), [&codes](const drawing::Group &group) {
        return std::find(codes.begin(), codes.end(), group.code) == codes.end();
    });
    GroupList pattern;
    addPattern(pattern, settings.pattern, settings.scale, settings.angle);
    if (begin != groups.end())
        std::get<std::int64_t>(pattern.front().value) = std::get<std::int64_t>(begin->value);
    groups.insert(groups.erase(begin, end), pattern.begin(), pattern.end());
    drawing::setGroup(groups, drawing::textGroup(2, settings.pattern.name));
    drawing::setGroup(groups, integerGroup(70, settings.pattern.isSolid() ? 1 : 0));
}

} // namespace

// A pattern's name as the first answer is what this command asked for in earlier times; programs still send it.
Command hatch(Context &context)
{
    HatchSettings settings = currentSettings(context.session());
    std::vector<Loop> loops;
    for (;;) {
        const auto answer = co_await context.ask().any(
            InputKind::Point, {u"Specify internal point or [Properties/Select objects]: ", u"Properties Select"});
        if (answer.isNothing())
            break;
        if (answer.is(u"Properties")) {
            co_await askProperties(context, settings);
        } else if (answer.is(u"Select")) {
            const Selection entities = co_await selectObjects(context, Purpose::Look);
            const std::vector<Loop> more = loopsOf(context, entities);
            loops.insert(loops.end(), more.begin(), more.end());
        } else if (const std::optional<Point> place = pointOf(answer.value, context.session())) {
            const std::vector<Loop> more =
                loopsAbout(context, *place, visibleEntities(context.session()), CurveNet::Islands::With);
            if (more.empty())
                context.session().print(u"\nValid hatch boundary not found.\n");
            loops.insert(loops.end(), more.begin(), more.end());
        } else if (const auto *name = std::get_if<std::u16string>(&answer.value); name && loops.empty()) {
            co_await askPattern(context, *name, settings);
            co_await hatchObjects(context, settings);
            co_return;
        } else {
            context.session().print(u"\nPoint or option keyword required.\n");
        }
    }
    if (!loops.empty())
        addHatch(context, loops, settings);
}

Command boundary(Context &context)
{
    BoundarySettings settings;
    std::vector<Loop> loops;
    for (;;) {
        const auto place =
            co_await context.ask().point({u"Specify internal point or [Advanced options]: ", u"Advanced"});
        if (place.isNothing())
            break;
        if (place.is(u"Advanced")) {
            co_await askAdvanced(context, settings);
            continue;
        }
        const Selection candidates = settings.candidates ? *settings.candidates : visibleEntities(context.session());
        const std::vector<Loop> found = loopsAbout(context, place.value, candidates, settings.islands);
        if (found.empty())
            context.session().print(u"\nValid hatch boundary not found.\n");
        loops.insert(loops.end(), found.begin(), found.end());
    }
    const WorkPlane world(geometry::Matrix{});
    for (const Loop &loop : loops)
        addPolyline(context, world, drawing::polylineOf(loop).vertices, Closing::Closed);
    if (!loops.empty())
        context.say(QStringLiteral("BOUNDARY created %1 polyline%2")
                        .arg(loops.size())
                        .arg(loops.size() == 1 ? QString() : QStringLiteral("s"))
                        .toStdU16String());
}

// Properties, the default, are the pattern with its scale and angle.
Command editHatch(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select hatch object: ", {}, Enter::Refused});
    const RecordId hatch = picked.value.entity;
    if (context.database().type(hatch) != u"HATCH")
        throw CommandError{u"The object is not a hatch."};
    const auto option = co_await context.ask().keyword(
        {u"Enter hatch option [DIsassociate/Style/Properties] <Properties>: ", u"DIsassociate Style Properties"});
    GroupList groups = context.database().groups(hatch);
    if (option.is(u"DIsassociate")) {
        drawing::setGroup(groups, integerGroup(71, 0));
    } else if (option.is(u"Style")) {
        const auto style = co_await context.ask().keyword(
            {u"Enter hatching style [Ignore/Outer/Normal] <Normal>: ", u"Ignore Outer Normal"});
        drawing::setGroup(groups, integerGroup(75, style.is(u"Ignore") ? 2 : style.is(u"Outer") ? 1 : 0));
    } else {
        HatchSettings settings = settingsOf(groups);
        co_await askProperties(context, settings);
        replacePattern(groups, settings);
    }
    context.database().replace(hatch, groups);
}

} // namespace commands
