#include "host/ui/view/DrawingArea.h"

#include "host/drawing/ChangedEntities.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/Layouts.h"
#include "host/render/Sheet.h"

#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int ModelTab = 0;
constexpr std::size_t MostRefined = 20000; // entities; more take too long to be cut anew while a person zooms

bool isModelCurrent(const drawing::Database &database)
{
    const std::optional<drawing::Group> group = drawing::variable(database, "$TILEMODE");
    const auto *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
    return !value || *value != 0;
}

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
    connect(m_tabs, &QTabBar::currentChanged, this, &DrawingArea::choose);
    refresh();
}

bool DrawingArea::isCurrent() const
{
    const drawing::Drawing &drawing = m_source();
    return drawing.number() == m_drawingNumber && drawing.database().journal().changeCount() == m_changeCount;
}

void DrawingArea::refresh(const render::MakingWatch &watch)
{
    if (isCurrent())
        return;
    const bool isOther = m_source().number() != m_drawingNumber;
    if (isOther) {
        m_places.clear();
        m_model = {};
    } else {
        m_places[m_tab] = m_view->place();
    }
    showTabs();
    const QString tab = m_tabs->tabText(m_tabs->currentIndex());
    const bool isOtherTab = isOther || tab != m_tab;
    m_tab = tab;
    showScene(watch);
    if (isOtherTab)
        Q_EMIT tabShown();
}

void DrawingArea::workThrough(drawing::RecordId viewport)
{
    if (viewport == m_viewport)
        return;
    m_viewport = viewport;
    m_view->setSpace(m_scene->space(viewport));
}

QStringList DrawingArea::namesOfTabs() const
{
    std::vector<drawing::Layout> layouts = drawing::layouts(m_source().database());
    std::erase_if(layouts, [](const drawing::Layout &layout) { return layout.tab == 0; });
    std::stable_sort(layouts.begin(), layouts.end(),
                     [](const drawing::Layout &a, const drawing::Layout &b) { return a.tab < b.tab; });
    QStringList names{tr("Model")};
    for (const drawing::Layout &layout : layouts)
        names.append(QString::fromStdU16String(layout.name));
    if (layouts.empty())
        names.append(QStringLiteral("Layout1")); // as CTAB calls the one sheet of drawings before R2000
    return names;
}

int DrawingArea::currentTab() const
{
    if (isModelCurrent(m_source().database()))
        return ModelTab;
    const std::optional<drawing::Layout> layout = drawing::activeLayout(m_source());
    const QString name = layout ? QString::fromStdU16String(layout->name) : QString();
    for (int tab = ModelTab + 1; tab < m_tabs->count(); ++tab)
        if (m_tabs->tabText(tab) == name)
            return tab;
    return std::min(ModelTab + 1, m_tabs->count() - 1);
}

void DrawingArea::showTabs()
{
    const QSignalBlocker quiet(m_tabs);
    const QStringList names = namesOfTabs();
    for (qsizetype tab = 0; tab < names.size(); ++tab)
        if (tab >= m_tabs->count())
            m_tabs->addTab(names[tab]);
        else if (m_tabs->tabText(static_cast<int>(tab)) != names[tab])
            m_tabs->setTabText(static_cast<int>(tab), names[tab]);
    while (m_tabs->count() > names.size())
        m_tabs->removeTab(m_tabs->count() - 1);
    m_tabs->setCurrentIndex(currentTab());
}

// The tab bar has gone ahead of the drawing; it comes back when nobody has followed it.
void DrawingArea::choose(int tab)
{
    const QString name = m_tabs->tabText(tab);
    showTabs();
    Q_EMIT tabChosen(name);
}

render::Surface DrawingArea::surface() const
{
    return {palette().color(QPalette::Base).rgb() & 0xffffff, false};
}

// A drawing of a million lines is not made anew because of one.
bool DrawingArea::followChanges()
{
    if (!m_model.scene)
        return false;
    const drawing::Drawing &drawing = m_source();
    const auto records = drawing.database().journal().changedSince(m_model.changeCount);
    const auto entities = records ? drawing::changedEntities(drawing, *records) : std::nullopt;
    return entities && (entities->empty() || m_model.scene->replace(drawing, surface(), *entities));
}

// While the watch lets the window live other colours may be chosen: then what was made is of no use.
void DrawingArea::makeScene(const render::MakingWatch &watch)
{
    m_isMaking = true;
    for (bool isAgain = false; std::exchange(m_isOutdated, false); isAgain = true) {
        if (isAgain)
            m_model = {};
        const bool isModel = isModelCurrent(m_source().database());
        if (!isModel)
            m_scene = std::make_shared<render::Scene>(render::Scene::ofSheet(render::currentSheet(m_source())));
        else if (!followChanges())
            m_model.scene = std::make_shared<render::Scene>(render::Scene::ofModel(m_source(), surface(), watch));
        if (isModel) {
            m_scene = m_model.scene;
            m_model.changeCount = m_source().database().journal().changeCount();
        }
    }
    m_isMaking = false;
}

void DrawingArea::showScene(const render::MakingWatch &watch)
{
    m_isOutdated = true;
    if (m_isMaking)
        return;
    makeScene(watch);
    m_drawingNumber = m_source().number();
    m_changeCount = m_source().database().journal().changeCount();
    m_view->setScene(m_scene, m_scene->space(m_viewport), m_places.value(m_tab));
}

std::optional<render::Scene> DrawingArea::refined(const QRectF &window, double tolerance)
{
    if (isLayoutShown() || !isCurrent())
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
    if (event->type() != QEvent::PaletteChange || m_tab.isEmpty())
        return;
    m_model = {};
    m_places[m_tab] = m_view->place();
    showScene();
}
