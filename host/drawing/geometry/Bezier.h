#pragma once

#include "host/drawing/geometry/Shapes.h"

namespace geometry {

// A piece of a rational curve in Bernstein form: the place at t, from 0 to 1, is the weighted mean of the points.
struct Bezier
{
    std::vector<Vector> points; // degree + 1
    std::vector<double> weights;

    Vector at(double t) const;
    Vector slope(double t) const; // the first derivative
    std::pair<Bezier, Bezier> split(double t) const;
    std::pair<Bezier, Bezier> halves() const { return split(0.5); }
};

// The same curve, from knot to knot.
std::vector<Bezier> bezierPieces(const Nurbs &nurbs);
Nurbs nurbsOf(const std::vector<Bezier> &pieces); // of one degree, each beginning where the one before ends

Vector firstPoint(const Nurbs &nurbs);
Vector lastPoint(const Nurbs &nurbs);

// Whether a spline is what Nurbs says of one.
bool isValid(const Nurbs &nurbs);

// The cubic spline through the points, at distances of the points as parameters, smooth to the second derivative. An
// end without a tangent is free (its second derivative is 0). Two points or more.
Nurbs splineThrough(std::span<const Vector> points, std::optional<Vector> startTangent = {},
                    std::optional<Vector> endTangent = {});

} // namespace geometry
