#include "host/ui/view/DrawingView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr double Border = 0.95;                        // of the widget, when all is shown
constexpr double LeastScale = 1e-12, MostScale = 1e12; // beyond them numbers have no digits left
constexpr double WheelStep = 120, ZoomOfStep = 1.25;   // an eighth of a degree each
constexpr double VisibleError = 0.5;                   // of a curve, in pixels
constexpr double ViewportFrame = 3;                    // pixels wide

} // namespace

DrawingView::DrawingView(QWidget *parent) : QWidget(parent), m_scene(std::make_shared<render::Scene>())
{
    setObjectName(QStringLiteral("drawingView"));
    setMouseTracking(true);
    setCursor(Qt::BlankCursor); // the crosshair is drawn
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(100, 100);
}

void DrawingView::setScene(std::shared_ptr<const render::Scene> scene, const render::ShownSpace &space,
                           const Place &place)
{
    m_scene = std::move(scene);
    m_detail.reset();
    m_space = space;
    m_place = place;
    if (place.showsAll)
        placeAll();
    changeView();
}

void DrawingView::setSpace(const render::ShownSpace &space)
{
    m_space = space;
    Q_EMIT viewChanged();
    update(); // of what is drawn over the picture
}

void DrawingView::placeAll()
{
    const QRectF bounds = m_scene->bounds();
    const double across = bounds.width() > 0 ? width() / bounds.width() : MostScale;
    const double up = bounds.height() > 0 ? height() / bounds.height() : MostScale;
    const double scale = std::min(across, up);
    m_place = {bounds.center(), scale < MostScale ? std::max(scale * Border, LeastScale) : 1, true};
}

void DrawingView::zoomExtents()
{
    placeAll();
    changeView();
}

void DrawingView::zoom(double factor, const QPointF &about)
{
    const QPointF fixed = placeAt(about);
    m_place.scale = std::clamp(m_place.scale * factor, LeastScale, MostScale);
    m_place.centre += fixed - placeAt(about);
    m_place.showsAll = false;
    changeView();
}

void DrawingView::show(const QPointF &centre, double height)
{
    m_place = {centre, std::clamp(this->height() / height, LeastScale, MostScale), false};
    changeView();
}

void DrawingView::changeView()
{
    m_isFrameValid = false;
    update();
    Q_EMIT viewChanged();
}

void DrawingView::setMarks(Marks marks, int pickBox)
{
    m_marks = marks;
    m_pickBox = pickBox;
    update();
}

QTransform DrawingView::toWidget() const
{
    const auto &[centre, scale, showsAll] = m_place;
    return {scale, 0, 0, -scale, width() / 2.0 - centre.x() * scale, height() / 2.0 + centre.y() * scale};
}

QPointF DrawingView::positionOf(const QPointF &scene) const
{
    return toWidget().map(scene);
}

QPointF DrawingView::positionOf(const geometry::Vector &world) const
{
    const geometry::Vector onPage = m_space.toPage.place(world);
    return positionOf(QPointF(onPage.x, onPage.y));
}

QPointF DrawingView::placeAt(const QPointF &position) const
{
    return {m_place.centre.x() + (position.x() - width() / 2.0) / m_place.scale,
            m_place.centre.y() - (position.y() - height() / 2.0) / m_place.scale};
}

QRectF DrawingView::visiblePart() const
{
    return QRectF(placeAt(QPointF(0, 0)), placeAt(QPointF(width(), height()))).normalized();
}

bool DrawingView::hasPaper() const
{
    return !m_scene->paper().isNull();
}

QColor DrawingView::ink() const
{
    return hasPaper() ? QColor(Qt::black) : palette().color(QPalette::Text);
}

// The scene itself, or a finer one for where the view is; which is kept as long as the view stays in it.
const render::Scene &DrawingView::sceneForFrame()
{
    const double pixelsPerUnit = m_place.scale * devicePixelRatioF();
    if (!m_refiner || m_scene->tolerance() * pixelsPerUnit <= VisibleError)
        return *m_scene;
    const QRectF visible = visiblePart();
    const bool fits =
        m_detail && m_detailWindow.contains(visible) && m_detail->tolerance() * pixelsPerUnit <= VisibleError;
    if (!fits) {
        m_detailWindow = visible.adjusted(-visible.width(), -visible.height(), visible.width(), visible.height());
        m_detail = m_refiner(m_detailWindow, VisibleError / 2 / pixelsPerUnit);
    }
    return m_detail ? *m_detail : *m_scene;
}

