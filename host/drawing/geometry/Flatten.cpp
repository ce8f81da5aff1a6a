#include "host/drawing/geometry/Flatten.h"

#include "host/drawing/geometry/Bezier.h"

namespace geometry {

namespace {

constexpr int MostSegments = 1 << 14; // for one turn: what a tolerance of nearly nothing can ask for

// The largest half diameter of the ellipse with these conjugate half diameters.
double largestRadius(const EllipticArc &arc)
{
    const double a = dot(arc.cosineAxis, arc.cosineAxis), b = dot(arc.sineAxis, arc.sineAxis);
    return std::sqrt((a + b + std::hypot(a - b, 2 * dot(arc.cosineAxis, arc.sineAxis))) / 2);
}

void flattenArc(const EllipticArc &arc, double tolerance, std::vector<Vector> &points)
{
    // A chord over the angle a is off a circle by r (1 - cos(a/2)); an ellipse is a circle that was made narrower, so
    // no worse than the circle about it. A spiral bends more the quicker its radius changes.
    const double angle = std::abs(arc.end - arc.start), change = std::abs(arc.endScale - arc.startScale);
    const double scale = std::max(std::abs(arc.startScale), std::abs(arc.endScale));
    const double radius = largestRadius(arc) * (scale + (change == 0 ? 0 : 2 * change / angle));
    constexpr double Widest = std::numbers::pi / 2;
    const double step = radius > tolerance ? std::min(Widest, 2 * std::acos(1 - tolerance / radius)) : Widest;
    const double wanted = std::ceil(angle / std::max(step, FullTurn / MostSegments) - 1e-9);
    const int count = wanted >= 1 ? static_cast<int>(std::min<double>(wanted, MostSegments)) : 1;
    for (int i = 1; i <= count; ++i)
        points.push_back(arc.at(i == count ? arc.end : arc.start + (arc.end - arc.start) * i / count));
}

double distanceToChord(const Vector &place, const Vector &from, const Vector &to)
{
    const Vector chord = to - from, offset = place - from;
    const double square = dot(chord, chord);
    const double t = square > 0 ? std::clamp(dot(offset, chord) / square, 0.0, 1.0) : 0;
    return length(offset - chord * t);
}

void flattenBezier(const Bezier &bezier, double tolerance, int depth, std::vector<Vector> &points)
{
    // The curve lies within the hull of its points.
    const auto isNear = [&](const Vector &point) {
        return !(distanceToChord(point, bezier.points.front(), bezier.points.back()) > tolerance); // nor is no number
    };
    if (depth == 0 || std::all_of(bezier.points.begin() + 1, bezier.points.end() - 1, isNear)) {
        points.push_back(bezier.points.back());
        return;
    }
    const auto [first, second] = bezier.halves();
    flattenBezier(first, tolerance, depth - 1, points);
    flattenBezier(second, tolerance, depth - 1, points);
}

} // namespace

void flatten(const Curve &curve, double tolerance, std::vector<Vector> &points)
{
    constexpr int Depth = 12;
    if (const Line *line = std::get_if<Line>(&curve))
        points.push_back(line->end);
    else if (const EllipticArc *arc = std::get_if<EllipticArc>(&curve))
        flattenArc(*arc, tolerance, points);
    else
        for (const Bezier &piece : bezierPieces(std::get<Nurbs>(curve)))
            flattenBezier(piece, tolerance, Depth, points);
}

std::vector<Vector> flattened(const Path &path, double tolerance)
{
    std::vector<Vector> points;
    if (path.curves.empty())
        return points;
    points.push_back(startOf(path.curves.front()));
    for (const Curve &curve : path.curves)
        flatten(curve, tolerance, points);
    if (path.isClosed)
        points.back() = points.front();
    return points;
}

} // namespace geometry
