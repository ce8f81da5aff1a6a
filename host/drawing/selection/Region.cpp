#include "host/drawing/selection/Region.h"

#include "host/drawing/geometry/EntityShapes.h"
#include "host/drawing/geometry/Extents.h"
#include "host/drawing/geometry/Flatten.h"

#include <algorithm>
#include <cmath>

using drawing::Drawing;
using drawing::RecordId;
using geometry::Origin;
using geometry::Vector;

namespace selection {

namespace {

constexpr double Fineness = 1e-4; // of a curve's chords, in sizes of what is looked at

Place seen(const Vector &place)
{
    return {place.x, place.y};
}

// The lines that an entity is seen as. Rays are as long as makes no difference.
class Outlines : public geometry::ShapeSink
{
public:
    Outlines(const Drawing &drawing, double tolerance, Place centre, double reach)
        : m_drawing(drawing), m_tolerance(tolerance), m_centre(centre), m_reach(reach)
    {
    }

    std::vector<std::vector<Place>> lines;

    void path(const geometry::Path &path, const Origin &) override { add(geometry::flattened(path, m_tolerance)); }
    void area(const geometry::Area &area, const Origin &) override
    {
        for (const geometry::Area::Loop &loop : area.loops)
            add(geometry::flattened({loop, true}, m_tolerance));
    }
    void face(const geometry::Face &face, const Origin &) override
    {
        add({face.corners[0], face.corners[1], face.corners[2], face.corners[3], face.corners[0]});
    }
    void text(const geometry::Text &, const Origin &origin) override { addBox(origin.entity); }
    void paragraphs(const geometry::Paragraphs &, const Origin &origin) override { addBox(origin.entity); }
    void point(const Vector &place, const Origin &) override { add({place}); }
    void image(const geometry::Image &image, const Origin &) override
    {
        std::vector<Vector> outline = image.outline;
        if (!outline.empty())
            outline.push_back(outline.front());
        add(outline);
    }
    void ray(const geometry::Ray &ray, const Origin &) override
    {
        const double length = std::hypot(ray.direction.x, ray.direction.y);
        if (length == 0)
            return;
        const double far = (m_reach + std::hypot(ray.origin.x - m_centre.x, ray.origin.y - m_centre.y)) / length;
        const Vector end = ray.origin + ray.direction * far;
        add({ray.isEndless ? ray.origin - ray.direction * far : ray.origin, end});
    }
    void window(const geometry::Window &window, const Origin &) override
    {
        add({window.corners[0], window.corners[1], window.corners[2], window.corners[3], window.corners[0]});
    }

private:
    void add(const std::vector<Vector> &points)
    {
        std::vector<Place> line;
        std::ranges::transform(points, std::back_inserter(line), seen);
        if (!line.empty())
            lines.push_back(std::move(line));
    }

    // Of a text inside a block, the whole text's: an approximation where the block is turned.
    void addBox(RecordId entity)
    {
        const std::optional<geometry::Box> box = geometry::extentsOf(m_drawing, entity);
        if (!box)
            return;
        const Vector &low = box->minimum, &high = box->maximum;
        add({low, {high.x, low.y, 0}, high, {low.x, high.y, 0}, low});
    }

    const Drawing &m_drawing;
    double m_tolerance;
    Place m_centre;
    double m_reach;
};

struct Frame
{
    Place low{INFINITY, INFINITY}, high{-INFINITY, -INFINITY};

