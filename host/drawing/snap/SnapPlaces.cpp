#include "host/drawing/snap/SnapPlaces.h"

#include "host/drawing/edit/Explode.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/geometry/CurveBox.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <array>
#include <numbers>

namespace snap {

using namespace geometry;

namespace {

bool isInQuadrangle(const Vector &place, const std::array<Vector, 4> &corners)
{
    int left = 0, right = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vector edge = corners[(i + 1) % corners.size()] - corners[i], to = place - corners[i];
        const double side = edge.x * to.y - edge.y * to.x;
        left += side >= 0;
        right += side <= 0;
    }
    return left == 4 || right == 4;
}

} // namespace

bool SnapPlaces::isAimedAt(const Vector &place) const
{
    return std::abs(place.x - m_aim.cursor.x) <= m_aim.aperture && std::abs(place.y - m_aim.cursor.y) <= m_aim.aperture;
}

void SnapPlaces::add(Mode mode, const Vector &place, const Origin &origin)
{
    if ((m_modes & mode) != 0)
        places.push_back({place, mode, origin.outermost()});
}

void SnapPlaces::path(const Path &path, const Origin &origin)
{
    for (const Curve &each : path.curves)
        curve(each, origin);
}

// Of hatches nothing is snapped to; of wide polylines the middle, of solids the edges.
void SnapPlaces::area(const Area &area, const Origin &origin)
{
    for (const Curve &each : area.spine)
        curve(each, origin);
    if (!area.hasOutline || !area.spine.empty())
        return;
    for (const Area::Loop &loop : area.loops)
        for (const Curve &each : loop)
            curve(each, origin);
}

void SnapPlaces::face(const Face &face, const Origin &origin)
{
    for (std::size_t i = 0; i < 4; ++i)
        if (face.isEdgeVisible[i])
            curve(Line{face.corners[i], face.corners[(i + 1) % 4]}, origin);
}

void SnapPlaces::text(const Text &text, const Origin &origin)
{
    letters(text, origin);
}

void SnapPlaces::paragraphs(const Paragraphs &paragraphs, const Origin &origin)
{
    letters(paragraphs, origin);
}

template <class AnyText> void SnapPlaces::letters(const AnyText &text, const Origin &origin)
{
    const auto corners = inkCorners(text, textStyleOf(m_drawing.database(), text.style));
    if (!isAimedAt(text.insertion) && !(corners && isInQuadrangle(m_aim.cursor, *corners)))
        return;
    add(Insertion, text.insertion, origin);
    insertions(origin);
}

void SnapPlaces::point(const Vector &place, const Origin &origin)
{
    if (!isAimedAt(place))
        return;
    add(Node, place, origin);
    insertions(origin);
}

void SnapPlaces::image(const Image &image, const Origin &origin)
{
    outline(image.outline, origin);
    if (isAimedAt(image.insertion))
        add(Insertion, image.insertion, origin);
}

// As long as the aperture can tell.
void SnapPlaces::ray(const Ray &ray, const Origin &origin)
{
    const double size = std::hypot(ray.direction.x, ray.direction.y);
    if (size == 0)
        return;
    const double far = 2 * (length(m_aim.cursor - ray.origin) + m_aim.aperture) / size;
    const Course course(
        Line{ray.isEndless ? ray.origin - ray.direction * far : ray.origin, ray.origin + ray.direction * far});
    if (!isAimedAt(course.at(course.nearest(m_aim.cursor))))
        return;
    pieces.push_back({course, origin.outermost()});
    add(ray.isEndless ? Middle : End, ray.origin, origin);
    insertions(origin);
}

void SnapPlaces::window(const Window &window, const Origin &origin)
{
    outline(window.corners, origin);
}

void SnapPlaces::outline(std::span<const Vector> corners, const Origin &origin)
{
    for (std::size_t i = 0; i < corners.size(); ++i)
        curve(Line{corners[i], corners[(i + 1) % corners.size()]}, origin);
}

// The centre of a circle can be pointed at too.
void SnapPlaces::curve(const Curve &curve, const Origin &origin)
{
    if (const auto *arc = std::get_if<EllipticArc>(&curve); arc && (m_modes & Center) != 0 && isAimedAt(arc->centre))
        add(Center, arc->centre, origin);
    Box box;
    addBox(curve, box);
    const Vector &cursor = m_aim.cursor;
    const double reach = m_aim.aperture;
    if (box.minimum.x > cursor.x + reach || box.maximum.x < cursor.x - reach || box.minimum.y > cursor.y + reach ||
        box.maximum.y < cursor.y - reach)
        return;
    const Course course(curve);
    if (!isAimedAt(course.at(course.nearest(cursor))))
        return;
    placesOf(course, origin);
    insertions(origin);
    pieces.push_back({course, origin.outermost()});
}

void SnapPlaces::placesOf(const Course &course, const Origin &origin)
{
    if (!course.isClosed()) {
        add(End, course.at(course.first()), origin);
        add(End, course.at(course.last()), origin);
        if ((m_modes & Middle) != 0)
            add(Middle, course.at(course.middle()), origin);
    }
    const EllipticArc *arc = course.arc();
    if (!arc)
        return;
    add(Center, arc->centre, origin);
    for (int quarter = 0; quarter < 4; ++quarter)
        if (const Vector place = arc->at(quarter * std::numbers::pi / 2); course.parameterOf(place, Span::Bounded))
            add(Quadrant, place, origin);
}

// Of the block references that a shape stands in.
void SnapPlaces::insertions(const Origin &origin)
{
    if ((m_modes & Insertion) == 0)
        return;
    Matrix toWorld;
    for (const drawing::RecordId insert : origin.inserts) {
        if (m_drawing.database().type(insert) != u"INSERT")
            return;
        const drawing::GroupList groups = m_drawing.database().groups(insert);
        const Matrix toOuter = Matrix::ofExtrusion(drawing::extrusionOf(groups));
        add(Insertion, toWorld.place(toOuter.place(drawing::placeOf(groups, drawing::groupcode::FirstX))), origin);
        toWorld = toWorld * drawing::insertMatrix(m_drawing, groups);
    }
}

} // namespace snap
