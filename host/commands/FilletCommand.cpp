// FILLET: joins lines and arcs by an arc that touches both, or by their corner.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"
#include "host/commands/TouchingCircle.h"
#include "host/drawing/edit/CurveWay.h"
#include "host/drawing/geometry/Crossings.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::CurveWay;
using drawing::WayEnd;
using geometry::Span;

namespace {

Side sideOf(Context &context, const PickedEntity &object)
{
    const std::optional<Side> side = pickedSide(context, object, WorkPlane(geometry::Matrix()));
    if (!side)
        throw CommandError{u"Fillet requires 2 lines, arcs, or circles."};
    return *side;
}

Touching corner(const Side &first, const Side &second)
{
    Touching best;
    double least = INFINITY;
    for (const geometry::Crossing &crossing : crossings(first.course, second.course, Span::Extended, Span::Extended))
        if (const double away = length(crossing.place - first.picked) + length(crossing.place - second.picked);
            away < least) {
            least = away;
            best = {crossing.place, crossing.place, crossing.place, true};
        }
    return best;
}

// The end behind the place goes to the place; the one that the object was picked on stays. Circles stay whole.
void cutAt(Context &context, const Side &side, const Vector &place)
{
    if (side.course.isClosed())
        return;
    const double cut = *side.course.parameterOf(place, Span::Extended);
    double picked = *side.course.parameterOf(side.picked, Span::Extended);
    WayEnd end = picked > cut ? WayEnd::Start : WayEnd::End;
    const bool isBehindArc = side.course.arc() && cut > side.course.last();
    if (isBehindArc) // all around: nearer to which end it lies
        end = cut - side.course.last() < side.course.first() + geometry::FullTurn - cut ? WayEnd::End : WayEnd::Start;
    const double whole = side.course.last() - side.course.first();
    const double part = (cut - side.course.first()) / whole;
    const bool isInside = part > 0 && part < 1;
    const bool isDone =
        isInside ? drawing::keepParts(context.drawing(), side.entity,
                                      {end == WayEnd::Start ? drawing::WayPart{part, 1} : drawing::WayPart{0, part}})
                 : drawing::moveEnd(context.drawing(), side.entity, end, place);
    if (!isDone)
        throw CommandError{u"The object cannot be changed."};
}

// The shorter way between the two places.
void addArc(Context &context, const Touching &touch, double radius)
{
    const auto angle = [&](const Vector &place) {
        return std::atan2(place.y - touch.centre.y, place.x - touch.centre.x);
    };
    double start = angle(touch.first), end = angle(touch.second);
    if (std::sin(end - start) < 0)
        std::swap(start, end);
    GroupList arc = newEntity(context, u"ARC");
    arc.push_back(drawing::pointGroup(drawing::groupcode::FirstX, touch.centre));
    arc.push_back(drawing::realGroup(40, radius));
    arc.push_back(drawing::realGroup(50, degrees(start)));
    arc.push_back(drawing::realGroup(51, degrees(end)));
    addEntity(context, arc);
}

void join(Context &context, const PickedEntity &one, const PickedEntity &other)
{
    if (one.entity == other.entity)
        throw CommandError{u"The same object cannot be filleted with itself."};
    const Side first = sideOf(context, one), second = sideOf(context, other);
    const double radius = context.session().real(u"FILLETRAD");
    const Touching touch = radius > 0 ? touching(first, second, radius) : corner(first, second);
    if (!touch.isFound)
        throw CommandError{radius > 0 ? u"Radius is too large." : u"Lines are parallel."};
    if (context.session().integer(u"TRIMMODE") != 0) {
        cutAt(context, first, touch.first);
        cutAt(context, second, touch.second);
    }
    if (radius > 0)
        addArc(context, touch, radius);
}

// Every corner of two straight segments that are long enough.
void filletPolyline(Context &context, RecordId entity)
{
    std::optional<drawing::PolylineData> polyline = drawing::polylineOf(context.database(), entity);
    if (!polyline || polyline->isInSpace || context.database().isBefore2000())
        throw CommandError{u"Object selected is not a 2D polyline."};
    const double radius = context.session().real(u"FILLETRAD");
    const auto old = polyline->vertices;
    const std::size_t count = old.size();
    polyline->vertices.clear();
    std::size_t filleted = 0, tooShort = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isEnd = !polyline->isClosed && (i == 0 || i + 1 == count);
        const auto &before = old[(i + count - 1) % count], &vertex = old[i], &after = old[(i + 1) % count];
        const Vector in = vertex.place - before.place, out = after.place - vertex.place;
        const double turn = std::atan2(in.x * out.y - in.y * out.x, dot(in, out));
        const double cut = radius * std::abs(std::tan(turn / 2));
        const bool isStraight = before.bulge == 0 && vertex.bulge == 0;
        const bool fits = cut > 0 && cut * 2 <= length(in) && cut * 2 <= length(out);
        if (isEnd || !isStraight || !fits || turn == 0) {
            tooShort += !isEnd && isStraight && turn != 0;
            polyline->vertices.push_back(vertex);
            continue;
        }
        ++filleted;
        auto start = vertex, end = vertex;
        start.place = vertex.place - normalized(in) * cut;
        start.bulge = std::tan(turn / 4);
        end.place = vertex.place + normalized(out) * cut;
        polyline->vertices.push_back(start);
        polyline->vertices.push_back(end);
    }
    if (!drawing::replacePolyline(context.drawing(), entity, *polyline))
        throw CommandError{u"The object cannot be changed."};
    context.say(QStringLiteral("%1 lines were filleted").arg(filleted).toStdU16String());
    if (tooShort > 0)
        context.say(QStringLiteral("%1 were too short").arg(tooShort).toStdU16String());
}

Task<void> askRadius(Context &context)
{
    const std::u16string prompt =
        u"Specify fillet radius <" + context.session().distanceText(context.session().real(u"FILLETRAD")) + u">: ";
    const auto radius = co_await context.ask().distance({prompt}, NotNegative);
    if (radius.hasValue())
        context.session().set(u"FILLETRAD", radius.value);
}

Task<void> askTrimMode(Context &context)
{
    const auto mode = co_await context.ask().keyword({u"Enter Trim mode option [Trim/No trim]: ", u"Trim No"});
    if (!mode.isNothing())
        context.session().set(u"TRIMMODE", mode.is(u"Trim") ? 1 : 0);
}

} // namespace

// The radius is asked for without ending the command, as it has been since there is Multiple; programs that set it and
// want nothing else send an Enter.
Command fillet(Context &context)
{
    for (bool isMultiple = false;;) {
        const auto first = co_await context.ask().entity(
            {u"Select first object or [Polyline/Radius/Trim/Multiple]: ", u"Polyline Radius Trim Multiple"});
        if (first.isNothing())
            co_return;
        if (first.is(u"Radius")) {
            co_await askRadius(context);
        } else if (first.is(u"Trim")) {
            co_await askTrimMode(context);
        } else if (first.is(u"Multiple")) {
            isMultiple = true;
        } else if (first.is(u"Polyline")) {
            const auto polyline = co_await context.ask().entity({u"Select 2D polyline: ", {}, Enter::Refused});
            filletPolyline(context, polyline.value.entity);
            co_return;
        } else {
            const auto second = co_await context.ask().entity({u"Select second object: ", {}, Enter::Refused});
            join(context, first.value, second.value);
            if (!isMultiple)
                co_return;
        }
    }
}

} // namespace commands