    explicit Frame(const std::vector<Place> &places)
    {
        for (const Place &place : places) {
            low = {std::min(low.x, place.x), std::min(low.y, place.y)};
            high = {std::max(high.x, place.x), std::max(high.y, place.y)};
        }
    }
    double size() const { return std::hypot(high.x - low.x, high.y - low.y); }
    Place centre() const { return {(low.x + high.x) / 2, (low.y + high.y) / 2}; }
};

std::vector<std::vector<Place>> outlinesOf(const Drawing &drawing, RecordId entity, const std::vector<Place> &about)
{
    const Frame frame(about);
    const double size = std::max(frame.size(), 1e-6);
    Outlines outlines(drawing, size * Fineness, frame.centre(), size);
    geometry::shapesOf(drawing, entity, outlines);
    return std::move(outlines.lines);
}

double side(Place a, Place b, Place c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool isBetween(Place a, Place b, Place c)
{
    return std::min(a.x, b.x) <= c.x && c.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= c.y &&
           c.y <= std::max(a.y, b.y);
}

bool meet(Place a, Place b, Place c, Place d)
{
    const double abc = side(a, b, c), abd = side(a, b, d), cda = side(c, d, a), cdb = side(c, d, b);
    if (((abc > 0 && abd < 0) || (abc < 0 && abd > 0)) && ((cda > 0 && cdb < 0) || (cda < 0 && cdb > 0)))
        return true;
    return (abc == 0 && isBetween(a, b, c)) || (abd == 0 && isBetween(a, b, d)) || (cda == 0 && isBetween(c, d, a)) ||
           (cdb == 0 && isBetween(c, d, b));
}

bool isInside(const Polygon &polygon, Place place)
{
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const Place a = polygon[i], b = polygon[j];
        if (side(a, b, place) == 0 && isBetween(a, b, place))
            return true;
        if ((a.y > place.y) != (b.y > place.y) && place.x < (b.x - a.x) * (place.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

// Whether some piece of a line, which may be a single place, meets a piece of the other.
bool linesMeet(const std::vector<Place> &line, const std::vector<Place> &other)
{
    for (std::size_t i = 0; i + 1 < std::max<std::size_t>(line.size(), 2); ++i) {
        const Place a = line[i], b = line[std::min(i + 1, line.size() - 1)];
        for (std::size_t j = 0; j + 1 < std::max<std::size_t>(other.size(), 2); ++j)
            if (meet(a, b, other[j], other[std::min(j + 1, other.size() - 1)]))
                return true;
    }
    return false;
}

std::vector<Place> closed(Polygon polygon)
{
    polygon.push_back(polygon.front());
    return polygon;
}

// A polygon that bends inwards can be left and entered again between two places inside.
bool leaves(const std::vector<Place> &line, const Polygon &polygon)
{
    for (std::size_t i = 0; i + 1 < line.size(); ++i)
        if (!isInside(polygon, {(line[i].x + line[i + 1].x) / 2, (line[i].y + line[i + 1].y) / 2}))
            return true;
    return false;
}

bool liesInside(const std::vector<Place> &line, const Polygon &polygon)
{
    return std::ranges::all_of(line, [&polygon](const Place &place) { return isInside(polygon, place); }) &&
           !leaves(line, polygon);
}

double distanceBetween(Place place, Place a, Place b)
{
    const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
    const double along =
        square > 0 ? std::clamp(((place.x - a.x) * dx + (place.y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
    return std::hypot(place.x - a.x - along * dx, place.y - a.y - along * dy);
}

// Whether the box of the entity reaches the frame at all; an entity without a box may.
bool mayReach(const Drawing &drawing, RecordId entity, const std::vector<Place> &places)
{
    const std::optional<geometry::Box> box = geometry::extentsOf(drawing, entity);
    const Frame frame(places);
    return !box || (box->minimum.x <= frame.high.x && box->maximum.x >= frame.low.x && box->minimum.y <= frame.high.y &&
                    box->maximum.y >= frame.low.y);
}

} // namespace

Polygon rectangle(Place corner, Place opposite)
{
    return {corner, {opposite.x, corner.y}, opposite, {corner.x, opposite.y}};
}

bool takes(const Drawing &drawing, RecordId entity, const Polygon &polygon, Reach reach)
{
    if (polygon.size() < 3 || !mayReach(drawing, entity, polygon))
        return false;
    const auto lines = outlinesOf(drawing, entity, polygon);
    if (reach == Reach::Inside)
        return !lines.empty() &&
               std::ranges::all_of(lines, [&polygon](const auto &line) { return liesInside(line, polygon); });
    const std::vector<Place> edge = closed(polygon);
    return std::ranges::any_of(
        lines, [&](const auto &line) { return isInside(polygon, line.front()) || linesMeet(line, edge); });
}

bool isCrossed(const Drawing &drawing, RecordId entity, const std::vector<Place> &fence)
{
    if (fence.size() < 2 || !mayReach(drawing, entity, fence))
        return false;
    const auto lines = outlinesOf(drawing, entity, fence);
    return std::ranges::any_of(lines, [&fence](const auto &line) { return linesMeet(line, fence); });
}

std::optional<double> distanceFrom(const Drawing &drawing, RecordId entity, Place place)
{
    const std::optional<geometry::Box> box = geometry::extentsOf(drawing, entity);
    std::vector<Place> about{place};
    if (box)
        about.insert(about.end(), {seen(box->minimum), seen(box->maximum)});
    std::optional<double> nearest;
    for (const std::vector<Place> &line : outlinesOf(drawing, entity, about))
        for (std::size_t i = 0; i < line.size(); ++i) {
            const double distance = distanceBetween(place, line[i], line[std::min(i + 1, line.size() - 1)]);
            nearest = std::min(nearest.value_or(distance), distance);
        }
    return nearest;
}

RecordId entityAt(const Drawing &drawing, const std::vector<RecordId> &candidates, Place place, double distance)
{
    RecordId found = drawing::NoRecord;
    double nearest = distance;
    for (const RecordId entity : candidates) {
        const std::optional<double> away = distanceFrom(drawing, entity, place);
        if (away && *away <= nearest) {
            nearest = *away;
            found = entity;
        }
    }
    return found;
}

} // namespace selection
