#include "host/drawing/geometry/Course.h"

#include <algorithm>
#include <cmath>

namespace geometry {

namespace {

constexpr double Rounding = 1e-9; // in parameters

double flatDot(const Vector &a, const Vector &b)
{
    return a.x * b.x + a.y * b.y;
}

double flatCross(const Vector &a, const Vector &b)
{
    return a.x * b.y - a.y * b.x;
}

double flatDistance(const Vector &a, const Vector &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

double alongLine(const Line &line, const Vector &place)
{
    const Vector along = line.end - line.start;
    const double square = flatDot(along, along);
    return square > 0 ? flatDot(place - line.start, along) / square : 0;
}

// The parameter of a place in the arc's plane, not before its start.
double aroundArc(const EllipticArc &arc, const Vector &place)
{
    const Vector &a = arc.cosineAxis, &b = arc.sineAxis, from = place - arc.centre;
    const double area = flatCross(a, b);
    const double angle = std::atan2(flatCross(a, from) / area, flatCross(from, b) / area);
    double turn = std::fmod(angle - arc.start, FullTurn);
    if (turn < -Rounding)
        turn += FullTurn;
    return arc.start + turn;
}

Bezier clipped(const Bezier &piece, double from, double to)
{
    const Bezier tail = from > 0 ? piece.split(from).second : piece;
    return to < 1 ? tail.split((to - from) / (1 - from)).first : tail;
}

std::size_t pieceOf(double parameter, std::size_t count)
{
    const double last = static_cast<double>(count - 1);
    return static_cast<std::size_t>(std::clamp(std::floor(parameter), 0.0, last));
}

} // namespace

Course::Course(const Curve &curve) : m_curve(curve)
{
    if (const Nurbs *nurbs = std::get_if<Nurbs>(&m_curve))
        m_pieces = bezierPieces(*nurbs);
}

double Course::first() const
{
    return arc() ? arc()->start : 0;
}

double Course::last() const
{
    if (arc())
        return arc()->end;
    return line() ? 1 : static_cast<double>(m_pieces.size());
}

bool Course::isClosed() const
{
    return arc() ? arc()->isFull() : !line() && length(startOf(m_curve) - endOf(m_curve)) == 0;
}

Vector Course::at(double parameter) const
{
    if (const Line *straight = line())
        return interpolated(straight->start, straight->end, parameter);
    if (const EllipticArc *round = arc())
        return round->at(parameter);
    const std::size_t piece = pieceOf(parameter, m_pieces.size());
    return m_pieces[piece].at(parameter - static_cast<double>(piece));
}

Vector Course::slope(double parameter) const
{
    if (const Line *straight = line())
        return straight->end - straight->start;
    if (const EllipticArc *round = arc())
        return round->sineAxis * std::cos(parameter) - round->cosineAxis * std::sin(parameter);
    const std::size_t piece = pieceOf(parameter, m_pieces.size());
    return m_pieces[piece].slope(parameter - static_cast<double>(piece));
}

// So close that between two of them there is one root at most, unless the curve nearly touches.
std::vector<double> Course::samples(Span span) const
{
    constexpr int PerTurn = 64, PerPiece = 16;
    double from = first(), to = last();
    int count = static_cast<int>(m_pieces.size()) * PerPiece;
    if (arc()) {
        if (span == Span::Extended)
            to = from + FullTurn;
        count = std::max(4, static_cast<int>(std::ceil(PerTurn * (to - from) / FullTurn)));
    } else if (line())
        count = 1;
    std::vector<double> result;
    for (int i = 0; i <= count; ++i)
        result.push_back(from + (to - from) * i / count);
    return result;
}

double Course::nearest(const Vector &place) const
{
    if (const Line *straight = line())
        return std::clamp(alongLine(*straight, place), 0.0, 1.0);
    double best = first();
    std::vector<double> candidates = feet(place, Span::Bounded);
    candidates.push_back(last());
    for (const double candidate : candidates)
        if (flatDistance(at(candidate), place) < flatDistance(at(best), place))
            best = candidate;
    return best;
}

std::vector<double> Course::feet(const Vector &from, Span span) const
{
    if (const Line *straight = line()) {
        const double foot = alongLine(*straight, from);
        return span == Span::Extended || (foot >= 0 && foot <= 1) ? std::vector{foot} : std::vector<double>();
    }
    return roots([&](double t) { return flatDot(at(t) - from, slope(t)); }, 0, span);
}

std::vector<double> Course::touches(const Vector &from) const
{
    if (line())
        return {};
    return roots([&](double t) { return flatCross(at(t) - from, slope(t)); }, 0, Span::Bounded);
}

// Of an arc of a circle the angle times the radius; else by Simpson's rule over the speed.
double Course::lengthBetween(double from, double to) const
{
    if (line())
        return length(at(to) - at(from));
    if (arc() &&
        std::abs(length(arc()->cosineAxis) - length(arc()->sineAxis)) <= Rounding * length(arc()->cosineAxis) &&
        std::abs(dot(arc()->cosineAxis, arc()->sineAxis)) <= Rounding * dot(arc()->cosineAxis, arc()->cosineAxis))
        return (to - from) * length(arc()->cosineAxis);
    constexpr int LeastSteps = 256, StepsPerUnit = 16;
    const int steps = std::max(LeastSteps, StepsPerUnit * static_cast<int>(std::ceil(to - from)));
    double sum = 0;
    for (int i = 0; i <= steps; ++i) {
        const int weight = i == 0 || i == steps ? 1 : i % 2 == 1 ? 4 : 2;
        sum += weight * length(slope(from + (to - from) * i / steps));
    }
    return sum * (to - from) / (3 * steps);
}

double Course::middle() const
{
    const double from = first(), to = last();
    if (line())
        return 0.5;
    const double half = lengthBetween(from, to) / 2;
    auto rest = [&](double t) { return lengthBetween(from, t) - half; };
    return rest(from) < 0 ? detail::rootBetween(rest, from, to) : from;
}

std::optional<double> Course::parameterOf(const Vector &place, Span span) const
{
    if (m_pieces.empty()) {
        const double parameter = line() ? alongLine(*line(), place) : aroundArc(*arc(), place);
        const bool isOn = parameter >= first() - Rounding && parameter <= last() + Rounding;
        return isOn || span == Span::Extended ? std::optional(parameter) : std::nullopt;
    }
    return nearest(place);
}

Curve Course::part(double from, double to) const
{
    if (const Line *straight = line())
        return Line{interpolated(straight->start, straight->end, from),
                    interpolated(straight->start, straight->end, to)};
    if (const EllipticArc *round = arc()) {
        EllipticArc arc = *round;
        arc.start = from;
        arc.end = to;
        return arc;
    }
    std::vector<Bezier> pieces;
    const double count = static_cast<double>(m_pieces.size());
    for (double begin = from; begin < to;) {
        double place = std::floor(begin);
        const double end = std::min(place + 1, to);
        const Bezier &piece = m_pieces[static_cast<std::size_t>(std::fmod(place, count))];
        if (end - begin > Rounding)
            pieces.push_back(clipped(piece, begin - place, end - place));
        begin = end;
    }
    return pieces.empty() ? m_curve : Curve(nurbsOf(pieces));
}

} // namespace geometry
