#include "host/drawing/geometry/Crossings.h"

#include <algorithm>
#include <cmath>

namespace geometry {

namespace {

constexpr double Tolerance = 1e-10; // of the sizes at hand

double flatCross(const Vector &a, const Vector &b)
{
    return a.x * b.y - a.y * b.x;
}

// A function of places that is 0 on the whole line or ellipse, and about 1 for those one size away.
class Implicit
{
public:
    explicit Implicit(const Course &course) : m_course(course)
    {
        if (const Line *line = course.line())
            m_size = std::hypot(line->end.x - line->start.x, line->end.y - line->start.y);
        else
            m_size = flatCross(course.arc()->cosineAxis, course.arc()->sineAxis);
    }
    bool isDegenerate() const { return m_size == 0; }
    double operator()(const Vector &place) const
    {
        if (const Line *line = m_course.line())
            return flatCross(line->end - line->start, place - line->start) / (m_size * m_size);
        const EllipticArc &arc = *m_course.arc();
        const Vector from = place - arc.centre;
        const double u = flatCross(from, arc.sineAxis) / m_size, v = flatCross(arc.cosineAxis, from) / m_size;
        return std::hypot(u, v) - 1;
    }

private:
    const Course &m_course;
    double m_size;
};

bool isWithin(const Course &course, double parameter, Span span)
{
    return span == Span::Extended ||
           (parameter >= course.first() - Tolerance && parameter <= course.last() + Tolerance);
}

std::vector<Crossing> ofLines(const Course &first, const Course &second, Span firstSpan, Span secondSpan)
{
    const Line &a = *first.line(), &b = *second.line();
    const Vector alongA = a.end - a.start, alongB = b.end - b.start;
    const double area = flatCross(alongA, alongB);
    if (std::abs(area) <= Tolerance * length(alongA) * length(alongB))
        return {};
    const double s = flatCross(b.start - a.start, alongB) / area, t = flatCross(b.start - a.start, alongA) / area;
    if (!isWithin(first, s, firstSpan) || !isWithin(second, t, secondSpan))
        return {};
    return {{first.at(s), s, t}};
}

// c + a cos t + b sin t = 0, which is exact where samples are not.
std::vector<Crossing> ofLineAndArc(const Course &line, const Course &arc, Span lineSpan, Span arcSpan)
{
    const Line &straight = *line.line();
    const EllipticArc &round = *arc.arc();
    const Vector along = straight.end - straight.start;
    const double c = flatCross(along, round.centre - straight.start), a = flatCross(along, round.cosineAxis),
                 b = flatCross(along, round.sineAxis), size = std::hypot(a, b);
    if (size == 0 || std::abs(c) > size * (1 + Tolerance))
        return {};
    const double middle = std::atan2(b, a), half = std::acos(std::clamp(-c / size, -1.0, 1.0));
    std::vector<Crossing> found;
    for (const double angle : {middle - half, middle + half}) {
        const Vector place = round.at(angle);
        const std::optional<double> t = arc.parameterOf(place, arcSpan), s = line.parameterOf(place, lineSpan);
        if (s && t && (found.empty() || half > Tolerance))
            found.push_back({place, *s, *t});
    }
    return found;
}

// Along the second to where it meets the first, which is a line or an arc.
std::vector<Crossing> along(const Course &first, const Course &second, Span firstSpan, Span secondSpan)
{
    const Implicit implicit(first);
    if (implicit.isDegenerate())
        return {};
    const auto off = [&](double t) { return implicit(second.at(t)); };
    std::vector<Crossing> found;
    for (const double t : second.roots(off, Tolerance, secondSpan)) {
        const Vector place = second.at(t);
        if (const std::optional<double> s = first.parameterOf(place, firstSpan))
            found.push_back({first.at(*s), *s, t});
    }
    constexpr std::size_t MostOfConics = 4; // more of them: they lie on each other
    return found.size() > MostOfConics && second.arc() ? std::vector<Crossing>() : found;
}

// From a rough place to the true one. None when it leads nowhere.
std::optional<Crossing> refined(const Course &first, const Course &second, double s, double t)
{
    constexpr int Rounds = 20;
    for (int round = 0; round < Rounds; ++round) {
        const Vector gap = second.at(t) - first.at(s), a = first.slope(s), b = second.slope(t);
        const double area = flatCross(a, b);
        if (area == 0)
            return std::nullopt;
        s = std::clamp(s + flatCross(gap, b) / area, first.first(), first.last());
        t = std::clamp(t + flatCross(gap, a) / area, second.first(), second.last());
    }
    const Vector gap = second.at(t) - first.at(s);
    const double size = length(first.slope(s)) + length(second.slope(t));
    if (std::hypot(gap.x, gap.y) > Tolerance * size)
        return std::nullopt;
    return Crossing{first.at(s), s, t};
}

std::vector<Crossing> ofSplines(const Course &first, const Course &second)
{
    constexpr int ChordsPerPiece = 24;
    const int count = ChordsPerPiece * static_cast<int>(first.last());
    std::vector<Crossing> found;
    for (int i = 0; i < count; ++i) {
        const double s = static_cast<double>(i) / ChordsPerPiece, nextS = static_cast<double>(i + 1) / ChordsPerPiece;
        const Course chord(Line{first.at(s), first.at(nextS)});
        for (const Crossing &rough : along(chord, second, Span::Bounded, Span::Bounded)) {
            const auto exact = refined(first, second, s + rough.first / ChordsPerPiece, rough.second);
            const auto isSame = [&](const Crossing &other) { return std::abs(other.second - exact->second) < 1e-7; };
            if (exact && std::ranges::none_of(found, isSame))
                found.push_back(*exact);
        }
    }
    return found;
}

std::vector<Crossing> swapped(std::vector<Crossing> crossings, const Course &first)
{
    for (Crossing &crossing : crossings) {
        std::swap(crossing.first, crossing.second);
        crossing.place = first.at(crossing.first);
    }
    return crossings;
}

} // namespace

std::vector<Crossing> crossings(const Course &first, const Course &second, Span firstSpan, Span secondSpan)
{
    if (first.line() && second.line())
        return ofLines(first, second, firstSpan, secondSpan);
    if (first.line() && second.arc())
        return ofLineAndArc(first, second, firstSpan, secondSpan);
    if (first.arc() && second.line())
        return swapped(ofLineAndArc(second, first, secondSpan, firstSpan), first);
    const bool isFirstSpline = !first.line() && !first.arc(), isSecondSpline = !second.line() && !second.arc();
    if (isFirstSpline && isSecondSpline)
        return ofSplines(first, second);
    if (isFirstSpline)
        return swapped(along(second, first, secondSpan, firstSpan), first);
    return along(first, second, firstSpan, secondSpan);
}

} // namespace geometry
