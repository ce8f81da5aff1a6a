#include "host/drawing/geometry/Bezier.h"

namespace geometry {

namespace {

// A point times its weight, with the weight: in these, a rational curve is a polynomial one.
struct Weighted
{
    Vector point;
    double weight = 0;
};

Weighted between(const Weighted &a, const Weighted &b, double t)
{
    return {a.point * (1 - t) + b.point * t, a.weight * (1 - t) + b.weight * t};
}

std::vector<Weighted> weighted(std::span<const Vector> points, std::span<const double> weights)
{
    std::vector<Weighted> result(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        result[i] = {points[i] * weights[i], weights[i]};
    return result;
}

Bezier bezierOf(std::span<const Weighted> points)
{
    Bezier bezier;
    for (const Weighted &each : points) {
        bezier.points.push_back(each.point * (1 / each.weight));
        bezier.weights.push_back(each.weight);
    }
    return bezier;
}

// The polar form of the piece between knots `interval` and `interval` + 1: `low` arguments are the first of these
// knots, the others the second. De Boor's algorithm, with an argument of its own in each round.
Weighted polarForm(const Nurbs &nurbs, std::span<const Weighted> points, std::size_t interval, int low)
{
    const std::size_t degree = static_cast<std::size_t>(nurbs.degree);
    std::vector<Weighted> values(points.begin() + static_cast<std::ptrdiff_t>(interval - degree),
                                 points.begin() + static_cast<std::ptrdiff_t>(interval) + 1);
    for (std::size_t round = 1; round <= degree; ++round) {
        const double argument = nurbs.knots[static_cast<int>(round) <= low ? interval : interval + 1];
        for (std::size_t j = degree; j >= round; --j) {
            const double first = nurbs.knots[interval - degree + j], last = nurbs.knots[interval + 1 + j - round];
            values[j] = between(values[j - 1], values[j], (argument - first) / (last - first));
        }
    }
    return values[degree];
}

Bezier pieceAt(const Nurbs &nurbs, std::span<const Weighted> points, std::size_t interval)
{
    std::vector<Weighted> ordinates;
    for (int low = nurbs.degree; low >= 0; --low)
        ordinates.push_back(polarForm(nurbs, points, interval, low));
    return bezierOf(ordinates);
}

// The second derivatives of a cubic spline at its points, by elimination in the tridiagonal system.
std::vector<Vector> secondDerivatives(std::span<const Vector> points, std::span<const double> steps,
                                      std::optional<Vector> startSlope, std::optional<Vector> endSlope)
{
    const std::size_t last = points.size() - 1;
    std::vector<double> diagonal(points.size(), 1), above(points.size(), 0);
    std::vector<Vector> right(points.size());
    const auto slope = [&](std::size_t i) { return (points[i + 1] - points[i]) * (1 / steps[i]); };
    if (startSlope) {
        diagonal[0] = 2 * steps[0];
        above[0] = steps[0];
        right[0] = 6 * (slope(0) - *startSlope);
    }
    for (std::size_t i = 1; i <= last; ++i) {
        const bool isEnd = i == last;
        double below = isEnd ? 0 : steps[i - 1];
        if (isEnd && endSlope) {
            below = steps[i - 1];
            diagonal[i] = 2 * steps[i - 1];
            right[i] = 6 * (*endSlope - slope(i - 1));
        } else if (!isEnd) {
            diagonal[i] = 2 * (steps[i - 1] + steps[i]);
            above[i] = steps[i];
            right[i] = 6 * (slope(i) - slope(i - 1));
        }
        const double factor = below / diagonal[i - 1];
        diagonal[i] -= factor * above[i - 1];
        right[i] = right[i] - factor * right[i - 1];
    }
    for (std::size_t i = points.size(); i-- > 0;) {
        const Vector next = i == last ? Vector{} : right[i + 1];
        right[i] = (right[i] - above[i] * next) * (1 / diagonal[i]);
    }
    return right;
}

} // namespace

Vector Bezier::at(double t) const
{
    std::vector<Weighted> values = weighted(points, weights);
    for (std::size_t count = values.size() - 1; count > 0; --count)
        for (std::size_t i = 0; i < count; ++i)
            values[i] = between(values[i], values[i + 1], t);
    return values[0].point * (1 / values[0].weight);
}

// Of (P / w) by the quotient rule; both are polynomials, whose slope is the degree times that of the last two values.
Vector Bezier::slope(double t) const
{
    std::vector<Weighted> values = weighted(points, weights);
    for (std::size_t count = values.size() - 1; count > 1; --count)
        for (std::size_t i = 0; i < count; ++i)
            values[i] = between(values[i], values[i + 1], t);
    const Weighted place = between(values[0], values[1], t);
    const double degree = static_cast<double>(points.size() - 1);
    const Vector along = (values[1].point - values[0].point) * degree;
    const double growth = (values[1].weight - values[0].weight) * degree;
    return (along - place.point * (growth / place.weight)) * (1 / place.weight);
}

std::pair<Bezier, Bezier> Bezier::split(double t) const
{
    std::vector<Weighted> values = weighted(points, weights), first{values.front()}, second{values.back()};
    for (std::size_t count = values.size() - 1; count > 0; --count) {
        for (std::size_t i = 0; i < count; ++i)
            values[i] = between(values[i], values[i + 1], t);
        first.push_back(values[0]);
        second.push_back(values[count - 1]);
    }
    std::reverse(second.begin(), second.end());
    return {bezierOf(first), bezierOf(second)};
}

std::vector<Bezier> bezierPieces(const Nurbs &nurbs)
{
    std::vector<Bezier> pieces;
    const std::vector<Weighted> points = weighted(nurbs.points, nurbs.weights);
    for (std::size_t i = static_cast<std::size_t>(nurbs.degree); i < points.size(); ++i)
        if (nurbs.knots[i] < nurbs.knots[i + 1])
            pieces.push_back(pieceAt(nurbs, points, i));
    return pieces;
}

Nurbs nurbsOf(const std::vector<Bezier> &pieces)
{
    Nurbs nurbs;
    nurbs.degree = static_cast<int>(pieces.front().points.size()) - 1;
    const std::size_t degree = static_cast<std::size_t>(nurbs.degree);
    nurbs.points = {pieces.front().points.front()};
    nurbs.weights = {pieces.front().weights.front()};
    nurbs.knots.assign(degree + 1, 0);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        nurbs.points.insert(nurbs.points.end(), pieces[i].points.begin() + 1, pieces[i].points.end());
        nurbs.weights.insert(nurbs.weights.end(), pieces[i].weights.begin() + 1, pieces[i].weights.end());
        nurbs.knots.insert(nurbs.knots.end(), degree, static_cast<double>(i + 1));
    }
    nurbs.knots.push_back(nurbs.knots.back());
    return nurbs;
}

Vector firstPoint(const Nurbs &nurbs)
{
    for (std::size_t i = static_cast<std::size_t>(nurbs.degree); i < nurbs.points.size(); ++i)
        if (nurbs.knots[i] < nurbs.knots[i + 1])
            return pieceAt(nurbs, weighted(nurbs.points, nurbs.weights), i).points.front();
    return nurbs.points.front();
}

Vector lastPoint(const Nurbs &nurbs)
{
    for (std::size_t i = nurbs.points.size(); i-- > static_cast<std::size_t>(nurbs.degree);)
        if (nurbs.knots[i] < nurbs.knots[i + 1])
            return pieceAt(nurbs, weighted(nurbs.points, nurbs.weights), i).points.back();
    return nurbs.points.back();
}

bool isValid(const Nurbs &nurbs)
{
    constexpr int HighestDegree = 25; // evaluation costs the cube of it
    if (nurbs.degree < 1 || nurbs.degree > HighestDegree)
        return false;
    const std::size_t order = static_cast<std::size_t>(nurbs.degree) + 1;
    return nurbs.points.size() >= order && nurbs.weights.size() == nurbs.points.size() &&
           nurbs.knots.size() == nurbs.points.size() + order &&
           std::is_sorted(nurbs.knots.begin(), nurbs.knots.end()) &&
           std::all_of(nurbs.knots.begin(), nurbs.knots.end(), [](double knot) { return std::isfinite(knot); }) &&
           std::all_of(nurbs.points.begin(), nurbs.points.end(), isFinite) &&
           std::all_of(nurbs.weights.begin(), nurbs.weights.end(),
                       [](double weight) { return weight > 0 && std::isfinite(weight); });
}

Nurbs splineThrough(std::span<const Vector> fitPoints, std::optional<Vector> startTangent,
                    std::optional<Vector> endTangent)
{
    std::vector<Vector> points;
    std::vector<double> steps;
    for (const Vector &point : fitPoints) {
        const double step = points.empty() ? 0 : length(point - points.back());
        if (!isFinite(point) || (!points.empty() && !(step > 0)))
            continue;
        if (!points.empty())
            steps.push_back(step);
        points.push_back(point);
    }
    if (points.size() < 2)
        return nurbsOf({Bezier{std::vector<Vector>(4, fitPoints.front()), std::vector<double>(4, 1)}});

    for (std::optional<Vector> *tangent : {&startTangent, &endTangent})
        if (*tangent)
            *tangent = normalized(**tangent);
    const std::vector<Vector> bends = secondDerivatives(points, steps, startTangent, endTangent);
    std::vector<Bezier> pieces;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const double h = steps[i];
        const Vector chord = points[i + 1] - points[i];
        const Vector leaving = chord - (h * h / 6) * (2 * bends[i] + bends[i + 1]);
        const Vector arriving = chord + (h * h / 6) * (bends[i] + 2 * bends[i + 1]);
        pieces.push_back(
            {{points[i], points[i] + leaving * (1.0 / 3), points[i + 1] - arriving * (1.0 / 3), points[i + 1]},
             {1, 1, 1, 1}});
    }
    return nurbsOf(pieces);
}

} // namespace geometry
