#pragma once

#include "host/render/Scene.h"

#include <QImage>
#include <QWidget>

#include <functional>

class DrawingView;

// Something that is drawn over the picture of the drawing, anew with each frame. A view does not own it.
class ViewOverlay
{
public:
    virtual void paint(QPainter &painter, const DrawingView &view) = 0;

protected:
    ~ViewOverlay() = default;
};

// Shows a scene: the wheel zooms about the cursor, dragging with the middle button pans, a double click with it shows
// all. A crosshair follows the cursor, or a box as large as what a click takes in. What clicks mean is for others.
class DrawingView final : public QWidget
{
    Q_OBJECT

public:
    explicit DrawingView(QWidget *parent = nullptr);

    // What is seen of a scene.
    struct Place
    {
        QPointF centre;       // of the widget, in the scene
        double scale = 1;     // logical pixels for a unit of the scene
        bool showsAll = true; // as long as nobody has panned or zoomed; then centre and scale follow the widget's size
    };
    void setScene(std::shared_ptr<const render::Scene> scene, const render::ShownSpace &space, const Place &place);
    const Place &place() const { return m_place; }
    void setSpace(const render::ShownSpace &space); // of the scene: the one that is worked on
    const render::ShownSpace &space() const { return m_space; }
    // What draws a part of the scene with finer curves, when it is looked at closely. None when it has too much in it.
    using Refiner = std::function<std::optional<render::Scene>(const QRectF &window, double tolerance)>;
    void setRefiner(Refiner refiner) { m_refiner = std::move(refiner); }

    void zoomExtents();
    void zoom(double factor, const QPointF &about); // the place in the widget stays where it is
    QPointF placeAt(const QPointF &position) const; // in the scene
    QPointF positionOf(const QPointF &scene) const;
    QPointF positionOf(const geometry::Vector &world) const; // of the space that is worked on
    double scale() const { return m_place.scale; }           // logical pixels for a unit of the scene
    void show(const QPointF &centre, double height);         // of what is seen, in the scene
    QPointF centre() const { return m_place.centre; }
    QTransform toWidget() const;                               // from the scene
    QRectF visiblePart() const;                                // of the scene
    QColor ink() const;                                        // that is seen on what the drawing is drawn on
    std::optional<QPointF> cursor() const { return m_cursor; } // in the widget; none: it is elsewhere

    void addOverlay(ViewOverlay &overlay) { m_overlays.push_back(&overlay); } // later ones above; see removeOverlay
    void removeOverlay(ViewOverlay &overlay) { std::erase(m_overlays, &overlay); }
    enum class Marks { Crosshair, PickBox, CrosshairAndPickBox };
    void setMarks(Marks marks, int pickBox); // pickBox: pixels from its middle to its edge

Q_SIGNALS:
    // Places are of the scene.
    void cursorMoved(const QPointF &place);
    void cursorLeft();
    void pressed(const QPointF &place, Qt::KeyboardModifiers modifiers); // the left button
    void released(const QPointF &place);
    void doubleClicked(const QPointF &place, bool &isTaken); // the left button; else it is pressed a second time
    void rightClicked();
    void viewChanged(); // another part is seen, another scene, or another space is worked on

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
    void placeAll();
    void changeView();
    bool hasPaper() const; // else the model is shown
    void drawFrame();
    void drawMarks(QPainter &painter);
    const render::Scene &sceneForFrame();

    std::shared_ptr<const render::Scene> m_scene;
    Refiner m_refiner;
    std::optional<render::Scene> m_detail; // finer, for m_detailWindow
    QRectF m_detailWindow;
    render::ShownSpace m_space;
    Place m_place;
    QImage m_frame; // what was drawn last
    bool m_isFrameValid = false;
    std::optional<QPointF> m_cursor, m_dragged;
    std::vector<ViewOverlay *> m_overlays;
    Marks m_marks = Marks::Crosshair;
    int m_pickBox = 0;
};
