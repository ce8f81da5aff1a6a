#include "host/drawing/edit/CentreLine.h"

#include "host/drawing/edit/CurveWay.h"
#include "host/drawing/geometry/EntityShapes.h"

namespace drawing {

namespace {

class Paths final : public geometry::ShapeSink
{
public:
    void path(const geometry::Path &path, const geometry::Origin &) override
    {
        curves.insert(curves.end(), path.curves.begin(), path.curves.end());
    }
    std::vector<geometry::Curve> curves;
};

} // namespace

std::vector<geometry::Curve> centreLine(const Drawing &drawing, RecordId entity)
{
    Paths paths;
    if (const std::optional<CurveWay> way = CurveWay::of(drawing, entity))
        for (const geometry::Course &piece : way->pieces())
            paths.curves.push_back(piece.curve());
    else if (drawing.database().record(entity).type == known::Polyline) // in space, which is never wide nor thick
        geometry::shapesOf(drawing, entity, paths);
    return std::move(paths.curves);
}

} // namespace drawing
