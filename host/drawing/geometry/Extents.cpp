#include "host/drawing/geometry/Extents.h"

#include "host/drawing/geometry/CurveBox.h"
#include "host/drawing/geometry/TextLayouts.h"

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

} // namespace

std::optional<Box> extentsOf(const drawing::Drawing &drawing, drawing::RecordId entity)
{
    return computedExtents(drawing, entity, nullptr);
}

std::optional<Box> extentsOf(const drawing::Drawing &drawing, drawing::RecordId entity, const Matrix &fromWorld)
{
    return computedExtents(drawing, entity, &fromWorld);
}

} // namespace geometry
