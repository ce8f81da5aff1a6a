#include "host/drawing/geometry/ShapeWalk.h"

#include <array>

namespace geometry {

using drawing::NoRecord;
using drawing::RecordId;

namespace {

using Maker = void (*)(ShapeWalk &, RecordId);

constexpr std::array<Maker, drawing::known::Count> makers = [] {
    using namespace drawing;
    std::array<Maker, known::Count> table{};
    table[known::Line] = lineShapes;
    table[known::SpatialLine] = lineShapes;
    table[known::Ray] = rayShapes;
    table[known::EndlessLine] = rayShapes;
    table[known::Point] = pointShapes;
    table[known::Circle] = circleShapes;
    table[known::Arc] = circleShapes;
    table[known::Ellipse] = ellipseShapes;
    table[known::Spline] = splineShapes;
    table[known::Helix] = splineShapes;
    table[known::LightPolyline] = lightPolylineShapes;
    table[known::Polyline] = polylineShapes;
    table[known::Solid] = solidShapes;
    table[known::Trace] = solidShapes;
    table[known::Face] = faceShapes;
    table[known::Hatch] = hatchShapes;
    table[known::HatchPolygon] = hatchShapes;
    table[known::Insert] = insertShapes;
    table[known::Dimension] = dimensionShapes;
    table[known::ArcDimension] = dimensionShapes;
    table[known::JoggedDimension] = dimensionShapes;
    table[known::TableGrid] = tableShapes;
    table[known::Leader] = leaderShapes;
    table[known::Multiline] = multilineShapes;
    table[known::Text] = textShapes;
    table[known::Attribute] = textShapes;
    table[known::AttributeDefinition] = textShapes;
    table[known::Paragraphs] = paragraphShapes;
    table[known::Image] = imageShapes;
    table[known::Wipeout] = imageShapes;
    table[known::ViewportEntity] = viewportShapes;
    return table;
}();

Maker makerOf(drawing::NameId type)
{
    return type < makers.size() ? makers[type] : nullptr;
}

std::vector<Curve> moved(std::span<const Curve> curves, const Matrix &matrix)
{
    std::vector<Curve> result;
    result.reserve(curves.size());
    for (const Curve &curve : curves)
        result.push_back(transformed(curve, matrix));
    return result;
}

// An attribute definition shows nothing where its block is inserted, unless every insert shows the same.
bool isHiddenDefinition(const drawing::Database &database, RecordId id)
{
    constexpr int Constant = 2;
    if (database.record(id).type != drawing::known::AttributeDefinition)
        return false;
    const auto flags = database.firstGroup(id, drawing::groupcode::Count);
    const std::int64_t *value = flags ? std::get_if<std::int64_t>(&flags->value) : nullptr;
    return !value || (*value & Constant) == 0;
}

} // namespace

BlockBudget::BlockBudget(const drawing::Database &database)
{
    constexpr std::size_t Usual = 8'000'000, ForEachRecord = 50;
    rest = Usual + ForEachRecord * database.recordCount();
}

bool ShapeWalk::takeOne()
{
    const std::size_t cost = m_blocks.size();
    if (m_budget && m_budget->rest < cost)
        m_rest = 0;
    if (m_rest == 0)
        return false;
    if (m_budget)
        m_budget->rest -= cost;
    return --m_rest > 0;
}

void ShapeWalk::entity(RecordId id)
{
    const Maker maker = makerOf(database().record(id).type);
    if (!maker || !takeOne())
        return;
    const RecordId outer = std::exchange(m_entity, id);
    maker(*this, id);
    m_entity = outer;
}

void ShapeWalk::part(RecordId id)
{
    m_inserts.push_back(m_entity);
    entity(id);
    m_inserts.pop_back();
}

void ShapeWalk::block(RecordId block, const Matrix &matrix)
{
    if (m_blocks.size() == DeepestNesting)
        m_rest = 0;
    if (block == NoRecord || !takeOne() || std::find(m_blocks.begin(), m_blocks.end(), block) != m_blocks.end())
        return;
    const Matrix outer = std::exchange(m_matrix, m_matrix * matrix);
    m_blocks.push_back(block);
    m_inserts.push_back(m_entity);
    for (RecordId id = database().firstIn(block); id != NoRecord && isComplete(); id = database().nextIn(id))
        if (!database().record(id).isGone() && !database().isPart(id) && !isHiddenDefinition(database(), id))
            entity(id);
    m_inserts.pop_back();
    m_blocks.pop_back();
    m_matrix = outer;
}

void ShapeWalk::path(std::span<const Curve> curves, bool isClosed)
{
    if (curves.empty())
        return;
    if (m_blocks.empty()) // in the world already
        m_sink.path({curves, isClosed}, origin());
    else
        m_sink.path({moved(curves, m_matrix), isClosed}, origin());
}

void ShapeWalk::line(const Vector &start, const Vector &end)
{
    const Curve curve = Line{m_matrix.place(start), m_matrix.place(end)};
    m_sink.path({{&curve, 1}, false}, origin());
}

void ShapeWalk::thickPath(std::span<const Curve> curves, bool isClosed, const Vector &thickness)
{
    path(curves, isClosed);
    if (thickness == Vector{} || curves.empty())
        return;
    path(moved(curves, Matrix::translation(thickness)), isClosed);
    for (const Curve &curve : curves)
        line(startOf(curve), startOf(curve) + thickness);
    if (!isClosed)
        line(endOf(curves.back()), endOf(curves.back()) + thickness);
}

void ShapeWalk::area(Area area)
{
    for (Area::Loop &loop : area.loops)
        loop = moved(loop, m_matrix);
    area.spine = moved(area.spine, m_matrix);
    for (PatternLine &each : area.pattern)
        each = {m_matrix.place(each.base), m_matrix.direction(each.direction), m_matrix.direction(each.offset),
                std::move(each.dashes)};
    m_sink.area(area, origin());
}

void ShapeWalk::thickArea(const Area &bottom, const Vector &thickness)
{
    area(bottom);
    if (thickness == Vector{})
        return;
    Area top = bottom;
    top.spine = moved(top.spine, Matrix::translation(thickness));
    for (Area::Loop &loop : top.loops) {
        for (const Curve &curve : loop)
            line(startOf(curve), startOf(curve) + thickness);
        loop = moved(loop, Matrix::translation(thickness));
    }
    area(std::move(top));
}

void ShapeWalk::face(Face face)
{
    for (Vector &corner : face.corners)
        corner = m_matrix.place(corner);
    m_sink.face(face, origin());
}

void ShapeWalk::text(Text text)
{
    text.insertion = m_matrix.place(text.insertion);
    text.right = m_matrix.direction(text.right);
    text.up = m_matrix.direction(text.up);
    m_sink.text(text, origin());
}

void ShapeWalk::paragraphs(Paragraphs paragraphs)
{
    paragraphs.insertion = m_matrix.place(paragraphs.insertion);
    paragraphs.right = m_matrix.direction(paragraphs.right);
    paragraphs.up = m_matrix.direction(paragraphs.up);
    m_sink.paragraphs(paragraphs, origin());
}

void ShapeWalk::point(const Vector &place)
{
    m_sink.point(m_matrix.place(place), origin());
}

void ShapeWalk::image(Image image)
{
    image.insertion = m_matrix.place(image.insertion);
    image.right = m_matrix.direction(image.right);
    image.up = m_matrix.direction(image.up);
    for (Vector &corner : image.outline)
        corner = m_matrix.place(corner);
    m_sink.image(image, origin());
}

void ShapeWalk::ray(const Ray &ray)
{
    m_sink.ray({m_matrix.place(ray.origin), m_matrix.direction(ray.direction), ray.isEndless}, origin());
}

void ShapeWalk::window(Window window)
{
    for (Vector &corner : window.corners)
        corner = m_matrix.place(corner);
    m_sink.window(window, origin());
}

bool shapesOf(const drawing::Drawing &drawing, RecordId entity, ShapeSink &sink, BlockBudget *budget)
{
    ShapeWalk walk(drawing, sink, budget);
    walk.entity(entity);
    return walk.isComplete();
}

} // namespace geometry
