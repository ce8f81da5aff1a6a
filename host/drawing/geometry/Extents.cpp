#include "host/drawing/geometry/Extents.h"

#include "host/drawing/geometry/CurveBox.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <vector>

namespace geometry {

namespace {

class BoxSink final : public ShapeSink
{
public:
    // `fromWorld` is null where the box is one in world coordinates.
    BoxSink(const drawing::Database &database, const Matrix *fromWorld) : m_database(database), m_fromWorld(fromWorld)
    {
    }

    const Box &box() const { return m_box; }

    void path(const Path &path, const Origin &) override { add(path.curves); }
    void area(const Area &area, const Origin &) override
    {
        for (const Area::Loop &loop : area.loops)
            add(loop);
    }
    void face(const Face &face, const Origin &) override { add(face.corners); }
    void text(const Text &text, const Origin &) override { addInk(text); }
    void paragraphs(const Paragraphs &paragraphs, const Origin &) override { addInk(paragraphs); }
    void point(const Vector &place, const Origin &) override { add(place); }
    void image(const Image &image, const Origin &) override { add(image.outline); }
    void window(const Window &window, const Origin &) override { add(window.corners); }
    bool wantsEveryCopy() const override { return false; }

private:
    void add(std::span<const Curve> curves)
    {
        for (const Curve &curve : curves)
            if (m_fromWorld)
                addBox(transformed(curve, *m_fromWorld), m_box);
            else
                addBox(curve, m_box);
    }
    void add(std::span<const Vector> places)
    {
        for (const Vector &place : places)
            add(place);
    }
    void add(const Vector &place) { m_box.add(m_fromWorld ? m_fromWorld->place(place) : place); }

    template <class AnyText> void addInk(const AnyText &text)
    {
        if (const auto corners = inkCorners(text, textStyleOf(m_database, text.style)))
            add(*corners);
    }

    const drawing::Database &m_database;
    const Matrix *m_fromWorld;
    Box m_box;
};

std::optional<Box> computedExtents(const drawing::Drawing &drawing, drawing::RecordId entity, const Matrix *fromWorld)
{
    BoxSink sink(drawing.database(), fromWorld);
    if (!shapesOf(drawing, entity, sink) || sink.box().isEmpty())
        return std::nullopt;
    return sink.box();
}

// The box that was asked for last in each of some places, which entities that follow each other share with none of
// them. It holds until anything changes in the drawing: a block, a style or a vertex may be a part of it.
struct Remembered
{
    std::uint32_t drawing = 0; // its number; 0: nothing yet
    drawing::RecordId entity = drawing::NoRecord;
    std::uint64_t changeCount = 0;
    std::optional<Box> box;
};
constexpr std::size_t Places = 4096;

} // namespace

// Programs ask for one entity's box several times, for each corner or side once, and go over the entities that they
// have chosen more than once.
std::optional<Box> extentsOf(const drawing::Drawing &drawing, drawing::RecordId entity)
{
    thread_local std::vector<Remembered> places(Places);
    const std::uint64_t changeCount = drawing.database().journal().changeCount();
    Remembered &place = places[entity % Places];
    if (place.drawing != drawing.number() || place.entity != entity || place.changeCount != changeCount)
        place = {drawing.number(), entity, changeCount, computedExtents(drawing, entity, nullptr)};
    return place.box;
}

std::optional<Box> extentsOf(const drawing::Drawing &drawing, drawing::RecordId entity, const Matrix &fromWorld)
{
    return computedExtents(drawing, entity, &fromWorld);
}

} // namespace geometry
