#pragma once

#include "host/drawing/geometry/EntityReader.h"
#include "host/drawing/geometry/EntityShapes.h"

namespace geometry {

// Goes through an entity and what it contains, and hands the shapes to the sink. The functions below it make the shapes
// of one type each in the coordinates that the entity's groups are in; the walk brings them to the world.
class ShapeWalk
{
public:
    ShapeWalk(const drawing::Drawing &drawing, ShapeSink &sink, BlockBudget *budget)
        : m_drawing(drawing), m_sink(sink), m_budget(budget)
    {
    }

    void entity(drawing::RecordId id);
    void part(drawing::RecordId id); // an attribute, as a part of the insert at hand
    bool isComplete() const { return m_rest > 0; }

    const drawing::Drawing &drawing() const { return m_drawing; }
    const drawing::Database &database() const { return m_drawing.database(); }
    bool wantsEveryCopy() const { return m_sink.wantsEveryCopy(); }

    // What one type of entity is made of.
    void path(std::span<const Curve> curves, bool isClosed = false);
    void line(const Vector &start, const Vector &end);
    void thickPath(std::span<const Curve> curves, bool isClosed, const Vector &thickness); // with walls where it bends
    void area(Area area);
    void thickArea(const Area &area, const Vector &thickness);
    void face(Face face);
    void text(Text text);
    void paragraphs(Paragraphs paragraphs);
    void point(const Vector &place);
    void image(Image image);
    void ray(const Ray &ray);
    void window(Window window);

    // The entities of a block, as parts of the entity that names it. Nothing when that stands in the block itself.
    void block(drawing::RecordId block, const Matrix &matrix);

private:
    Origin origin() const { return {m_entity, m_inserts, &m_matrix}; }
    bool takeOne();

    static constexpr std::size_t DeepestNesting = 200; // of blocks; each costs stack

    const drawing::Drawing &m_drawing;
    ShapeSink &m_sink;
    BlockBudget *m_budget; // null: only this entity's own limit holds
    Matrix m_matrix;       // from the coordinates of the block at hand to the world
    drawing::RecordId m_entity = drawing::NoRecord;
    std::vector<drawing::RecordId> m_inserts, m_blocks;
    std::size_t m_rest = 4'000'000; // entities and blocks that may still come
};

// The curve of a spline's groups, which may be all wrong: then the one through its fit points, or none.
std::optional<Curve> usableSpline(Nurbs nurbs, std::span<const Vector> fitPoints, std::optional<Vector> startTangent,
                                  std::optional<Vector> endTangent);

// Each in the source of its family.
void lineShapes(ShapeWalk &walk, drawing::RecordId id);
void rayShapes(ShapeWalk &walk, drawing::RecordId id);
void pointShapes(ShapeWalk &walk, drawing::RecordId id);
void circleShapes(ShapeWalk &walk, drawing::RecordId id); // and arcs
void ellipseShapes(ShapeWalk &walk, drawing::RecordId id);
void splineShapes(ShapeWalk &walk, drawing::RecordId id);
void lightPolylineShapes(ShapeWalk &walk, drawing::RecordId id);
void polylineShapes(ShapeWalk &walk, drawing::RecordId id);
void solidShapes(ShapeWalk &walk, drawing::RecordId id); // and traces
void faceShapes(ShapeWalk &walk, drawing::RecordId id);
void hatchShapes(ShapeWalk &walk, drawing::RecordId id);
void insertShapes(ShapeWalk &walk, drawing::RecordId id);
void dimensionShapes(ShapeWalk &walk, drawing::RecordId id);
void tableShapes(ShapeWalk &walk, drawing::RecordId id);
void leaderShapes(ShapeWalk &walk, drawing::RecordId id);
void multilineShapes(ShapeWalk &walk, drawing::RecordId id);
void textShapes(ShapeWalk &walk, drawing::RecordId id); // and attributes
void paragraphShapes(ShapeWalk &walk, drawing::RecordId id);
void imageShapes(ShapeWalk &walk, drawing::RecordId id); // and wipeouts
void viewportShapes(ShapeWalk &walk, drawing::RecordId id);

} // namespace geometry
