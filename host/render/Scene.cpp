#include "host/render/Scene.h"

#include "host/render/DisplayListBuilder.h"
#include "host/render/ScenePainter.h"
#include "host/render/Sheet.h"
#include "host/render/Spaces.h"
#include "host/render/VisibleBounds.h"

#include <algorithm>
#include <thread>
#include <unordered_set>

namespace render {

using drawing::RecordId;

namespace {

constexpr double StepsAcross = 20000; // curves are finer than the pixels of a screen that shows all
constexpr std::size_t SampleSize = 2000;
constexpr std::size_t WatchedEntities = 1000; // between two times
constexpr std::size_t SmallScene = 5000;      // items that are made anew in no time, with curves as fine as it needs
constexpr std::size_t ReplacedShare = 50;

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

// By how many of its own sizes a scene may outgrow the window that it was made for, before its curves and endless lines
// are no longer what they should be.
QRectF roomFor(const QRectF &window)
{
    return window.adjusted(-window.width(), -window.height(), window.width(), window.height());
}

} // namespace

void Scene::add(DisplayList list, ShownSpace space, double unitsPerMillimetre, const MakingWatch &watch)
{
    SceneIndex index(list, unitsPerMillimetre, watch);
    m_bounds |= list.bounds();
    m_parts.push_back({std::move(list), std::move(index), std::move(space)});
}

Projection Scene::projection() const
{
    Projection projection;
    projection.tolerance = m_tolerance;
    projection.window = m_window;
    return projection;
}

Scene Scene::ofEntities(const drawing::Drawing &drawing, const Surface &surface, const std::vector<RecordId> &entities,
                        const QRectF &window, double tolerance, const geometry::Matrix &transform,
                        const MakingWatch &watch)
{
    Scene scene;
    scene.m_tolerance = tolerance;
    scene.m_window = window;
    AppearanceResolver appearances(drawing, surface);
    Projection projection = scene.projection();
    projection.toPage = transform;
    if (const double scale = length(transform.x); scale > 0)
        projection.scale = scale;
    DisplayList list(window.center());
    DisplayListBuilder builder(drawing, appearances, projection, list);
    for (std::size_t i = 0; i < entities.size(); ++i) {
        if (watch && i % WatchedEntities == 0)
            watch();
        builder.add(entities[i]);
    }
    scene.m_firstItems = list.items().size();
    scene.m_isInOrderOfRecords = std::is_sorted(entities.begin(), entities.end());
    scene.add(std::move(list), {}, 0, watch);
    return scene;
}

Scene::Items Scene::itemsOf(RecordId entity) const
{
    if (const auto replaced = m_replaced.find(entity); replaced != m_replaced.end())
        return replaced->second;
    const std::vector<DisplayItem> &items = m_parts.front().list.items();
    const auto firstEnd = items.begin() + static_cast<std::ptrdiff_t>(m_firstItems);
    const auto [begin, end] = std::equal_range(items.begin(), firstEnd, DisplayItem{.entity = entity},
                                               [](const auto &a, const auto &b) { return a.entity < b.entity; });
    return {static_cast<std::uint32_t>(begin - items.begin()), static_cast<std::uint32_t>(end - items.begin())};
}

void Scene::takeOut(RecordId entity)
{
    Part &part = m_parts.front();
    const Items items = itemsOf(entity);
    for (std::uint32_t item = items.begin; item < items.end; ++item) {
        part.index.remove(part.list, item);
        part.list.takeOut(item);
    }
}

bool Scene::replace(const drawing::Drawing &drawing, const Surface &surface, const std::vector<RecordId> &entities)
{
    const bool isWorthIt = m_isInOrderOfRecords && m_firstItems >= SmallScene &&
                           m_replaced.size() + entities.size() <= m_firstItems / ReplacedShare;
    if (!isWorthIt)
        return false;
    Part &part = m_parts.front();
    AppearanceResolver appearances(drawing, surface);
    DisplayListBuilder builder(drawing, appearances, projection(), part.list);
    for (const RecordId entity : entities) {
        takeOut(entity);
        Items items{static_cast<std::uint32_t>(part.list.items().size()), 0};
        if (isInModel(drawing, entity))
            builder.add(entity);
        items.end = static_cast<std::uint32_t>(part.list.items().size());
        for (std::uint32_t item = items.begin; item < items.end; ++item)
            part.index.insert(part.list, item);
        m_replaced[entity] = items;
    }
    m_bounds = part.list.bounds();
    return roomFor(m_window).contains(m_bounds);
}

Scene Scene::ofModel(const drawing::Drawing &drawing, const Surface &surface, const MakingWatch &watch)
{
    AppearanceResolver appearances(drawing, surface);
    const std::vector<RecordId> entities = modelEntities(drawing);
    const QRectF window = sampledBounds(drawing, appearances, entities);
    const double size = std::max(window.width(), window.height());
    return ofEntities(drawing, surface, entities, window, size > 0 ? size / StepsAcross : 1 / StepsAcross, {}, watch);
}

Scene Scene::ofSheet(Sheet sheet)
{
    Scene scene;
    scene.m_paper = QRectF(QPointF(0, 0), sheet.size);
    for (Sheet::Part &part : sheet.parts)
        scene.add(std::move(part.list), std::move(part.space), 1);
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
    std::vector<std::jthread> others; // end before what they use
    for (int band = 1; band < bands; ++band)
        others.emplace_back(paintBand, bandOf(band));
    paintBand(bandOf(0));
}

void Scene::paintParts(const DeviceView &view, QImage &image) const
{
    for (const Part &part : m_parts)
        if (part.space.outline.isEmpty())
            ScenePainter(part.list, part.index, view, image).paint();
        else
            paintInside(part, view, image);
}

// A rectangle, which nearly all are, is painted into as an image of its own, on the same pixels: that is much quicker
// than to clip every line.
void Scene::paintInside(const Part &part, const DeviceView &view, QImage &image)
{
    const QPolygonF onDevice = view.toDevice.map(part.space.outline);
    const QRectF around = onDevice.boundingRect();
    const QRect rectangle = around.intersected(QRectF(image.rect())).toAlignedRect() & image.rect();
    if (rectangle.isEmpty())
        return;
    constexpr int BytesOfPixel = 4;
    uchar *first = image.bits() + rectangle.y() * image.bytesPerLine() + rectangle.x() * BytesOfPixel;
    QImage window(first, rectangle.width(), rectangle.height(), image.bytesPerLine(), image.format());
    const DeviceView moved = movedTo(rectangle, view);
    const bool isRectangle = QPolygonF(around).intersected(onDevice).boundingRect() == around && onDevice.size() <= 5;
    ScenePainter(part.list, part.index, moved, window).paint(isRectangle ? QPolygonF() : part.space.outline);
}

ShownSpace Scene::space(RecordId viewport) const
{
    for (const Part &part : m_parts)
        if (viewport != drawing::NoRecord && part.space.viewport == viewport)
            return part.space;
    return m_parts.empty() ? ShownSpace() : m_parts.back().space; // the paper lies above its viewports
}

RecordId Scene::viewportAt(const QPointF &place) const
{
    for (auto part = m_parts.rbegin(); part != m_parts.rend(); ++part)
        if (part->space.viewport != drawing::NoRecord && part->space.outline.containsPoint(place, Qt::OddEvenFill))
            return part->space.viewport;
    return drawing::NoRecord;
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
    if (m_isInOrderOfRecords) // items that came later are those of entities anywhere
        std::sort(entities.begin(), entities.end());
    return entities;
}

} // namespace render
