#include "host/ui/view/DrawingArea.h"

#include "host/drawing/ChangedEntities.h"

#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int ModelTab = 0;
constexpr std::size_t MostRefined = 20000; // entities; more take too long to be cut anew while a person zooms

} // namespace

DrawingArea::DrawingArea(Source source, QWidget *parent)
    : QWidget(parent), m_source(std::move(source)), m_view(new DrawingView), m_tabs(new QTabBar)
{
    setObjectName(QStringLiteral("drawingArea"));
    setAutoFillBackground(true); // the window has colours of its own for an empty place
    setBackgroundRole(QPalette::Window);
    setForegroundRole(QPalette::WindowText);
    m_tabs->setObjectName(QStringLiteral("layoutTabs"));
    m_tabs->setShape(QTabBar::RoundedSouth);
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->setFocusPolicy(Qt::NoFocus); // typing goes to the command line
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_tabs);
    m_view->setRefiner([this](const QRectF &window, double tolerance) { return refined(window, tolerance); });
    connect(m_tabs, &QTabBar::currentChanged, this, [this] { showTab(DrawingView::Place::ShowAll); });
    refresh();
}

bool DrawingArea::isCurrent() const
{
    const drawing::Drawing &drawing = m_source();
    return drawing.number() == m_drawingNumber && drawing.database().journal().changeCount() == m_changeCount;
}

std::optional<std::vector<drawing::RecordId>> DrawingArea::entitiesIn(const QRectF &rectangle, std::size_t most) const
{
    const bool isShown = m_source().number() == m_drawingNumber; // else the scene's entities are another drawing's
    return isShown ? m_scene->entitiesIn(rectangle, most) : std::vector<drawing::RecordId>();
}

bool DrawingArea::showsModel() const
{
    return m_tabs->currentIndex() <= ModelTab;
}

void DrawingArea::refresh(const render::MakingWatch &watch)
{
    if (isCurrent() || replaceChanged())
        return;
    const bool isOther = m_source().number() != m_drawingNumber;
    fillTabs();
    showTab(isOther ? DrawingView::Place::ShowAll : DrawingView::Place::Keep, watch);
}

// A drawing of a million lines is not made anew because of one.
bool DrawingArea::replaceChanged()
{
    const drawing::Drawing &drawing = m_source();
    const drawing::Journal &journal = drawing.database().journal();
    if (drawing.number() != m_drawingNumber || !showsModel())
        return false;
    const auto records = journal.changedSince(m_changeCount);
    const auto entities = records ? drawing::changedEntities(drawing, *records) : std::nullopt;
    if (!entities || !m_scene->replace(drawing, surface(), *entities))
        return false;
    m_changeCount = journal.changeCount();
    m_view->setScene(m_scene, DrawingView::Place::Keep);
    return true;
}

// Keeps the tab that is shown, when it is still there.
void DrawingArea::fillTabs()
{
    const QSignalBlocker quiet(m_tabs);
    const bool isOther = m_source().number() != m_drawingNumber;
    const QString shown = isOther ? QString() : m_tabs->tabText(m_tabs->currentIndex());
    m_layouts = drawing::layouts(m_source().database());
    std::erase_if(m_layouts, [](const drawing::Layout &layout) { return layout.tab == 0; });
    std::stable_sort(m_layouts.begin(), m_layouts.end(),
                     [](const drawing::Layout &a, const drawing::Layout &b) { return a.tab < b.tab; });
    while (m_tabs->count() > 0)
        m_tabs->removeTab(0);
    m_tabs->addTab(tr("Model"));
    for (const drawing::Layout &layout : m_layouts) {
        const int tab = m_tabs->addTab(QString::fromStdU16String(layout.name));
        if (m_tabs->tabText(tab) == shown)
            m_tabs->setCurrentIndex(tab);
    }
}

render::Surface DrawingArea::surface() const
{
    return {palette().color(QPalette::Base).rgb() & 0xffffff, false};
}

render::Scene DrawingArea::sceneOfTab(const render::MakingWatch &watch) const
{
    const int tab = m_tabs->currentIndex();
    return tab <= ModelTab ? render::Scene::ofModel(m_source(), surface(), watch)
                           : render::Scene::ofLayout(m_source(), m_layouts[static_cast<std::size_t>(tab - 1)]);
}

// While the watch lets the window live another tab may be chosen, or other colours: then what was made is of no use.
void DrawingArea::showTab(DrawingView::Place place, const render::MakingWatch &watch)
{
    m_isOutdated = true;
    if (m_isMaking)
        return;
    m_isMaking = true;
    while (std::exchange(m_isOutdated, false))
        m_scene = std::make_shared<render::Scene>(sceneOfTab(watch));
    m_isMaking = false;
    const drawing::Drawing &drawing = m_source();
    m_drawingNumber = drawing.number();
    m_changeCount = drawing.database().journal().changeCount();
    m_view->setScene(m_scene, place);
}

std::optional<render::Scene> DrawingArea::refined(const QRectF &window, double tolerance)
{
    if (!showsModel() || !isCurrent())
        return std::nullopt;
    const auto entities = m_scene->entitiesIn(window, MostRefined);
    if (!entities)
        return std::nullopt;
    return render::Scene::ofEntities(m_source(), surface(), *entities, window, tolerance);
}

// Light and dark colours.
void DrawingArea::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_scene)
        showTab(DrawingView::Place::Keep);
}
