#include "host/drawing/selection/Region.h"

#include "host/drawing/geometry/EntityShapes.h"
#include "host/drawing/geometry/Extents.h"
#include "host/drawing/geometry/Flatten.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <algorithm>
#include <cmath>
#include <functional>

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

using Outline = std::vector<Place>;

// The lines that an entity is seen as. Rays are as long as makes no difference.
class Outlines : public geometry::ShapeSink
{
public:
    using Taker = std::function<void(Outline &&outline, const Origin &origin)>;

    Outlines(const Drawing &drawing, double tolerance, Place centre, double reach, Taker take)
        : m_drawing(drawing), m_tolerance(tolerance), m_centre(centre), m_reach(reach), m_take(std::move(take))
    {
    }

    void path(const geometry::Path &path, const Origin &origin) override
    {
        add(geometry::flattened(path, m_tolerance), origin);
    }
    void area(const geometry::Area &area, const Origin &origin) override
    {
        for (const geometry::Area::Loop &loop : area.loops)
            add(geometry::flattened({loop, true}, m_tolerance), origin);
    }
    void face(const geometry::Face &face, const Origin &origin) override { addClosed(face.corners, origin); }
    void text(const geometry::Text &text, const Origin &origin) override { addLetters(text, origin); }
    void paragraphs(const geometry::Paragraphs &text, const Origin &origin) override { addLetters(text, origin); }
    void point(const Vector &place, const Origin &origin) override { add({&place, 1}, origin); }
    void image(const geometry::Image &image, const Origin &origin) override { addClosed(image.outline, origin); }
    void ray(const geometry::Ray &ray, const Origin &origin) override
    {
        const double length = std::hypot(ray.direction.x, ray.direction.y);
        if (length == 0)
            return;
        const double far = (m_reach + std::hypot(ray.origin.x - m_centre.x, ray.origin.y - m_centre.y)) / length;
        const Vector end = ray.origin + ray.direction * far;
        const Vector line[] = {ray.isEndless ? ray.origin - ray.direction * far : ray.origin, end};
        add(line, origin);
    }
    void window(const geometry::Window &window, const Origin &origin) override { addClosed(window.corners, origin); }

private:
    void add(std::span<const Vector> points, const Origin &origin)
    {
        Outline outline;
        std::ranges::transform(points, std::back_inserter(outline), seen);
        if (!outline.empty())
            m_take(std::move(outline), origin);
    }
    void addClosed(std::span<const Vector> corners, const Origin &origin)
    {
        std::vector<Vector> points(corners.begin(), corners.end());
        if (!points.empty())
            points.push_back(points.front());
        add(points, origin);
    }
    template <class AnyText> void addLetters(const AnyText &text, const Origin &origin)
    {
        if (const auto corners = inkCorners(text, geometry::textStyleOf(m_drawing.database(), text.style)))
            addClosed(*corners, origin);
    }

    const Drawing &m_drawing;
    double m_tolerance;
    Place m_centre;
    double m_reach;
    Taker m_take;
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

void takeOutlines(const Drawing &drawing, RecordId entity, const std::vector<Place> &about, Outlines::Taker take)
{
    const Frame frame(about);
    const double size = std::max(frame.size(), 1e-6);
    Outlines outlines(drawing, size * Fineness, frame.centre(), size, std::move(take));
    geometry::shapesOf(drawing, entity, outlines);
}

std::vector<Outline> outlinesOf(const Drawing &drawing, RecordId entity, const std::vector<Place> &about)
{
    std::vector<Outline> outlines;
    takeOutlines(drawing, entity, about,
                 [&](Outline &&outline, const Origin &) { outlines.push_back(std::move(outline)); });
    return outlines;
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

double distanceBetween(Place place, const Outline &outline)
{
    double nearest = INFINITY;
    for (std::size_t i = 0; i < outline.size(); ++i)
        nearest = std::min(nearest, distanceBetween(place, outline[i], outline[std::min(i + 1, outline.size() - 1)]));
    return nearest;
}

// What a place and an entity are seen in.
std::vector<Place> placesAbout(const Drawing &drawing, RecordId entity, Place place)
{
    if (const std::optional<geometry::Box> box = geometry::extentsOf(drawing, entity))
        return {place, seen(box->minimum), seen(box->maximum)};
    return {place};
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
    std::optional<double> nearest;
    for (const Outline &outline : outlinesOf(drawing, entity, placesAbout(drawing, entity, place))) {
        const double distance = distanceBetween(place, outline);
        nearest = std::min(nearest.value_or(distance), distance);
    }
    return nearest;
}

std::optional<Part> nearestPart(const Drawing &drawing, RecordId entity, Place place)
{
    std::optional<Part> part;
    double nearest = INFINITY;
    const auto take = [&](Outline &&outline, const Origin &origin) {
        const double distance = distanceBetween(place, outline);
        if (!(distance < nearest))
            return;
        nearest = distance;
        part = {origin.entity, {origin.inserts.begin(), origin.inserts.end()}, *origin.toWorld};
    };
    takeOutlines(drawing, entity, placesAbout(drawing, entity, place), take);
    return part;
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
