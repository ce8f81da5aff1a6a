#include "host/render/Scene.h"

#include "host/render/DisplayListBuilder.h"
#include "host/render/ScenePainter.h"
#include "host/render/Sheet.h"
#include "host/render/Spaces.h"
#include "host/render/VisibleBounds.h"

#include <algorithm>
#include <thread>

namespace render {

using drawing::RecordId;

namespace {

constexpr double StepsAcross = 20000; // curves are finer than the pixels of a screen that shows all
constexpr std::size_t SampleSize = 2000;

// Of some entities all over the drawing: how large it is, about.
QRectF sampledBounds(const drawing::Drawing &drawing, AppearanceResolver &appearances,
                     const std::vector<RecordId> &entities)
{
    VisibleBounds bounds(drawing, appearances, {});
    const std::size_t step = entities.size() / SampleSize + 1;
    for (std::size_t i = 0; i < entities.size(); i += step)
        bounds.add(entities[i]);
    return bounds.bounds();
}

SceneIndex::Box boxOf(const QRectF &rectangle, const QPointF &origin)
{
    return {static_cast<float>(rectangle.left() - origin.x()), static_cast<float>(rectangle.top() - origin.y()),
            static_cast<float>(rectangle.right() - origin.x()), static_cast<float>(rectangle.bottom() - origin.y())};
}

DeviceView movedTo(const QRect &rectangle, DeviceView view)
{
    view.toDevice *= QTransform::fromTranslate(-rectangle.x(), -rectangle.y());
    return view;
}

} // namespace

void Scene::add(DisplayList list, const QPolygonF &outline, double unitsPerMillimetre)
{
    SceneIndex index(list, unitsPerMillimetre);
    m_bounds |= list.bounds();
    m_parts.push_back({std::move(list), std::move(index), outline});
}

Scene Scene::ofEntities(const drawing::Drawing &drawing, const Surface &surface, const std::vector<RecordId> &entities,
                        const QRectF &window, double tolerance, const geometry::Matrix &transform)
{
    AppearanceResolver appearances(drawing, surface);
    Projection projection;
    projection.toPage = transform;
    projection.tolerance = tolerance;
    projection.window = window;
    DisplayList list(window.center());
    DisplayListBuilder builder(drawing, appearances, projection, list);
    for (const RecordId entity : entities)
        builder.add(entity);
    Scene scene;
    scene.m_tolerance = tolerance;
    scene.m_window = window;
    scene.add(std::move(list), {}, 0);
    return scene;
}

void Scene::takeOut(const std::vector<bool> &records)
{
    Part &part = m_parts.front();
    std::vector<bool> items(part.list.items().size());
    for (std::size_t item = 0; item < items.size(); ++item) {
        const RecordId entity = part.list.items()[item].entity;
        items[item] = entity < records.size() && records[entity];
        if (items[item])
            part.list.takeOut(item);
    }
    part.index.takeOut(items);
}

bool Scene::replace(const drawing::Drawing &drawing, const Surface &surface, const std::vector<RecordId> &entities)
{
    constexpr std::size_t Small = 5000; // items that are made anew in no time, in the right order
    constexpr std::size_t Share = 20;   // what has changed is all made anew each time
    const std::size_t items = m_parts.front().list.items().size();
    if (items < Small || m_changed.size() + entities.size() > items / Share)
        return false;
    std::vector<bool> fresh(drawing.database().recordCount());
    for (const RecordId entity : entities)
        fresh[entity] = m_changed.insert(entity).second;
    takeOut(fresh);
    m_parts.resize(1);
    m_bounds = m_parts.front().list.bounds();
    std::vector<RecordId> seen(m_changed.begin(), m_changed.end());
    std::erase_if(seen, [&](RecordId entity) { return drawing.database().record(entity).isGone(); });
    std::sort(seen.begin(), seen.end());
    Scene changed = ofEntities(drawing, surface, seen, m_window, m_tolerance);
    m_bounds |= changed.m_bounds;
    m_parts.push_back(std::move(changed.m_parts.front()));
    return true;
}

Scene Scene::ofModel(const drawing::Drawing &drawing, const Surface &surface)
{
    AppearanceResolver appearances(drawing, surface);
    const std::vector<RecordId> entities = modelEntities(drawing);
    const QRectF window = sampledBounds(drawing, appearances, entities);
    const double size = std::max(window.width(), window.height());
    return ofEntities(drawing, surface, entities, window, size > 0 ? size / StepsAcross : 1 / StepsAcross);
}

Scene Scene::ofLayout(const drawing::Drawing &drawing, const drawing::Layout &layout)
{
    Sheet sheet = layoutSheet(drawing, layout);
    Scene scene;
    scene.m_paper = QRectF(QPointF(0, 0), sheet.size);
    for (Sheet::Part &part : sheet.parts)
        scene.add(std::move(part.list), part.outline, 1);
    scene.m_bounds = scene.m_paper;
    return scene;
}

std::size_t Scene::itemCount() const
{
    std::size_t count = 0;
    for (const Part &part : m_parts)
        count += part.list.items().size();
    return count;
}

// Bands of the image are painted at the same time, each as an image of its own on the same pixels.
void Scene::paint(const DeviceView &view, QImage &image) const
{
    constexpr std::size_t FewItems = 20000;
    const int most = itemCount() < FewItems ? 1 : static_cast<int>(std::thread::hardware_concurrency());
    const int bands = std::clamp(most, 1, std::max(1, image.height()));
    std::vector<std::jthread> others;
    const auto bandOf = [&](int band) {
        const int top = image.height() * band / bands, bottom = image.height() * (band + 1) / bands;
        return QRect(0, top, image.width(), bottom - top);
    };
    uchar *const pixels = image.bits(); // before others use them
    const auto paintBand = [&](const QRect &rectangle) {
        QImage band(pixels + rectangle.y() * image.bytesPerLine(), rectangle.width(), rectangle.height(),
                    image.bytesPerLine(), image.format());
        paintParts(movedTo(rectangle, view), band);
    };
    for (int band = 1; band < bands; ++band)
        others.emplace_back(paintBand, bandOf(band));
    paintBand(bandOf(0));
}

void Scene::paintParts(const DeviceView &view, QImage &image) const
{
    for (const Part &part : m_parts)
        if (part.outline.isEmpty())
            ScenePainter(part.list, part.index, view, image).paint();
        else
            paintInside(part, view, image);
}

// A rectangle, which nearly all are, is painted into as an image of its own, on the same pixels: that is much quicker
// than to clip every line.
void Scene::paintInside(const Part &part, const DeviceView &view, QImage &image)
{
    const QPolygonF onDevice = view.toDevice.map(part.outline);
    const QRectF around = onDevice.boundingRect();
    const QRect rectangle = around.intersected(QRectF(image.rect())).toAlignedRect() & image.rect();
    if (rectangle.isEmpty())
        return;
    constexpr int BytesOfPixel = 4;
    uchar *first = image.bits() + rectangle.y() * image.bytesPerLine() + rectangle.x() * BytesOfPixel;
    QImage window(first, rectangle.width(), rectangle.height(), image.bytesPerLine(), image.format());
    const DeviceView moved = movedTo(rectangle, view);
    const bool isRectangle = QPolygonF(around).intersected(onDevice).boundingRect() == around && onDevice.size() <= 5;
    ScenePainter(part.list, part.index, moved, window).paint(isRectangle ? QPolygonF() : part.outline);
}

std::optional<std::vector<RecordId>> Scene::entitiesIn(const QRectF &rectangle, std::size_t most) const
{
    std::vector<RecordId> entities;
    std::unordered_set<RecordId> known;
    for (const Part &part : m_parts)
        for (const std::uint32_t item : part.index.itemsIn(boxOf(rectangle, part.list.origin()))) {
            const RecordId entity = part.list.items()[item].entity;
            if (known.insert(entity).second)
                entities.push_back(entity);
            if (entities.size() > most)
                return std::nullopt;
        }
    return entities;
}

} // namespace render
