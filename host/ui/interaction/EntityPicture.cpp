#include "host/ui/interaction/EntityPicture.h"

#include <QPainter>

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

void EntityPicture::makeScene(const DrawingView &view)
{
    const drawing::Drawing &drawing = m_source();
    std::vector<drawing::RecordId> seen;
    std::copy_if(m_entities.begin(), m_entities.begin() + std::ptrdiff_t(std::min(m_entities.size(), MostEntities)),
                 std::back_inserter(seen),
                 [&](drawing::RecordId entity) { return !drawing.database().record(entity).isGone(); });
    m_color = view.palette().color(QPalette::Highlight).rgb();
    render::Surface surface;
    surface.isPlot = false;
    surface.ink = m_color & 0xffffff;
    m_scene = render::Scene::ofEntities(drawing, surface, seen, view.visibleWorld(),
                                        VisibleError / 2 / pixelsPerUnit(view), m_transform);
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
    const bool isFine = m_scene && m_scene->tolerance() * pixelsPerUnit(view) <= VisibleError;
    if (!isFine || m_color != view.palette().color(QPalette::Highlight).rgb())
        makeScene(view);
    const bool fits = m_shown == view.toWidget() && m_image.deviceIndependentSize() == QSizeF(view.size());
    if (!fits || m_image.isNull())
        makeImage(view);
    for (const QPoint &stroke : Strokes)
        painter.drawImage(stroke, m_image);
}
