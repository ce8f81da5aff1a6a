#include "host/render/VisibleBounds.h"

#include "host/drawing/geometry/Flatten.h"

namespace render {

using geometry::Origin;
using geometry::Vector;

namespace {

constexpr double Precision = 1e-3;

// Of how large a curve is, roughly.
double sizeOf(const geometry::Curve &curve)
{
    if (const auto *arc = std::get_if<geometry::EllipticArc>(&curve))
        return length(arc->cosineAxis) + length(arc->sineAxis);
    geometry::Box box;
    if (const auto *spline = std::get_if<geometry::Nurbs>(&curve))
        for (const Vector &point : spline->points)
            box.add(point);
    return box.isEmpty() ? 1 : length(box.maximum - box.minimum);
}

} // namespace

VisibleBounds::VisibleBounds(const drawing::Drawing &drawing, AppearanceResolver &appearances,
                             const geometry::Matrix &toPage)
    : m_drawing(drawing), m_appearances(appearances), m_budget(drawing.database()), m_styles(drawing.database()),
      m_toPage(toPage)
{
}

QRectF VisibleBounds::bounds() const
{
    if (m_box.isEmpty())
        return {};
    return {QPointF(m_box.minimum.x, m_box.minimum.y), QPointF(m_box.maximum.x, m_box.maximum.y)};
}

void VisibleBounds::add(const Vector &place)
{
    const Vector onPage = m_toPage.place(place);
    if (std::isfinite(onPage.x) && std::isfinite(onPage.y))
        m_box.add(onPage);
}

void VisibleBounds::add(const geometry::Curve &curve)
{
    std::vector<Vector> points{startOf(curve)};
    flatten(curve, Precision * sizeOf(curve), points);
    for (const Vector &point : points)
        add(point);
}

void VisibleBounds::path(const geometry::Path &path, const Origin &origin)
{
    if (isSeen(origin))
        for (const geometry::Curve &curve : path.curves)
            add(curve);
}

void VisibleBounds::area(const geometry::Area &area, const Origin &origin)
{
    if (isSeen(origin))
        for (const auto &loop : area.loops)
            for (const geometry::Curve &curve : loop)
                add(curve);
}

void VisibleBounds::face(const geometry::Face &face, const Origin &origin)
{
    if (isSeen(origin))
        for (const Vector &corner : face.corners)
            add(corner);
}

template <class AnyText> void VisibleBounds::addInk(const AnyText &text, const Origin &origin)
{
    const auto corners = isSeen(origin) ? inkCorners(text, m_styles.of(text.style)) : std::nullopt;
    for (std::size_t i = 0; corners && i < corners->size(); ++i)
        add((*corners)[i]);
}

void VisibleBounds::text(const geometry::Text &text, const Origin &origin)
{
    addInk(text, origin);
}

void VisibleBounds::paragraphs(const geometry::Paragraphs &paragraphs, const Origin &origin)
{
    addInk(paragraphs, origin);
}

void VisibleBounds::point(const Vector &place, const Origin &origin)
{
    if (isSeen(origin))
        add(place);
}

void VisibleBounds::image(const geometry::Image &image, const Origin &origin)
{
    if (isSeen(origin))
        for (const Vector &place : image.outline)
            add(place);
}

void VisibleBounds::window(const geometry::Window &window, const Origin &origin)
{
    if (isSeen(origin))
        for (const Vector &corner : window.corners)
            add(corner);
}

} // namespace render
