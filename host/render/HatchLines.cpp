#include "host/render/HatchLines.h"

#include <map>

namespace render {

namespace {

using geometry::Vector;

constexpr double MostLines = 50000, MostDashes = 1000000, MostPeriods = 1e12;

// Coordinates of the pattern: along its lines in lengths of `direction`, and across in line numbers.
class Frame
{
public:
    explicit Frame(const geometry::PatternLine &pattern) : m_pattern(pattern)
    {
        const Vector &d = pattern.direction, &o = pattern.offset;
        m_determinant = d.x * o.y - d.y * o.x;
    }
    bool isValid() const { return std::isfinite(1 / m_determinant); }
    double along(const Vector &place) const
    {
        const Vector p = place - m_pattern.base;
        return (p.x * m_pattern.offset.y - p.y * m_pattern.offset.x) / m_determinant;
    }
    double number(const Vector &place) const
    {
        const Vector p = place - m_pattern.base;
        return (m_pattern.direction.x * p.y - m_pattern.direction.y * p.x) / m_determinant;
    }
    Vector place(double along, double number) const
    {
        return m_pattern.base + m_pattern.direction * along + m_pattern.offset * number;
    }

private:
    const geometry::PatternLine &m_pattern;
    double m_determinant;
};

using Crossings = std::map<std::int64_t, std::vector<double>>; // by line number, where along it

void addCrossings(const Vector &from, const Vector &to, const Frame &frame, Crossings &crossings)
{
    double first = frame.number(from), last = frame.number(to);
    double firstAlong = frame.along(from), lastAlong = frame.along(to);
    if (first > last) {
        std::swap(first, last);
        std::swap(firstAlong, lastAlong);
    }
    // An end that lies on a line belongs to the edge that goes up from it, so that it counts once.
    for (double number = std::ceil(first); number < last; ++number)
        crossings[static_cast<std::int64_t>(number)].push_back(firstAlong + (lastAlong - firstAlong) *
                                                                                (number - first) / (last - first));
}

void drawDashes(const Frame &frame, double line, double from, double to, const std::vector<double> &dashes,
                double period, DashSink &sink)
{
    const auto draw = [&](double start, double end) {
        const Vector points[] = {frame.place(start, line), frame.place(end, line)};
        sink.dash(points);
    };
    const double first = period > 0 ? std::floor(from / period) : INFINITY;
    if (!(std::abs(first) < MostPeriods && (to - from) / period < MostDashes)) {
        draw(from, to);
        return;
    }
    for (double number = first; number * period < to; ++number) {
        double at = number * period;
        for (const double dash : dashes) {
            const double end = at + std::abs(dash);
            if (dash >= 0 && end >= from && at <= to)
                draw(std::max(at, from), std::min(end, to));
            at = end;
        }
    }
}

bool hasTooManyLines(const Outlines &outlines, const Frame &frame)
{
    double least = INFINITY, most = -INFINITY;
    for (const auto &outline : outlines)
        for (const Vector &place : outline) {
            least = std::min(least, frame.number(place));
            most = std::max(most, frame.number(place));
        }
    return !(most - least <= MostLines);
}

} // namespace

bool hatch(const Outlines &outlines, const geometry::PatternLine &pattern, DashSink &sink)
{
    const Frame frame(pattern);
    if (!frame.isValid() || hasTooManyLines(outlines, frame))
        return false;
    Crossings crossings;
    for (const auto &outline : outlines)
        for (std::size_t i = 0; i < outline.size(); ++i)
            addCrossings(outline[i], outline[(i + 1) % outline.size()], frame, crossings);
    double period = 0;
    for (const double dash : pattern.dashes)
        period += std::abs(dash);
    for (auto &[number, places] : crossings) {
        std::sort(places.begin(), places.end());
        for (std::size_t i = 0; i + 1 < places.size(); i += 2)
            drawDashes(frame, static_cast<double>(number), places[i], places[i + 1], pattern.dashes, period, sink);
    }
    return true;
}

} // namespace render
