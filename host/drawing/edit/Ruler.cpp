#include "host/drawing/edit/Ruler.h"

#include <algorithm>

namespace drawing {

using geometry::Course;
using geometry::Vector;

Ruler::Ruler(const std::vector<geometry::Curve> &curves)
{
    for (const geometry::Curve &curve : curves) {
        const Course &course = m_courses.emplace_back(curve);
        const bool isSpline = !course.line() && !course.arc(); // whose parameter counts its pieces
        const double step = isSpline ? 1 : course.last() - course.first();
        for (double from = course.first(); from < course.last(); from += step)
            add(m_courses.size() - 1, from, std::min(from + step, course.last()));
    }
}

void Ruler::add(std::size_t course, double from, double to)
{
    const double start = length();
    m_stretches.push_back({course, from, to, start, start + m_courses[course].lengthBetween(from, to)});
}

bool Ruler::isClosed() const
{
    constexpr double Rounding = 1e-9;
    const Vector first = m_courses.front().at(m_courses.front().first());
    const Vector end = m_courses.back().at(m_courses.back().last());
    return geometry::length(end - first) <= Rounding * length();
}

Ruler::Mark Ruler::at(double distance) const
{
    const auto found = std::ranges::lower_bound(m_stretches, distance, {}, &Stretch::end);
    const Stretch &stretch = found != m_stretches.end() ? *found : m_stretches.back();
    const Course &course = m_courses[stretch.course];
    const auto rest = [&](double parameter) {
        return course.lengthBetween(stretch.from, parameter) - (distance - stretch.start);
    };
    double parameter = stretch.from;
    if (distance >= stretch.end)
        parameter = stretch.to;
    else if (distance > stretch.start)
        parameter = geometry::detail::rootBetween(rest, stretch.from, stretch.to);
    return {course.at(parameter), geometry::normalized(course.slope(parameter), {1, 0, 0})};
}

} // namespace drawing
