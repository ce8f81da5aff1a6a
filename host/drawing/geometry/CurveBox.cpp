#include "host/drawing/geometry/CurveBox.h"

#include "host/drawing/geometry/Bezier.h"

namespace geometry {

namespace {

using Axis = double Vector::*;
constexpr Axis Axes[] = {&Vector::x, &Vector::y, &Vector::z};

void widen(Box &box, Axis axis, double value)
{
    box.minimum.*axis = std::min(box.minimum.*axis, value);
    box.maximum.*axis = std::max(box.maximum.*axis, value);
}

// Along an axis the arc is at centre + scale * reach * cos(t - top).
struct Wave
{
    double centre, reach, top;
};

Wave waveOf(const EllipticArc &arc, Axis axis)
{
    const double a = arc.cosineAxis.*axis, b = arc.sineAxis.*axis;
    return {arc.centre.*axis, std::hypot(a, b), std::atan2(b, a)};
}

// Calls the function with each top and bottom of the wave between the arc's ends: number n is at top + n * pi.
template <class Function> void forEachTurn(const EllipticArc &arc, const Wave &wave, Function function)
{
    constexpr double Half = std::numbers::pi;
    const int first = static_cast<int>(std::ceil((arc.start - wave.top) / Half));
    for (int n = first; wave.top + n * Half <= arc.end; ++n)
        function(n);
}

void addEllipse(const EllipticArc &arc, Box &box)
{
    for (const Axis axis : Axes) {
        const Wave wave = waveOf(arc, axis);
        forEachTurn(arc, wave, [&](int n) { widen(box, axis, wave.centre + (n % 2 == 0 ? wave.reach : -wave.reach)); });
    }
}

// A spiral turns where growth * cos(u) = scale * sin(u), u = t - top: once in each half wave about a top or a bottom.
double spiralTurn(const EllipticArc &arc, double growth, double top, double low, double high)
{
    const auto slope = [&](double t) {
        const double scale = arc.startScale + growth * (t - arc.start);
        return growth * std::cos(t - top) - scale * std::sin(t - top);
    };
    const bool risesFirst = slope(low) > 0;
    for (int i = 0; i < 100 && low < high; ++i) {
        const double middle = (low + high) / 2;
        ((slope(middle) > 0) == risesFirst ? low : high) = middle;
    }
    return (low + high) / 2;
}

void addSpiral(const EllipticArc &arc, Box &box)
{
    constexpr double Half = std::numbers::pi;
    const double growth = (arc.endScale - arc.startScale) / (arc.end - arc.start);
    for (const Axis axis : Axes) {
        const double top = waveOf(arc, axis).top;
        const int first = static_cast<int>(std::floor((arc.start - top) / Half + 0.5));
        for (int n = first; top + (n - 0.5) * Half < arc.end; ++n) {
            const double low = std::max(arc.start, top + (n - 0.5) * Half),
                         high = std::min(arc.end, top + (n + 0.5) * Half);
            widen(box, axis, arc.at(spiralTurn(arc, growth, top, low, high)).*axis);
        }
    }
}

// The highest of pieces along an axis (with sign -1: the lowest). A piece lies in the hull of its points, so that one
// whose points are no higher has nothing to add.
class Extreme
{
public:
    Extreme(Axis axis, double sign, double best, double tolerance)
        : m_axis(axis), m_sign(sign), m_best(best), m_tolerance(tolerance)
    {
    }
    void add(const Bezier &piece)
    {
        m_best = std::max({m_best, height(piece.points.front()), height(piece.points.back())});
        const auto isHigh = [&](const Vector &point) { return height(point) > m_best + m_tolerance; };
        if (m_halvings == 0 || std::none_of(piece.points.begin(), piece.points.end(), isHigh))
            return;
        --m_halvings;
        const auto [first, second] = piece.halves();
        add(first);
        add(second);
    }
    double best() const { return m_best; }

private:
    double height(const Vector &point) const { return m_sign * point.*m_axis; }

    Axis m_axis;
    double m_sign, m_best, m_tolerance;
    int m_halvings = 2000; // some dozens are enough, unless weights are so apart that rounding goes for height
};

void addNurbs(const Nurbs &nurbs, Box &box)
{
    constexpr double Precision = 1e-14; // of the spline's size and place
    Box hull;
    for (const Vector &point : nurbs.points)
        hull.add(point);
    for (const Bezier &piece : bezierPieces(nurbs))
        for (const Axis axis : Axes) {
            const double size = std::max(std::abs(hull.minimum.*axis), std::abs(hull.maximum.*axis));
            Extreme high(axis, 1, box.maximum.*axis, Precision * size);
            Extreme low(axis, -1, -(box.minimum.*axis), Precision * size);
            high.add(piece);
            low.add(piece);
            box.maximum.*axis = high.best();
            box.minimum.*axis = -low.best();
        }
}

} // namespace

void addBox(const Curve &curve, Box &box)
{
    if (const Line *line = std::get_if<Line>(&curve)) {
        box.add(line->start);
        box.add(line->end);
    } else if (const EllipticArc *arc = std::get_if<EllipticArc>(&curve)) {
        box.add(arc->at(arc->start));
        box.add(arc->at(arc->end));
        arc->startScale == arc->endScale && arc->startScale == 1 ? addEllipse(*arc, box) : addSpiral(*arc, box);
    } else {
        addNurbs(std::get<Nurbs>(curve), box);
    }
}

} // namespace geometry
