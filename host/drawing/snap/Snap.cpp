#include "host/drawing/snap/Snap.h"

#include "host/drawing/geometry/Crossings.h"
#include "host/drawing/snap/SnapPlaces.h"

#include <algorithm>

namespace snap {

using geometry::Course;
using geometry::Crossing;
using geometry::Span;
using geometry::Vector;

namespace {

using Piece = SnapPlaces::Piece;

double flatDistance(const Vector &a, const Vector &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

void addIntersections(const std::vector<Piece> &pieces, Modes modes, std::vector<Snap> &places)
{
    constexpr std::size_t Most = 60; // so many under one cursor that nobody can mean two of them
    constexpr double SameHeight = 1e-9;
    const std::size_t count = std::min(pieces.size(), Most);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = i + 1; j < count; ++j)
            for (const Crossing &crossing : geometry::crossings(pieces[i].course, pieces[j].course)) {
                const double apart = crossing.place.z - pieces[j].course.at(crossing.second).z;
                const double size = length(crossing.place) + 1;
                if ((modes & Intersection) != 0 && std::abs(apart) <= SameHeight * size)
                    places.push_back({crossing.place, Intersection, pieces[i].entity});
                else if ((modes & ApparentIntersection) != 0)
                    places.push_back({crossing.place, ApparentIntersection, pieces[i].entity});
            }
}

// What depends on the point before. A line and a circle go on for perpendiculars.
void addPlacesFrom(const Piece &piece, const Vector &from, Modes modes, std::vector<Snap> &places)
{
    if ((modes & Perpendicular) != 0)
        for (const double foot : piece.course.feet(from, Span::Extended))
            places.push_back({piece.course.at(foot), Perpendicular, piece.entity});
    if ((modes & Tangent) != 0)
        for (const double touch : piece.course.touches(from))
            places.push_back({piece.course.at(touch), Tangent, piece.entity});
}

std::optional<Snap> nearestOf(const std::vector<Snap> &places, const Vector &cursor)
{
    const auto away = [&](const Snap &snap) { return flatDistance(snap.place, cursor); };
    const auto found = std::ranges::min_element(places, {}, away);
    return found != places.end() ? std::optional(*found) : std::nullopt;
}

std::optional<Snap> nearestPlace(const std::vector<Piece> &pieces, const Vector &cursor)
{
    std::vector<Snap> places;
    for (const Piece &piece : pieces)
        places.push_back({piece.course.at(piece.course.nearest(cursor)), Nearest, piece.entity});
    return nearestOf(places, cursor);
}

bool isInAperture(const Snap &snap, const Aim &aim)
{
    return std::abs(snap.place.x - aim.cursor.x) <= aim.aperture &&
           std::abs(snap.place.y - aim.cursor.y) <= aim.aperture;
}

} // namespace

std::optional<Snap> snapAt(const drawing::Drawing &drawing, std::span<const drawing::RecordId> candidates,
                           const Aim &aim, Modes modes)
{
    if (modes == None || (modes & Suppressed) != 0)
        return std::nullopt;
    SnapPlaces found(drawing, aim, modes);
    for (const drawing::RecordId candidate : candidates)
        shapesOf(drawing, candidate, found);
    if ((modes & (Intersection | ApparentIntersection)) != 0)
        addIntersections(found.pieces, modes, found.places);
    if (aim.from)
        for (const Piece &piece : found.pieces)
            addPlacesFrom(piece, *aim.from, modes, found.places);
    const std::optional<Snap> place = nearestOf(found.places, aim.cursor);
    if ((modes & Nearest) == 0 || (place && isInAperture(*place, aim)))
        return place;
    const std::optional<Snap> onCurve = nearestPlace(found.pieces, aim.cursor);
    return onCurve ? onCurve : place;
}

} // namespace snap
