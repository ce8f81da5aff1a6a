#include "host/drawing/geometry/Shapes.h"

#include "host/drawing/geometry/Bezier.h"

namespace geometry {

namespace {

template <class... Handlers> struct Overloaded : Handlers...
{
    using Handlers::operator()...;
};
template <class... Handlers> Overloaded(Handlers...) -> Overloaded<Handlers...>;

} // namespace

Vector EllipticArc::at(double parameter) const
{
    const double along = end == start ? 0 : (parameter - start) / (end - start);
    const double scale = startScale == endScale ? startScale : startScale + (endScale - startScale) * along;
    return centre + scale * (std::cos(parameter) * cosineAxis + std::sin(parameter) * sineAxis);
}

Vector startOf(const Curve &curve)
{
    return std::visit(Overloaded{[](const Line &line) { return line.start; },
                                 [](const EllipticArc &arc) { return arc.at(arc.start); },
                                 [](const Nurbs &nurbs) { return firstPoint(nurbs); }},
                      curve);
}

Vector endOf(const Curve &curve)
{
    return std::visit(Overloaded{[](const Line &line) { return line.end; },
                                 [](const EllipticArc &arc) { return arc.at(arc.end); },
                                 [](const Nurbs &nurbs) { return lastPoint(nurbs); }},
                      curve);
}

Curve reversed(const Curve &curve)
{
    const auto reversedArc = [](const EllipticArc &arc) {
        // Mirrored parameters: cos(-t) = cos t, sin(-t) = -sin t.
        return EllipticArc{arc.centre, arc.cosineAxis, -arc.sineAxis, -arc.end,
                           -arc.start, arc.endScale,   arc.startScale};
    };
    const auto reversedNurbs = [](Nurbs nurbs) {
        std::reverse(nurbs.points.begin(), nurbs.points.end());
        std::reverse(nurbs.weights.begin(), nurbs.weights.end());
        std::reverse(nurbs.knots.begin(), nurbs.knots.end());
        for (double &knot : nurbs.knots)
            knot = -knot;
        return nurbs;
    };
    return std::visit(Overloaded{[](const Line &line) -> Curve {
                                     return Line{line.end, line.start};
                                 },
                                 [&](const EllipticArc &arc) -> Curve { return reversedArc(arc); },
                                 [&](const Nurbs &nurbs) -> Curve { return reversedNurbs(nurbs); }},
                      curve);
}

Curve transformed(const Curve &curve, const Matrix &matrix)
{
    const auto arcTransformed = [&](EllipticArc arc) {
        arc.centre = matrix.place(arc.centre);
        arc.cosineAxis = matrix.direction(arc.cosineAxis);
        arc.sineAxis = matrix.direction(arc.sineAxis);
        return arc;
    };
    const auto nurbsTransformed = [&](Nurbs nurbs) {
        for (Vector &point : nurbs.points)
            point = matrix.place(point);
        return nurbs;
    };
    return std::visit(Overloaded{[&](const Line &line) -> Curve {
                                     return Line{matrix.place(line.start), matrix.place(line.end)};
                                 },
                                 [&](const EllipticArc &arc) -> Curve { return arcTransformed(arc); },
                                 [&](const Nurbs &nurbs) -> Curve { return nurbsTransformed(nurbs); }},
                      curve);
}

} // namespace geometry
