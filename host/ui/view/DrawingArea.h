#pragma once

#include "host/drawing/Drawing.h"
#include "host/ui/view/DrawingView.h"

#include <QHash>
#include <QStringList>
#include <QTabBar>

// A drawing in the window: the view, and tabs below for the model and the layouts. Shown is what the drawing says is
// current (its TILEMODE and its active layout); a click on a tab only tells what a person wants.
class DrawingArea final : public QWidget
{
    Q_OBJECT

public:
    // The drawing that is open at the moment, which may be another one each time.
    using Source = std::function<const drawing::Drawing &()>;
    explicit DrawingArea(Source source, QWidget *parent = nullptr);

    DrawingView &view() { return *m_view; }
    QTabBar &tabs() { return *m_tabs; }
    bool isLayoutShown() const { return m_tabs->currentIndex() > 0; }
    drawing::RecordId viewportAt(const QPointF &place) const { return m_scene->viewportAt(place); }

    // Shows what the drawing is now; nothing when it has not changed. Another drawing is shown as a whole, and a tab as
    // it was left. Large ones take a while, during which the watch is called now and then; it may let the window live
    // on.
    void refresh(const render::MakingWatch &watch = {});
    // The space that the view tells places of; NoRecord: the model in its own tab, the paper in a layout's.
    void workThrough(drawing::RecordId viewport);

Q_SIGNALS:
    void tabChosen(const QString &name); // by a person; refresh() shows what has become of it
    void tabShown();                     // another one than before

protected:
    void changeEvent(QEvent *event) override;

private:
    // The model's scene is kept while a layout is shown: to make it is what takes long.
    struct Picture
    {
        std::shared_ptr<render::Scene> scene;
        std::uint64_t changeCount = 0; // of the journal, when it was right
    };

    QStringList namesOfTabs() const;
    int currentTab() const; // as the drawing says
    void showTabs();
    void choose(int tab);
    void showScene(const render::MakingWatch &watch = {});
    void makeScene(const render::MakingWatch &watch);
    bool followChanges(); // of the model, in the scene that it has; false: it has to be made anew
    std::optional<render::Scene> refined(const QRectF &window, double tolerance);
    render::Surface surface() const;
    bool isCurrent() const; // whether the scene shows the drawing as it is

    Source m_source;
    DrawingView *m_view;
    QTabBar *m_tabs;
    std::shared_ptr<render::Scene> m_scene = std::make_shared<render::Scene>(); // that is shown
    std::uint64_t m_changeCount = 0;                                            // of what is shown
    Picture m_model;
    drawing::RecordId m_viewport = drawing::NoRecord; // worked through
    QString m_tab;                                    // that is shown
    QHash<QString, DrawingView::Place> m_places;      // of the tabs, as they were left
    std::uint32_t m_drawingNumber = 0;                // of what is shown
    bool m_isMaking = false;                          // a scene
    bool m_isOutdated = false;                        // what is being made, before it is made
};