void DrawingView::drawFrame()
{
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (m_frame.size() != pixels)
        m_frame = QImage(pixels, QImage::Format_RGB32);
    m_frame.setDevicePixelRatio(1);
    m_frame.fill(palette().color(hasPaper() ? QPalette::Mid : QPalette::Base));
    render::DeviceView view;
    view.toDevice = toWidget() * QTransform::fromScale(ratio, ratio);
    view.thinnest = ratio;
    view.pixelsPerMillimetre = hasPaper() ? m_place.scale * ratio : 0; // the model's lines are thin
    if (hasPaper()) {
        QPainter painter(&m_frame);
        painter.fillRect(view.toDevice.mapRect(m_scene->paper()), Qt::white);
    }
    sceneForFrame().paint(view, m_frame);
    m_frame.setDevicePixelRatio(ratio);
    m_isFrameValid = true;
}

void DrawingView::drawMarks(QPainter &painter)
{
    if (!m_cursor || m_dragged)
        return;
    painter.setPen(ink());
    painter.setBrush(Qt::NoBrush);
    if (m_marks != Marks::PickBox) {
        painter.drawLine(QPointF(0, m_cursor->y()), QPointF(width(), m_cursor->y()));
        painter.drawLine(QPointF(m_cursor->x(), 0), QPointF(m_cursor->x(), height()));
    }
    if (m_marks != Marks::Crosshair)
        painter.drawRect(QRectF(m_cursor->x() - m_pickBox, m_cursor->y() - m_pickBox, 2 * m_pickBox, 2 * m_pickBox));
}

void DrawingView::paintEvent(QPaintEvent *)
{
    if (!m_isFrameValid)
        drawFrame();
    QPainter painter(this);
    painter.drawImage(0, 0, m_frame);
    if (m_space.kind == render::ShownSpace::Kind::Viewport) { // which of them is worked through
        painter.setPen(QPen(ink(), ViewportFrame));
        painter.drawPolygon(toWidget().map(m_space.outline));
    }
    for (ViewOverlay *overlay : m_overlays) {
        painter.save();
        overlay->paint(painter, *this);
        painter.restore();
    }
    drawMarks(painter);
}

void DrawingView::resizeEvent(QResizeEvent *)
{
    if (m_place.showsAll)
        zoomExtents();
    changeView();
}

void DrawingView::wheelEvent(QWheelEvent *event)
{
    zoom(std::pow(ZoomOfStep, event->angleDelta().y() / WheelStep), event->position());
    event->accept();
}

void DrawingView::mousePressEvent(QMouseEvent *event)
{
    m_cursor = event->position();
    if (event->button() == Qt::LeftButton)
        Q_EMIT pressed(placeAt(*m_cursor), event->modifiers());
    else if (event->button() == Qt::RightButton)
        Q_EMIT rightClicked();
    if (event->button() != Qt::MiddleButton)
        return;
    m_dragged = event->position();
    setCursor(Qt::ClosedHandCursor);
}

void DrawingView::mouseMoveEvent(QMouseEvent *event)
{
    m_cursor = event->position();
    if (m_dragged) {
        m_place.centre += placeAt(*m_dragged) - placeAt(*m_cursor);
        m_dragged = m_cursor;
        m_place.showsAll = false;
        changeView();
    }
    Q_EMIT cursorMoved(placeAt(*m_cursor));
    update();
}

void DrawingView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT released(placeAt(event->position()));
    if (event->button() != Qt::MiddleButton)
        return;
    m_dragged.reset();
    setCursor(Qt::BlankCursor);
    update();
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        return zoomExtents();
    bool isTaken = false;
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked(placeAt(event->position()), isTaken);
    if (!isTaken)
        mousePressEvent(event); // two quick clicks are two
}

void DrawingView::leaveEvent(QEvent *)
{
    m_cursor.reset();
    Q_EMIT cursorLeft();
    update();
}
