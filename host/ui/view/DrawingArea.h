#pragma once

#include "host/drawing/Drawing.h"
#include "host/ui/view/DrawingView.h"

#include <QTabBar>

// A drawing in the window: the view, and tabs below for the model and the layouts.
class DrawingArea final : public QWidget
{
    Q_OBJECT

public:
    // The drawing that is open at the moment, which may be another one each time.
    using Source = std::function<const drawing::Drawing &()>;
    explicit DrawingArea(Source source, QWidget *parent = nullptr);

    DrawingView &view() { return *m_view; }
    QTabBar &tabs() { return *m_tabs; }
    bool showsModel() const; // else a layout
    // With something of them in this part of the scene; none when there are more than `most`.
    std::optional<std::vector<drawing::RecordId>> entitiesIn(const QRectF &rectangle, std::size_t most) const;

    // Shows what the drawing is now; nothing when it has not changed. Another drawing is shown as a whole.
    // Large ones take a while, during which the watch is called now and then; it may let the window live on.
    void refresh(const render::MakingWatch &watch = {});

protected:
    void changeEvent(QEvent *event) override;

private:
    void fillTabs();
    void showTab(DrawingView::Place place, const render::MakingWatch &watch = {});
    render::Scene sceneOfTab(const render::MakingWatch &watch) const;
    std::optional<render::Scene> refined(const QRectF &window, double tolerance);
    render::Surface surface() const;
    bool replaceChanged();  // false: the scene has to be made anew
    bool isCurrent() const; // whether the scene shows the drawing as it is

    Source m_source;
    DrawingView *m_view;
    QTabBar *m_tabs;
    std::vector<drawing::Layout> m_layouts; // behind the model's tab
    std::shared_ptr<render::Scene> m_scene;
    std::uint32_t m_drawingNumber = 0; // of what is shown
    std::uint64_t m_changeCount = 0;
    bool m_isMaking = false;   // a scene
    bool m_isOutdated = false; // what is being made, before it is made
};
