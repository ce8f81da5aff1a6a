#include "host/drawing/edit/Area.h"

#include "host/drawing/geometry/EntityShapes.h"

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

template <class Integrand> double integrated(double from, double to, Integrand integrand)
{
    const double half = (to - from) / Pieces / 2;
    double sum = 0;
    for (int piece = 0; piece < Pieces; ++piece) {
        const double middle = from + (2 * piece + 1) * half;
        for (std::size_t index = 0; index < places.size(); ++index)
            sum += weights[index] * integrand(middle + half * places[index]);
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
    void add(const geometry::Nurbs &) { isKnown = false; }

    bool isKnown = true;
};

class Measuring final : public geometry::ShapeSink
{
public:
    void path(const geometry::Path &path, const geometry::Origin &) override { addLoop(path.curves); }
    void area(const geometry::Area &, const geometry::Origin &) override { m_sum.isKnown = false; }
    std::optional<Measured> result() const
    {
        if (!m_sum.isKnown || m_sum.length == 0)
            return std::nullopt;
        return Measured{geometry::length(m_sum.area), m_sum.length};
    }

private:
    void addLoop(std::span<const geometry::Curve> curves)
    {
        if (curves.empty())
            return;
        for (const geometry::Curve &curve : curves)
            std::visit([this](const auto &one) { m_sum.add(one); }, curve);
        m_sum.area += cross(endOf(curves.back()), startOf(curves.front())) * 0.5; // back to the start
    }

    Sum m_sum;
};

} // namespace

std::optional<Measured> measured(const Drawing &drawing, RecordId entity)
{
    const std::u16string type = drawing.database().type(entity);
    const bool isCurve = type == u"CIRCLE" || type == u"ARC" || type == u"ELLIPSE" || type == u"LINE" ||
                         type == u"LWPOLYLINE" || type == u"POLYLINE";
    if (!isCurve)
        return std::nullopt;
    Measuring measuring;
    geometry::shapesOf(drawing, entity, measuring);
    return measuring.result();
}

} // namespace drawing
