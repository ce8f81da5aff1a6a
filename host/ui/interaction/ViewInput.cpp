#include "host/ui/interaction/ViewInput.h"

#include "host/kernel/Document.h"
#include "host/ui/gui/WindowInterface.h"
#include "host/ui/view/DrawingArea.h"

#include <QLineF>

#include <cmath>

using Kind = InputRequest::Kind;

namespace {

constexpr double HeldDistance = 4; // pixels: nearer, the button was not held but clicked

bool asksForPlace(Kind kind)
{
    switch (kind) {
    case Kind::Point:
    case Kind::Corner:
    case Kind::Distance:
    case Kind::Angle:
    case Kind::Entity:
    case Kind::Selection:
    case Kind::Drag:
        return true;
    case Kind::Integer:
    case Kind::Real:
    case Kind::String:
    case Kind::Keyword:
        break;
    }
    return false;
}

bool asksForObject(Kind kind)
{
    return kind == Kind::Entity || kind == Kind::Selection;
}

} // namespace

ViewInput::ViewInput(WindowInterface &interface, DrawingArea &area, Document &document)
    : m_interface(interface), m_area(area), m_document(document), m_coordinates(document)
{
    DrawingView &view = area.view();
    view.addOverlay(m_rubberBand);
    connect(&interface, &WindowInterface::requestBegan, this, &ViewInput::begin);
    connect(&interface, &WindowInterface::requestEnded, this, &ViewInput::end);
    connect(&view, &DrawingView::pressed, this, &ViewInput::press);
    connect(&view, &DrawingView::released, this, &ViewInput::release);
    connect(&view, &DrawingView::cursorMoved, this, &ViewInput::move);
    connect(&view, &DrawingView::rightClicked, this, [this] { m_interface.answer({InputReply::Kind::Text, {}}); });
    showMarks();
}

ViewInput::~ViewInput()
{
    m_area.view().removeOverlay(m_rubberBand);
}

void ViewInput::begin(const InputRequest &request)
{
    if (!asksForPlace(request.kind))
        return;
    m_kind = request.kind;
    m_base = request.base;
    if (m_base)
        m_rubberBand.begin(request.kind == Kind::Corner ? RubberBand::Shape::Rectangle : RubberBand::Shape::Line,
                           m_coordinates.world(*m_base));
    showMarks();
}

void ViewInput::end()
{
    m_kind.reset();
    m_base.reset();
    m_rubberBand.end();
    showMarks();
}

void ViewInput::showMarks()
{
    using Marks = DrawingView::Marks;
    const Marks marks = !m_kind                  ? Marks::CrosshairAndPickBox
                        : asksForObject(*m_kind) ? Marks::PickBox
                                                 : Marks::Crosshair;
    m_area.view().setMarks(marks, m_document.session().integer(u"PICKBOX"));
}

// To the nearer axis of the user's coordinate system.
QPointF ViewInput::constrained(const QPointF &world) const
{
    const bool isConstrained = m_base && m_kind != Kind::Corner && m_document.session().integer(u"ORTHOMODE") != 0;
    if (!isConstrained)
        return world;
    LispPoint place = m_coordinates.user(world);
    if (std::abs(place.x - m_base->x) < std::abs(place.y - m_base->y))
        place.x = m_base->x;
    else
        place.y = m_base->y;
    return m_coordinates.world(place);
}

void ViewInput::press(const QPointF &world)
{
    m_held = world;
    pick(world);
}

void ViewInput::release(const QPointF &world)
{
    const std::optional<QPointF> pressed = std::exchange(m_held, std::nullopt);
    const bool wasHeld = pressed && QLineF(*pressed, world).length() * m_area.view().scale() >= HeldDistance;
    if (wasHeld && m_kind == Kind::Corner)
        pick(world);
}

void ViewInput::move(const QPointF &world)
{
    m_rubberBand.setTo(constrained(world));
}

void ViewInput::pick(const QPointF &world)
{
    if (m_kind && m_area.showsModel())
        m_interface.answer({InputReply::Kind::Picked, {}, m_coordinates.user(constrained(world))});
}
