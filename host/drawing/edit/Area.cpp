#include "host/drawing/edit/Area.h"

#include "host/drawing/edit/CentreLine.h"
#include "host/drawing/geometry/Course.h"

#include <array>
#include <cmath>

namespace drawing {

using geometry::Vector;

namespace {

// Five points of Gauss and Legendre in each of these pieces: exact for polynomials, and to rounding for the curves
// here.
constexpr int Pieces = 64;
constexpr std::array<double, 5> places{0, -0.5384693101056831, 0.5384693101056831, -0.9061798459386640,
                                       0.9061798459386640};
constexpr std::array<double, 5> weights{0.5688888888888889, 0.4786286704993665, 0.4786286704993665, 0.2369268850561891,
                                        0.2369268850561891};

template <class Integrand> auto integrated(double from, double to, Integrand integrand)
{
    const double half = (to - from) / Pieces / 2;
    decltype(integrand(from)) sum{};
    for (int piece = 0; piece < Pieces; ++piece) {
        const double middle = from + (2 * piece + 1) * half;
        for (std::size_t index = 0; index < places.size(); ++index)
            sum += integrand(middle + half * places[index]) * weights[index];
    }
    return sum * half;
}

// Half of the cross product of place and movement, summed along a curve, is the area between it and the origin.
struct Sum
{
    Vector area;
    double length = 0;

    void add(const geometry::Line &line)
    {
        area += cross(line.start, line.end) * 0.5;
        length += geometry::length(line.end - line.start);
    }
    void add(const geometry::EllipticArc &arc)
    {
        const Vector swept = cross(arc.cosineAxis, arc.sineAxis) * ((arc.end - arc.start) * 0.5);
        area += swept + cross(arc.centre, arc.at(arc.end) - arc.at(arc.start)) * 0.5;
        const auto speed = [&arc](double t) {
            return geometry::length(arc.sineAxis * std::cos(t) - arc.cosineAxis * std::sin(t));
        };
        length += integrated(arc.start, arc.end, speed);
    }
    // A polynomial between one knot and the next.
    void add(const geometry::Nurbs &nurbs)
    {
        const geometry::Course course(nurbs);
        const auto swept = [&course](double t) { return cross(course.at(t), course.slope(t)) * 0.5; };
        const auto speed = [&course](double t) { return geometry::length(course.slope(t)); };
        for (double piece = course.first(); piece < course.last(); ++piece) {
            area += integrated(piece, piece + 1, swept);
            length += integrated(piece, piece + 1, speed);
        }
    }
    // Curves one after the other; the line back to their start makes them a loop.
    void addLoop(const std::vector<geometry::Curve> &curves)
    {
        for (const geometry::Curve &curve : curves)
            std::visit([this](const auto &one) { add(one); }, curve);
        if (!curves.empty())
            area += cross(endOf(curves.back()), startOf(curves.front())) * 0.5;
    }
};

} // namespace

std::optional<Measured> measured(const Drawing &drawing, RecordId entity)
{
    Sum sum;
    sum.addLoop(centreLine(drawing, entity));
    return sum.length > 0 ? std::optional(Measured{geometry::length(sum.area), sum.length}) : std::nullopt;
}

} // namespace drawing
