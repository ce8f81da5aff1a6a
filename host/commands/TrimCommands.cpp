// TRIM and EXTEND: objects up to where others cross them.

#include "host/commands/Commands.h"
#include "host/commands/Edges.h"
#include "host/commands/Picking.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/CurveWay.h"
#include "host/drawing/selection/Candidates.h"

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::CurveWay;
using drawing::WayEnd;
using drawing::WayPart;
using geometry::Course;
using geometry::Span;

namespace {

constexpr double Rounding = 1e-9;

std::vector<double> crossingsOf(const CurveWay &way, const Edges &edges)
{
    std::vector<double> places;
    for (const Course &edge : edges.courses()) {
        const std::vector<double> more = way.crossings(edge, edges.span());
        places.insert(places.end(), more.begin(), more.end());
    }
    std::ranges::sort(places);
    const auto isSame = [](double a, double b) { return b - a < Rounding; };
    places.erase(std::unique(places.begin(), places.end(), isSame), places.end());
    return places;
}

// What is left when the piece between the neighbouring crossings goes; nothing when there are none.
std::optional<std::vector<WayPart>> partsWithout(const CurveWay &way, const std::vector<double> &cuts, double picked)
{
    const auto after = std::ranges::upper_bound(cuts, picked);
    if (way.isClosed()) {
        if (cuts.size() < 2)
            return std::nullopt;
        const double end = after != cuts.end() ? *after : cuts.front() + way.count();
        const double start = after != cuts.begin() ? *(after - 1) : cuts.back() - way.count();
        const WayPart rest{end, start + way.count()};
        return std::vector{rest.from >= way.count() ? WayPart{rest.from - way.count(), rest.to - way.count()} : rest};
    }
    const bool hasStart = after != cuts.begin() && *(after - 1) > Rounding;
    const bool hasEnd = after != cuts.end() && *after < way.count() - Rounding;
    std::vector<WayPart> parts;
    if (hasStart)
        parts.push_back({0, *(after - 1)});
    if (hasEnd)
        parts.push_back({*after, way.count()});
    return parts.empty() ? std::nullopt : std::optional(parts);
}

std::u16string_view trimObject(Context &context, const Edges &edges, RecordId entity, const Vector &at)
{
    const std::optional<CurveWay> way = CurveWay::of(context.drawing(), entity);
    if (!way)
        return u"Cannot TRIM this object.";
    const auto parts = partsWithout(*way, crossingsOf(*way, edges), way->nearest(at));
    if (!parts)
        return u"Object does not intersect an edge.";
    return drawing::keepParts(context.drawing(), entity, *parts) ? u"" : u"Cannot TRIM this object.";
}

// The nearest place that one end of a way goes on to; none: it meets no edge.
std::optional<Vector> placeBehind(const CurveWay &way, WayEnd end, const Edges &edges)
{
    const Course &piece = end == WayEnd::Start ? way.pieces().front() : way.pieces().back();
    std::optional<Vector> nearest;
    double least = INFINITY;
    for (const Course &edge : edges.courses())
        for (const geometry::Crossing &crossing : crossings(piece, edge, Span::Extended, edges.span())) {
            double behind = end == WayEnd::Start ? piece.first() - crossing.first : crossing.first - piece.last();
            if (piece.arc() && end == WayEnd::Start) // parameters of an arc grow from its start on, all around
                behind += geometry::FullTurn;
            const bool isInside = piece.arc() ? crossing.first <= piece.last() + Rounding : behind <= Rounding;
            if (!isInside && behind > Rounding && behind < least) {
                least = behind;
                nearest = crossing.place;
            }
        }
    return nearest;
}

std::u16string_view extendObject(Context &context, const Edges &edges, RecordId entity, const Vector &at)
{
    const std::optional<CurveWay> way = CurveWay::of(context.drawing(), entity);
    if (!way || way->isClosed())
        return u"Cannot EXTEND this object.";
    const WayEnd end = way->nearest(at) * 2 < way->count() ? WayEnd::Start : WayEnd::End;
    const std::optional<Vector> place = placeBehind(*way, end, edges);
    if (!place)
        return u"Object does not intersect an edge.";
    return drawing::moveEnd(context.drawing(), entity, end, *place) ? u"" : u"Cannot EXTEND this object.";
}

using Change = std::u16string_view (*)(Context &context, const Edges &edges, RecordId entity, const Vector &at);

void tell(Context &context, std::u16string_view complaint)
{
    if (!complaint.empty())
        context.session().print(u'\n' + std::u16string(complaint) + u'\n');
}

// Each object where the fence crosses it.
Task<void> changeAlongFence(Context &context, const Selection &edges, Change change)
{
    std::vector<Point> fence;
    for (;;) {
        const auto place = co_await context.ask().point({u"Specify next fence point or [Undo]: ", u"Undo"});
        if (!place.hasValue())
            break;
        fence.push_back(place.value);
    }
    const WorkPlane plane(context.session());
    for (std::size_t i = 0; i + 1 < fence.size(); ++i)
        for (const RecordId entity : entitiesCrossed(context.session(), {fence[i], fence[i + 1]})) {
            const std::optional<CurveWay> way = CurveWay::of(context.drawing(), entity);
            const Course line(geometry::Line{plane.world(fence[i]), plane.world(fence[i + 1])});
            const std::vector<double> places = way ? way->crossings(line, Span::Bounded) : std::vector<double>();
            if (!places.empty())
                tell(context, change(context, Edges(context, edges), entity, way->at(places.front())));
        }
}

Task<void> askEdgeMode(Context &context)
{
    const auto mode =
        co_await context.ask().keyword({u"Enter an implied edge extension mode [Extend/No extend]: ", u"Extend No"});
    if (!mode.isNothing())
        context.session().set(u"EDGEMODE", mode.is(u"Extend") ? 1 : 0);
}

Task<void> eraseObjects(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    for (const RecordId entity : entities)
        context.database().erase(entity);
}

Command changeAtEdges(Context &context, std::u16string_view prompt, Change change)
{
    Selection edges = co_await selectObjects(context, Purpose::Look);
    if (edges.empty())
        edges = visibleEntities(context.session());
    const WorkPlane plane(context.session());
    for (;;) {
        const auto picked = co_await context.ask().entity({prompt, u"Fence Edge eRase"});
        if (picked.isNothing())
            co_return;
        if (picked.is(u"Fence"))
            co_await changeAlongFence(context, edges, change);
        else if (picked.is(u"Edge"))
            co_await askEdgeMode(context);
        else if (picked.is(u"eRase"))
            co_await eraseObjects(context);
        else if (!picked.hasValue() || !picked.value.at)
            tell(context, u"Invalid selection");
        else if (selection::isOnLockedLayer(context.drawing(), picked.value.entity))
            tell(context, u"Object is on a locked layer.");
        else
            tell(context, change(context, Edges(context, edges), picked.value.entity, plane.world(*picked.value.at)));
    }
}

} // namespace

Command trim(Context &context)
{
    return changeAtEdges(context, u"Select object to trim or [Fence/Edge/eRase]: ", trimObject);
}

Command extend(Context &context)
{
    return changeAtEdges(context, u"Select object to extend or [Fence/Edge/eRase]: ", extendObject);
}

} // namespace commands
