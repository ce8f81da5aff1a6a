#include "host/drawing/geometry/Extents.h"

#include "host/drawing/geometry/CurveBox.h"
#include "host/drawing/geometry/TextPlacement.h"

namespace geometry {

namespace {

class BoxSink final : public ShapeSink
{
public:
    BoxSink(const drawing::Database &database, const TextMetrics &metrics) : m_database(database), m_metrics(metrics) {}

    const Box &box() const { return m_box; }

    void path(const Path &path, const Origin &) override { add(path.curves); }
    void area(const Area &area, const Origin &) override
    {
        for (const Area::Loop &loop : area.loops)
            add(loop);
    }
    void face(const Face &face, const Origin &) override { add(face.corners); }
    void text(const Text &text, const Origin &) override
    {
        if (const auto corners = inkCorners(text, m_database, m_metrics))
            add(*corners);
    }
    void paragraphs(const Paragraphs &paragraphs, const Origin &origin) override
    {
        for (const Text &line : linesOf(paragraphs, m_database, m_metrics))
            text(line, origin);
    }
    void point(const Vector &place, const Origin &) override { m_box.add(place); }
    void image(const Image &image, const Origin &) override { add(image.outline); }
    void window(const Window &window, const Origin &) override { add(window.corners); }
    bool wantsEveryCopy() const override { return false; }

private:
    void add(std::span<const Curve> curves)
    {
        for (const Curve &curve : curves)
            addBox(curve, m_box);
    }
    void add(std::span<const Vector> places)
    {
        for (const Vector &place : places)
            m_box.add(place);
    }

    const drawing::Database &m_database;
    const TextMetrics &m_metrics;
    Box m_box;
};

} // namespace

std::optional<Box> extentsOf(const drawing::Drawing &drawing, drawing::RecordId entity, const TextMetrics &metrics)
{
    BoxSink sink(drawing.database(), metrics);
    if (!shapesOf(drawing, entity, sink) || sink.box().isEmpty())
        return std::nullopt;
    return sink.box();
}

} // namespace geometry
