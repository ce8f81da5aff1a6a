#pragma once

#include "host/render/Appearance.h"
#include "host/render/DisplayList.h"
#include "host/render/ListPainter.h"
#include "host/render/SceneIndex.h"
#include "host/render/ShownSpace.h"

#include <functional>
#include <optional>
#include <unordered_map>

namespace render {

struct Projection;
struct Sheet;

// Called now and then while a large scene is made.
using MakingWatch = std::function<void()>;

// One space of a drawing as it is shown in a window: made once, drawn many times. The model is in drawing units, a
// layout in millimetres of its paper.
class Scene
{
public:
    static Scene ofModel(const drawing::Drawing &drawing, const Surface &surface, const MakingWatch &watch = {});
    static Scene ofSheet(Sheet sheet);

    QRectF bounds() const { return m_bounds; } // null when there is nothing
    QRectF paper() const { return m_paper; }   // null for the model
    std::size_t itemCount() const;

    // Draws what the image shows. Lines of about a pixel are drawn without smoothing, and what is smaller than a pixel
    // is a dot.
    void paint(const DeviceView &view, QImage &image) const;

    // The entities with something in the rectangle, in drawing order, each once; none when there are more than `most`.
    std::optional<std::vector<drawing::RecordId>> entitiesIn(const QRectF &rectangle, std::size_t most) const;
    double tolerance() const { return m_tolerance; } // how far curves are off

    // The model in this viewport; by NoRecord, or where it is not shown, the paper, or the model of a scene without.
    ShownSpace space(drawing::RecordId viewport) const;
    drawing::RecordId viewportAt(const QPointF &place) const; // the uppermost one; NoRecord where there is none

    // Of the model: draws these entities as they are now. False when the scene has to be made anew: it is small, so
    // much has changed that this is quicker, or it is drawn in an order of its own.
    bool replace(const drawing::Drawing &drawing, const Surface &surface,
                 const std::vector<drawing::RecordId> &entities);
    // Some entities of the model with curves as fine as this, around a place, somewhere else than they are.
    static Scene ofEntities(const drawing::Drawing &drawing, const Surface &surface,
                            const std::vector<drawing::RecordId> &entities, const QRectF &window, double tolerance,
                            const geometry::Matrix &transform = {}, const MakingWatch &watch = {});

private:
    struct Part
    {
        DisplayList list;
        SceneIndex index;
        ShownSpace space;
    };
    void add(DisplayList list, ShownSpace space, double unitsPerMillimetre, const MakingWatch &watch = {});
    void paintParts(const DeviceView &view, QImage &image) const;
    struct Items // their numbers in the model's list
    {
        std::uint32_t begin, end;
    };
    Items itemsOf(drawing::RecordId entity) const;
    void takeOut(drawing::RecordId entity);
    Projection projection() const; // of the model
    static void paintInside(const Part &part, const DeviceView &view, QImage &image);

    std::vector<Part> m_parts;
    QRectF m_bounds, m_paper;
    double m_tolerance = 0;
    // Of the model:
    QRectF m_window; // that endless lines end at
    std::size_t m_firstItems = 0;
    bool m_isInOrderOfRecords = false; // the first items, by the numbers of their entities
    std::unordered_map<drawing::RecordId, Items> m_replaced;
};

} // namespace render
