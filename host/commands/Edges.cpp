#include "host/commands/Edges.h"

#include "host/drawing/geometry/EntityShapes.h"

#include <cmath>

namespace commands {

namespace {

class Curves : public geometry::ShapeSink
{
public:
    std::vector<geometry::Course> courses;

    void path(const geometry::Path &path, const geometry::Origin &) override { take(path.curves); }
    void area(const geometry::Area &area, const geometry::Origin &) override { take(area.spine); }
    void ray(const geometry::Ray &ray, const geometry::Origin &) override
    {
        constexpr double Far = 1e7; // where drawings end
        const geometry::Vector &start = ray.origin;
        courses.emplace_back(
            geometry::Line{ray.isEndless ? start - ray.direction * Far : start, start + ray.direction * Far});
    }

private:
    void take(std::span<const geometry::Curve> curves)
    {
        for (const geometry::Curve &curve : curves)
            courses.emplace_back(curve);
    }
};

} // namespace

Edges::Edges(Context &context, const Selection &entities)
    : m_span(context.session().integer(u"EDGEMODE") != 0 ? geometry::Span::Extended : geometry::Span::Bounded)
{
    Curves curves;
    for (const RecordId entity : entities)
        shapesOf(context.drawing(), entity, curves);
    m_courses = std::move(curves.courses);
}

} // namespace commands
