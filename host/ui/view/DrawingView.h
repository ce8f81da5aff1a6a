#pragma once

#include "host/render/Scene.h"

#include <QImage>
#include <QWidget>

#include <functional>

// Shows a scene: the wheel zooms about the cursor, dragging with the middle button pans, a double click with it shows
// all. A crosshair follows the cursor.
class DrawingView final : public QWidget
{
    Q_OBJECT

public:
    explicit DrawingView(QWidget *parent = nullptr);

    enum class Place { Keep, ShowAll };
    void setScene(std::shared_ptr<const render::Scene> scene, Place place);
    // What draws a part of the scene with finer curves, when it is looked at closely. None when it has too much in it.
    using Refiner = std::function<std::optional<render::Scene>(const QRectF &window, double tolerance)>;
    void setRefiner(Refiner refiner) { m_refiner = std::move(refiner); }

    void zoomExtents();
    void zoom(double factor, const QPointF &about); // the place in the widget stays where it is
    QPointF worldAt(const QPointF &position) const;
    QPointF positionOf(const QPointF &world) const;
    double scale() const { return m_scale; } // logical pixels for a unit of the scene

Q_SIGNALS:
    void cursorMoved(const QPointF &world);
    void cursorLeft();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void changeView();
    void drawFrame();
    void drawCrosshair(QPainter &painter);
    const render::Scene &sceneForFrame();
    QTransform toWidget() const;
    QRectF visibleWorld() const;

    std::shared_ptr<const render::Scene> m_scene;
    Refiner m_refiner;
    std::optional<render::Scene> m_detail; // finer, for m_detailWindow
    QRectF m_detailWindow;
    QPointF m_centre; // of the widget, in the scene
    double m_scale = 1;
    QImage m_frame; // what was drawn last
    bool m_isFrameValid = false;
    bool m_showsAll = true; // as long as nobody has panned or zoomed
    std::optional<QPointF> m_cursor, m_dragged;
};
