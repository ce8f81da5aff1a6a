// PEDIT: joins, closes, widens and reverses polylines; makes them of lines and arcs.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"
#include "host/commands/SelectObjects.h"

#include <algorithm>

namespace commands {

using drawing::PolylineData;

namespace {

bool isSamePlace(const Vector &a, const Vector &b)
{
    constexpr double Tolerance = 1e-9;
    return geometry::length(a - b) <= Tolerance * std::max({1.0, geometry::length(a), geometry::length(b)});
}

// The polyline that is edited.
class Edited
{
public:
    Edited(Context &context, RecordId entity, PolylineData polyline)
        : m_context(context), m_entity(entity), m_polyline(std::move(polyline))
    {
    }

    RecordId entity() const { return m_entity; }
    const PolylineData &polyline() const { return m_polyline; }
    void change(PolylineData changed)
    {
        if (!drawing::replacePolyline(m_context.drawing(), m_entity, changed))
            throw CommandError{u"The polyline cannot be changed."};
        m_polyline = std::move(changed);
    }

private:
    Context &m_context;
    RecordId m_entity;
    PolylineData m_polyline;
};

// Appends one polyline to the end or the start of another, reversed when its own end lies there.
bool append(PolylineData &polyline, PolylineData other)
{
    std::vector<PolylineVertex> &vertices = polyline.vertices;
    const auto meets = [&](const Vector &place) {
        return isSamePlace(place, other.vertices.front().place) || isSamePlace(place, other.vertices.back().place);
    };
    if (!meets(vertices.back().place)) {
        if (!meets(vertices.front().place))
            return false;
        drawing::reverse(polyline);
    }
    if (!isSamePlace(vertices.back().place, other.vertices.front().place))
        drawing::reverse(other);
    vertices.pop_back();
    vertices.insert(vertices.end(), other.vertices.begin(), other.vertices.end());
    return true;
}

struct Piece
{
    RecordId entity;
    PolylineData polyline;
};

std::vector<Piece> pieces(Context &context, const Selection &entities, const Edited &edited)
{
    std::vector<Piece> found;
    for (const RecordId entity : entities) {
        const std::optional<PolylineData> polyline = drawing::asPolyline(context.database(), entity);
        if (entity != edited.entity() && polyline && !polyline->isClosed && !polyline->isInSpace &&
            polyline->vertices.size() > 1 && polyline->extrusion == edited.polyline().extrusion)
            found.push_back({entity, *polyline});
    }
    return found;
}

// One piece after the other, until none of those that are left meets an end.
Command join(Context &context, Edited &edited)
{
    const Selection entities = co_await selectObjects(context);
    std::vector<Piece> left = pieces(context, entities, edited);
    PolylineData joined = edited.polyline();
    std::size_t added = 0;
    const auto fits = [&joined](const Piece &piece) { return append(joined, piece.polyline); };
    for (auto piece = std::ranges::find_if(left, fits); piece != left.end(); piece = std::ranges::find_if(left, fits)) {
        context.database().erase(piece->entity);
        left.erase(piece);
        ++added;
    }
    if (joined.vertices.size() > 2 && isSamePlace(joined.vertices.front().place, joined.vertices.back().place)) {
        joined.vertices.pop_back();
        joined.isClosed = true;
    }
    if (added > 0)
        edited.change(std::move(joined));
    context.say(shown(static_cast<std::int64_t>(added)) + u" segments added to polyline");
}

Command widen(Context &context, Edited &edited)
{
    const auto width =
        co_await context.ask().distance({u"Specify new width for all segments: ", {}, Enter::Refused}, NotNegative);
    PolylineData changed = edited.polyline();
    for (PolylineVertex &vertex : changed.vertices)
        vertex.startWidth = vertex.endWidth = width.value;
    edited.change(std::move(changed));
}

Command generateLinetype(Context &context, Edited &edited)
{
    const auto choice =
        co_await context.ask().keyword({u"Enter polyline linetype generation option [ON/OFF] <Off>: ", u"ON OFF"});
    PolylineData changed = edited.polyline();
    changed.generatesLinetype = choice.is(u"ON");
    edited.change(std::move(changed));
}

void setClosed(Edited &edited, bool isClosed)
{
    PolylineData changed = edited.polyline();
    changed.isClosed = isClosed;
    edited.change(std::move(changed));
}

Command editOptions(Context &context, Edited &edited)
{
    for (;;) {
        const bool isClosed = edited.polyline().isClosed;
        const auto option =
            co_await context.ask().keyword({isClosed ? u"Enter an option [Open/Join/Width/Ltype gen/Reverse]: "
                                                     : u"Enter an option [Close/Join/Width/Ltype gen/Reverse]: ",
                                            u"Close Open Join Width Ltype Reverse eXit"});
        if (option.isNothing() || option.is(u"eXit"))
            co_return;
        if (option.is(u"Join"))
            co_await join(context, edited);
        else if (option.is(u"Width"))
            co_await widen(context, edited);
        else if (option.is(u"Ltype"))
            co_await generateLinetype(context, edited);
        else if (option.is(u"Close") || option.is(u"Open"))
            setClosed(edited, option.is(u"Close"));
        else {
            PolylineData changed = edited.polyline();
            drawing::reverse(changed);
            edited.change(std::move(changed));
        }
    }
}

} // namespace

Command editPolyline(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select polyline: ", {}, Enter::Refused});
    const std::optional<PolylineData> polyline = drawing::asPolyline(context.database(), picked.value.entity);
    const bool isPolyline = drawing::polylineOf(context.database(), picked.value.entity).has_value();
    const bool canBecomeOne = isPolyline || !context.database().isBefore2000();
    if (!polyline || polyline->isInSpace || polyline->vertices.empty() || !canBecomeOne)
        throw CommandError{u"Object selected cannot be edited as a polyline."};
    Edited edited(context, picked.value.entity, *polyline);
    if (!isPolyline) {
        if (context.session().integer(u"PEDITACCEPT") == 0) {
            const auto turns = co_await context.ask().keyword(
                {u"Object selected is not a polyline\nDo you want to turn it into one? [Yes/No] <Y>: ", u"Yes No"});
            if (turns.is(u"No"))
                co_return;
        }
        edited.change(*polyline);
    }
    co_await editOptions(context, edited);
}

} // namespace commands
