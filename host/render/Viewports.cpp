#include "host/render/Viewports.h"

#include "host/drawing/LayoutViewports.h"
#include "host/drawing/geometry/EntityShapes.h"
#include "host/drawing/geometry/Flatten.h"

namespace render {

using drawing::NoRecord;
using drawing::RecordId;
using geometry::Matrix;
using geometry::Vector;

namespace {

constexpr std::int64_t SheetNumber = 1, IsOff = 0x20000;

struct Groups
{
    Vector centre, viewCentre, direction{0, 0, 1}, target;
    double width = 0, height = 0, viewHeight = 0, twist = 0; // twist in degrees
    std::int64_t status = 1, number = 0, flags = 0;
    RecordId clip = NoRecord;
};

void takeNumber(const drawing::Item &item, Groups &groups)
{
    switch (item.code) {
    case 40:
        groups.width = item.real;
        break;
    case 41:
        groups.height = item.real;
        break;
    case 45:
        groups.viewHeight = item.real;
        break;
    case 51:
        groups.twist = item.real;
        break;
    case 68:
        groups.status = item.integer;
        break;
    case 69:
        groups.number = item.integer;
        break;
    case 90:
        groups.flags = item.integer;
        break;
    default:
        break;
    }
}

void takePoint(const drawing::Item &item, Groups &groups)
{
    const Vector place = geometry::vectorOf(item.point);
    if (item.code == 10)
        groups.centre = place;
    else if (item.code == 12)
        groups.viewCentre = place;
    else if (item.code == 16)
        groups.direction = place;
    else if (item.code == 17)
        groups.target = place;
}

void takeReference(const drawing::Database &database, const drawing::Item &item, Groups &groups)
{
    constexpr int ClipCode = 340;
    if (item.code == ClipCode)
        groups.clip = database.find({item.handle});
}

// Before R2000 the view stands in extended data: a list of values whose meaning is their position.
class ExtendedView
{
public:
    void take(const drawing::Item &item, Groups &groups)
    {
        constexpr int PointCode = 1010, RealCode = 1040;
        if (item.code == PointCode) {
            const int number = m_points++;
            if (number == 0)
                groups.target = geometry::vectorOf(item.point);
            else if (number == 1)
                groups.direction = geometry::vectorOf(item.point);
        } else if (item.code == RealCode) {
            double *const values[] = {&groups.twist, &groups.viewHeight, &groups.viewCentre.x, &groups.viewCentre.y};
            if (m_reals < std::size(values))
                *values[m_reals] = item.real;
            ++m_reals;
        }
    }

private:
    int m_points = 0;
    std::size_t m_reals = 0;
};

Groups read(const drawing::Drawing &drawing, RecordId entity)
{
    Groups groups;
    ExtendedView extended;
    const bool isOld = drawing.database().isBefore2000();
    drawing::GroupReader reader = drawing.database().reader(entity);
    for (drawing::Item item; reader.next(item);) {
        if (item.code >= drawing::groupcode::ExtendedString) {
            if (isOld)
                extended.take(item, groups);
        } else if (item.kind == drawing::ValueKind::Point) {
            takePoint(item, groups);
        } else if (item.kind == drawing::ValueKind::Reference) {
            takeReference(drawing.database(), item, groups);
        } else {
            takeNumber(item, groups);
        }
    }
    return groups;
}

class OutlineSink : public geometry::ShapeSink
{
public:
    void path(const geometry::Path &path, const geometry::Origin &) override
    {
        constexpr double Precision = 0.01;
        for (const Vector &place : flattened(path, Precision))
            outline << QPointF(place.x, place.y);
    }

    QPolygonF outline;
};

QRectF rectangleOf(const Groups &groups)
{
    return {groups.centre.x - groups.width / 2, groups.centre.y - groups.height / 2, groups.width, groups.height};
}

QPolygonF outlineOf(const drawing::Drawing &drawing, const Groups &groups)
{
    if (groups.clip != NoRecord) {
        OutlineSink sink;
        geometry::shapesOf(drawing, groups.clip, sink);
        if (sink.outline.size() > 2)
            return sink.outline;
    }
    return rectangleOf(groups);
}

// The display's own coordinates: z towards the eye, x to the right after the twist.
Matrix toDisplay(const Groups &groups)
{
    return Matrix::rotation(geometry::radians(groups.twist)) * inverse(Matrix::ofExtrusion(groups.direction)) *
           Matrix::translation(-groups.target);
}

} // namespace

std::optional<Viewport> viewportOf(const drawing::Drawing &drawing, RecordId entity)
{
    const drawing::Database &database = drawing.database();
    if (database.record(entity).type != drawing::known::ViewportEntity)
        return std::nullopt;
    const Groups groups = read(drawing, entity);
    const bool isShown = groups.status > 0 && groups.number != SheetNumber && (groups.flags & IsOff) == 0;
    if (!isShown || !(groups.width > 0 && groups.height > 0 && groups.viewHeight > 0))
        return std::nullopt;
    Viewport viewport;
    viewport.entity = entity;
    viewport.outline = outlineOf(drawing, groups);
    viewport.view = rectangleOf(groups);
    viewport.scale = groups.height / groups.viewHeight;
    viewport.toPaper = Matrix::translation(groups.centre) *
                       Matrix::scale(viewport.scale, viewport.scale, viewport.scale) *
                       Matrix::translation(-groups.viewCentre) * toDisplay(groups);
    viewport.frozenLayers = drawing::layersFrozenIn(drawing, entity);
    return viewport;
}

} // namespace render
