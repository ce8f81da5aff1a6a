#include "host/drawing/geometry/Bezier.h"
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::Item;
using drawing::RecordId;

namespace {

struct SplineGroups
{
    Nurbs nurbs;
    std::vector<Vector> fitPoints;
    std::optional<Vector> startTangent, endTangent;
    bool isClosed = false;
};

SplineGroups readSpline(const drawing::Database &database, RecordId id)
{
    constexpr std::int64_t Closed = 1;
    SplineGroups groups;
    EntityReader reader(database, id);
    for (Item item; reader.next(item);)
        switch (item.code) {
        case drawing::groupcode::Subclass:
            if (item.value == "AcDbHelix") // its groups are not those of the spline
                return groups;
            break;
        case 70:
            groups.isClosed = (item.integer & Closed) != 0;
            break;
        case 71:
            groups.nurbs.degree = static_cast<int>(std::clamp<std::int64_t>(item.integer, 0, 1000));
            break;
        case 40:
            groups.nurbs.knots.push_back(item.real);
            break;
        case 41:
            groups.nurbs.weights.push_back(item.real);
            break;
        case 10:
            groups.nurbs.points.push_back(vectorOf(item.point));
            break;
        case 11:
            groups.fitPoints.push_back(vectorOf(item.point));
            break;
        case 12:
            groups.startTangent = vectorOf(item.point);
            break;
        case 13:
            groups.endTangent = vectorOf(item.point);
            break;
        default:
            break;
        }
    return groups;
}

} // namespace

std::optional<Curve> usableSpline(Nurbs nurbs, std::span<const Vector> fitPoints, std::optional<Vector> startTangent,
                                  std::optional<Vector> endTangent)
{
    if (nurbs.weights.size() != nurbs.points.size())
        nurbs.weights.assign(nurbs.points.size(), 1);
    if (isValid(nurbs))
        return nurbs;
    if (fitPoints.size() >= 2)
        return splineThrough(fitPoints, startTangent, endTangent);
    return std::nullopt;
}

void splineShapes(ShapeWalk &walk, RecordId id)
{
    SplineGroups groups = readSpline(walk.database(), id);
    const auto curve = usableSpline(std::move(groups.nurbs), groups.fitPoints, groups.startTangent, groups.endTangent);
    if (!curve)
        return;
    constexpr double Rounding = 1e-9; // a spline may be called closed and be open
    const Vector start = startOf(*curve);
    const bool meets = length(endOf(*curve) - start) <= Rounding * (1 + length(start));
    walk.path({&*curve, 1}, groups.isClosed && meets);
}

} // namespace geometry
