#include "host/render/Dashes.h"

namespace render {

namespace {

using geometry::Vector;

constexpr double MostPatterns = 20000;

double lengthOf(std::span<const Vector> points)
{
    double sum = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        sum += length(points[i] - points[i - 1]);
    return sum;
}

// Goes along the points by lengths.
class Walk
{
public:
    Walk(std::span<const Vector> points, DashSink &sink) : m_points(points), m_sink(sink), m_at(points.front()) {}

    bool isAtEnd() const { return m_next == m_points.size(); }
    const Vector &place() const { return m_at; }
    Vector direction() const
    {
        const std::size_t end = std::min(m_next, m_points.size() - 1);
        return normalized(m_points[end] - m_points[end - 1], {1, 0, 0});
    }
    void skip(double distance) { advance(distance, nullptr); }
    void draw(double distance)
    {
        std::vector<Vector> dash{m_at};
        advance(distance, &dash);
        if (dash.size() == 1)
            dash.push_back(m_at);
        m_sink.dash(dash);
    }

private:
    void advance(double distance, std::vector<Vector> *passed)
    {
        for (; !isAtEnd() && distance > 0; ++m_next) {
            const Vector ahead = m_points[m_next] - m_at;
            const double left = length(ahead);
            if (left > distance) {
                m_at += ahead * (distance / left);
                if (passed)
                    passed->push_back(m_at);
                return;
            }
            distance -= left;
            m_at = m_points[m_next];
            if (passed)
                passed->push_back(m_at);
        }
    }

    std::span<const Vector> m_points;
    DashSink &m_sink;
    Vector m_at;
    std::size_t m_next = 1;
};

void apply(const LinetypeElement &element, double drawnLength, Walk &walk, DashSink &sink)
{
    if (element.length < 0)
        walk.skip(drawnLength);
    else
        walk.draw(drawnLength);
    if (!element.text.empty() && !walk.isAtEnd())
        sink.label(element, walk.place(), walk.direction());
}

} // namespace

void cutIntoDashes(std::span<const Vector> points, bool isClosed, const Linetype &linetype, double scale,
                   DashSink &sink)
{
    if (points.size() < 2)
        return;
    const double total = lengthOf(points), pattern = linetype.length * scale;
    const double repeats = linetype.isContinuous() ? 0 : std::floor(total / pattern * (1 + 1e-9));
    if (!(repeats >= 1 && repeats <= MostPatterns)) {
        sink.dash(points);
        return;
    }
    Walk walk(points, sink);
    const double firstDash = linetype.elements.front().length * scale;
    const bool isShared = !isClosed && firstDash > 0;
    const double share = (total - repeats * pattern + firstDash) / 2;
    for (double number = 0; number <= repeats && !walk.isAtEnd(); ++number)
        for (std::size_t i = 0; i < linetype.elements.size() && !walk.isAtEnd(); ++i) {
            const bool isEndDash = isShared && i == 0 && (number == 0 || number == repeats);
            const double own = std::abs(linetype.elements[i].length) * scale;
            apply(linetype.elements[i], isEndDash ? share * (1 + 1e-9) : own, walk, sink);
        }
}

} // namespace render
