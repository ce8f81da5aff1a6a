#include "host/drawing/edit/CurveWay.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/geometry/EntityShapes.h"
#include "host/drawing/geometry/PlanePolyline.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace drawing {

using geometry::Course;
using geometry::Curve;
using geometry::Matrix;
using geometry::Vector;

namespace {

// The first path that an entity is drawn as; those of its thickness come behind.
class FirstPath : public geometry::ShapeSink
{
public:
    std::vector<Curve> curves;
    void path(const geometry::Path &path, const geometry::Origin &) override
    {
        if (curves.empty())
            curves.assign(path.curves.begin(), path.curves.end());
    }
};

std::vector<Curve> polylineCurves(const PolylineData &polyline)
{
    const Matrix toWorld = Matrix::ofExtrusion(polyline.extrusion);
    const std::size_t vertices = polyline.vertices.size();
    const std::size_t count = polyline.isClosed ? vertices : std::max<std::size_t>(vertices, 1) - 1;
    std::vector<Curve> curves;
    for (std::size_t i = 0; i < count; ++i) {
        const auto &from = polyline.vertices[i];
        curves.push_back(transformed(
            geometry::segment(from.place, polyline.vertices[(i + 1) % vertices].place, from.bulge), toWorld));
    }
    return curves;
}

double flatDistance(const Vector &a, const Vector &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace

std::optional<CurveWay> CurveWay::of(const Drawing &drawing, RecordId entity)
{
    constexpr std::array<std::u16string_view, 5> single = {u"LINE", u"ARC", u"CIRCLE", u"ELLIPSE", u"SPLINE"};
    CurveWay way;
    std::vector<Curve> curves;
    if (const std::optional<PolylineData> polyline = polylineOf(drawing.database(), entity)) {
        if (polyline->isInSpace || polyline->vertices.size() < 2)
            return std::nullopt;
        curves = polylineCurves(*polyline);
        way.m_isClosed = polyline->isClosed;
    } else if (std::ranges::count(single, drawing.database().type(entity)) != 0) {
        FirstPath first;
        shapesOf(drawing, entity, first);
        curves = std::move(first.curves);
    }
    if (curves.empty())
        return std::nullopt;
    for (const Curve &curve : curves)
        way.m_pieces.emplace_back(curve);
    if (curves.size() == 1 && way.m_pieces.front().isClosed())
        way.m_isClosed = true;
    return way;
}

Vector CurveWay::at(double place) const
{
    if (m_isClosed)
        place = std::fmod(place, count());
    const std::size_t index = std::min(static_cast<std::size_t>(std::max(place, 0.0)), m_pieces.size() - 1);
    const Course &piece = m_pieces[index];
    return piece.at(piece.first() + (piece.last() - piece.first()) * (place - static_cast<double>(index)));
}

double CurveWay::placeOf(std::size_t piece, double parameter) const
{
    const Course &course = m_pieces[piece];
    const double part = (parameter - course.first()) / (course.last() - course.first());
    return static_cast<double>(piece) + std::clamp(part, 0.0, 1.0);
}

double CurveWay::nearest(const Vector &to) const
{
    double best = 0;
    for (std::size_t i = 0; i < m_pieces.size(); ++i)
        if (const double place = placeOf(i, m_pieces[i].nearest(to));
            flatDistance(at(place), to) < flatDistance(at(best), to))
            best = place;
    return best;
}

std::vector<double> CurveWay::crossings(const Course &other, geometry::Span otherSpan) const
{
    constexpr double Same = 1e-9;
    std::vector<double> places;
    for (std::size_t i = 0; i < m_pieces.size(); ++i)
        for (const geometry::Crossing &crossing :
             geometry::crossings(m_pieces[i], other, geometry::Span::Bounded, otherSpan))
            places.push_back(placeOf(i, crossing.first));
    if (m_isClosed) // its end is its start
        for (double &place : places)
            place = place > count() - Same ? 0 : place;
    std::ranges::sort(places);
    const auto isSame = [](double a, double b) { return b - a < Same; };
    places.erase(std::unique(places.begin(), places.end(), isSame), places.end());
    return places;
}

} // namespace drawing
