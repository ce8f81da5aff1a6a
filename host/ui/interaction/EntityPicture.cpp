#include "host/ui/interaction/EntityPicture.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t MostEntities = 20000;                                             // more take too long
constexpr double VisibleError = 0.5;                                                    // of a curve, in pixels
constexpr std::array<QPoint, 5> Strokes = {{{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {0, 0}}}; // that make a line wide

double pixelsPerUnit(const DrawingView &view)
{
    return view.scale() * view.devicePixelRatioF();
}

} // namespace

void EntityPicture::show(std::vector<drawing::RecordId> entities, const geometry::Matrix &transform)
{
    m_entities = std::move(entities);
    m_drawingNumber = m_source().number();
    m_transform = transform;
    m_scene.reset();
}

std::vector<drawing::RecordId> EntityPicture::seenEntities(const DrawingView &view) const
{
    const drawing::Database &database = m_source().database();
    const bool isPaper = view.space().kind == render::ShownSpace::Kind::Paper;
    std::vector<drawing::RecordId> seen;
    std::copy_if(m_entities.begin(), m_entities.begin() + std::ptrdiff_t(std::min(m_entities.size(), MostEntities)),
                 std::back_inserter(seen), [&](drawing::RecordId entity) {
                     const drawing::Record &record = database.record(entity);
                     return !record.isGone() && record.has(drawing::Record::PaperSpace) == isPaper;
                 });
    return seen;
}

bool EntityPicture::isSceneFor(const DrawingView &view) const
{
    return m_scene && m_scene->tolerance() * pixelsPerUnit(view) <= VisibleError && m_space == view.space().toPage &&
           m_color == view.palette().color(QPalette::Highlight).rgb();
}

void EntityPicture::makeScene(const DrawingView &view)
{
    m_color = view.palette().color(QPalette::Highlight).rgb();
    m_space = view.space().toPage;
    render::Surface surface;
    surface.isPlot = false;
    surface.ink = m_color & 0xffffff;
    m_scene = render::Scene::ofEntities(m_source(), surface, seenEntities(view), view.visiblePart(),
                                        VisibleError / 2 / pixelsPerUnit(view), m_space * m_transform);
    m_image = QImage();
}

void EntityPicture::makeImage(const DrawingView &view)
{
    const double ratio = view.devicePixelRatioF();
    m_image = QImage((QSizeF(view.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent);
    m_shown = view.toWidget();
    render::DeviceView device;
    device.toDevice = m_shown * QTransform::fromScale(ratio, ratio);
    device.thinnest = ratio;
    device.pixelsPerMillimetre = 0;
    m_scene->paint(device, m_image);
    m_image.setDevicePixelRatio(ratio);
}

void EntityPicture::paint(QPainter &painter, const DrawingView &view)
{
    if (m_entities.empty() || m_source().number() != m_drawingNumber)
        return;
    if (!isSceneFor(view))
        makeScene(view);
    const bool fits = m_shown == view.toWidget() && m_image.deviceIndependentSize() == QSizeF(view.size());
    if (!fits || m_image.isNull())
        makeImage(view);
    if (!view.space().outline.isEmpty()) {
        QPainterPath outline;
        outline.addPolygon(view.toWidget().map(view.space().outline));
        painter.setClipPath(outline);
    }
    for (const QPoint &stroke : Strokes)
        painter.drawImage(stroke, m_image);
}
