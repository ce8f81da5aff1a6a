#include "host/ui/interaction/ViewSelection.h"

#include "host/commands/Picking.h"
#include "host/kernel/Document.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/WindowInterface.h"
#include "host/ui/view/DrawingArea.h"

#include <QLineF>

#include <unordered_set>

using drawing::RecordId;

namespace {

constexpr double HeldDistance = 4; // pixels: nearer, the button was not held but clicked

commands::Point pointOf(const LispPoint &point)
{
    return {point.x, point.y, point.z};
}

} // namespace

ViewSelection::ViewSelection(WindowInterface &interface, CommandRunner &runner, DrawingArea &area, Document &document)
    : m_interface(interface), m_runner(runner), m_area(area), m_document(document), m_coordinates(document, area.view())
{
    DrawingView &view = area.view();
    view.addOverlay(m_rectangle);
    connect(&view, &DrawingView::pressed, this, &ViewSelection::press);
    connect(&view, &DrawingView::released, this, &ViewSelection::release);
    connect(&interface.window(), &MainWindow::escapePressed, this, &ViewSelection::clear);
    connect(&interface.window().commandPanel(), &CommandPanel::deletePressed, this, &ViewSelection::erase);
}

ViewSelection::~ViewSelection()
{
    m_area.view().removeOverlay(m_rectangle);
}

bool ViewSelection::isMine() const
{
    return !m_interface.isRunning() && m_document.session().integer(u"PICKFIRST") != 0;
}

// What is selected stays with its space: nobody sees what a command would take there.
void ViewSelection::forgetOtherSpaces()
{
    const drawing::Database &database = m_document.drawing().database();
    const bool isPaper = m_document.isPaperSpaceCurrent();
    commands::Selection selected = m_document.session().impliedSelection();
    const auto isElsewhere = [&](RecordId entity) {
        const drawing::Record &record = database.record(entity);
        return record.has(drawing::Record::PaperSpace) != isPaper ||
               record.container != database.section(drawing::known::Entities);
    };
    if (std::erase_if(selected, isElsewhere) > 0)
        m_document.session().setImpliedSelection(std::move(selected));
}

void ViewSelection::showWhatIs()
{
    m_corner.reset();
    m_rectangle.end();
    forgetOtherSpaces();
    m_document.session().showSelected(m_document.session().impliedSelection());
}

void ViewSelection::press(const QPointF &place, Qt::KeyboardModifiers modifiers)
{
    if (!isMine())
        return;
    if (m_corner)
        return selectTo(place);
    m_change = modifiers & Qt::ShiftModifier ? Change::Remove : Change::Add;
    const RecordId entity = commands::entityAt(m_document.session(), pointOf(m_coordinates.user(place)));
    if (entity != drawing::NoRecord)
        return change({entity});
    m_corner = place;
    m_rectangle.begin(RubberBand::Shape::Rectangle, m_coordinates.world(place));
    m_area.view().update();
}

void ViewSelection::release(const QPointF &place)
{
    if (isMine() && m_corner && QLineF(*m_corner, place).length() * m_area.view().scale() >= HeldDistance)
        selectTo(place);
}

// As it is seen: it need not lie along the axes of the user's coordinate system.
void ViewSelection::selectTo(const QPointF &corner)
{
    const QPointF first = *std::exchange(m_corner, std::nullopt);
    m_rectangle.end();
    const auto reach = corner.x() < first.x() ? commands::Reach::Crossing : commands::Reach::Inside;
    std::vector<commands::Point> rectangle;
    for (const QPointF &place : {first, QPointF(corner.x(), first.y()), corner, QPointF(first.x(), corner.y())})
        rectangle.push_back(pointOf(m_coordinates.user(place)));
    change(commands::entitiesIn(m_document.session(), rectangle, reach));
}

void ViewSelection::change(const std::vector<RecordId> &entities)
{
    commands::Selection selected = m_document.session().impliedSelection();
    if (m_change == Change::Add && m_document.session().integer(u"PICKADD") == 0)
        selected.clear();
    const std::unordered_set<RecordId> changing(entities.begin(), entities.end());
    std::erase_if(selected, [&](RecordId entity) { return changing.contains(entity); });
    if (m_change == Change::Add)
        selected.insert(selected.end(), entities.begin(), entities.end());
    m_document.session().setImpliedSelection(std::move(selected));
    showWhatIs();
    Q_EMIT changed();
}

// Esc, while nothing runs that it is for.
void ViewSelection::clear()
{
    if (m_interface.isRunning())
        return;
    m_document.session().setImpliedSelection({});
    showWhatIs();
    Q_EMIT changed();
}

void ViewSelection::erase()
{
    if (isMine() && !m_document.session().impliedSelection().empty())
        m_runner.giveAnswers({QStringLiteral("_.ERASE")});
}
