#include "host/ui/interaction/ViewInput.h"

#include "host/commands/Picking.h"
#include "host/kernel/Document.h"
#include "host/ui/gui/WindowInterface.h"
#include "host/ui/view/DrawingArea.h"

#include <QLineF>

#include <cmath>

using Kind = InputRequest::Kind;

namespace {

constexpr double HeldDistance = 4; // pixels: nearer, the button was not held but clicked

commands::Point pointOf(const LispPoint &point)
{
    return {point.x, point.y, point.z};
}

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
    case Kind::Event:
        return true;
    case Kind::Integer:
    case Kind::Real:
    case Kind::String:
    case Kind::Keyword:
        break;
    }
    return false;
}

// Without what only a perspective would need.
geometry::Matrix affine(const LispMatrix &matrix)
{
    const auto column = [&](int number) {
        return geometry::Vector{matrix.rows[0][number], matrix.rows[1][number], matrix.rows[2][number]};
    };
    return {column(0), column(1), column(2), column(3)};
}

bool takesSnaps(Kind kind)
{
    return kind == Kind::Point || kind == Kind::Corner || kind == Kind::Distance || kind == Kind::Angle ||
           kind == Kind::Drag;
}

bool asksForObject(Kind kind)
{
    return kind == Kind::Entity || kind == Kind::Selection;
}

} // namespace

ViewInput::ViewInput(WindowInterface &interface, DrawingArea &area, Document &document)
    : m_interface(interface), m_area(area), m_document(document), m_coordinates(document, area.view()),
      m_draggedPicture([&document]() -> const drawing::Drawing & { return document.drawing(); })
{
    DrawingView &view = area.view();
    view.addOverlay(m_draggedPicture);
    view.addOverlay(m_rubberBand);
    view.addOverlay(m_marker);
    connect(&interface, &WindowInterface::requestEnded, this, &ViewInput::end);
    connect(&view, &DrawingView::pressed, this, &ViewInput::press);
    connect(&view, &DrawingView::released, this, &ViewInput::release);
    connect(&view, &DrawingView::cursorMoved, this, &ViewInput::move);
    connect(&view, &DrawingView::rightClicked, this, [this] { m_interface.answer({InputReply::Kind::Text, {}}); });
    showMarks();
}

ViewInput::~ViewInput()
{
    m_area.view().removeOverlay(m_marker);
    m_area.view().removeOverlay(m_rubberBand);
    m_area.view().removeOverlay(m_draggedPicture);
}

void ViewInput::begin(const InputRequest &request)
{
    if (!asksForPlace(request.kind))
        return;
    m_kind = request.kind;
    m_base = request.base;
    m_dragged = request.dragged;
    m_tellsMoves = request.tellsMoves;
    m_snapModes = request.snap;
    if (m_base)
        m_rubberBand.begin(request.kind == Kind::Corner ? RubberBand::Shape::Rectangle : RubberBand::Shape::Line,
                           m_coordinates.world(*m_base));
    showMarks();
}

void ViewInput::end()
{
    m_kind.reset();
    m_base.reset();
    m_dragged = nullptr;
    m_tellsMoves = false;
    m_draggedPicture.hide();
    m_rubberBand.end();
    m_marker.show(std::nullopt);
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
LispPoint ViewInput::constrained(LispPoint place) const
{
    const bool isConstrained = m_base && m_kind != Kind::Corner && m_document.session().integer(u"ORTHOMODE") != 0;
    if (!isConstrained)
        return place;
    if (std::abs(place.x - m_base->x) < std::abs(place.y - m_base->y))
        place.x = m_base->x;
    else
        place.y = m_base->y;
    return place;
}

std::optional<snap::Snap> ViewInput::snapAt(const LispPoint &place) const
{
    DocumentSession &session = m_document.session();
    const auto modes = m_snapModes.value_or(static_cast<snap::Modes>(session.integer(u"OSMODE")));
    if (!m_kind || !takesSnaps(*m_kind) || modes == snap::None || modes & snap::Suppressed)
        return std::nullopt;
    return commands::snapAt(session, pointOf(place), modes, m_base ? std::optional(pointOf(*m_base)) : std::nullopt);
}

void ViewInput::aim(const QPointF &place)
{
    const LispPoint cursor = m_coordinates.user(place);
    const std::optional<snap::Snap> snap = snapAt(cursor);
    m_marker.show(snap);
    m_place = snap ? m_coordinates.user(snap->place) : constrained(cursor);
    m_rubberBand.setTo(m_coordinates.world(m_place));
    if (snap && m_snapModes) // who has asked snaps to typed modes: a foot beyond a line is not found again from itself
        m_place = cursor;
}

void ViewInput::press(const QPointF &place)
{
    m_held = place;
    pick(place);
}

void ViewInput::release(const QPointF &place)
{
    const std::optional<QPointF> pressed = std::exchange(m_held, std::nullopt);
    const bool wasHeld = pressed && QLineF(*pressed, place).length() * m_area.view().scale() >= HeldDistance;
    if (wasHeld && m_kind == Kind::Corner)
        pick(place);
}

void ViewInput::move(const QPointF &place)
{
    if (!m_kind)
        return;
    aim(place);
    if (m_tellsMoves)
        m_interface.answer({InputReply::Kind::Moved, {}, m_place});
    if (m_dragged)
        m_draggedPicture.show(m_dragged->entities, affine(m_dragged->transformAt(m_place)));
}

void ViewInput::pick(const QPointF &place)
{
    if (!m_kind)
        return;
    aim(place);
    m_interface.answer({InputReply::Kind::Picked, {}, m_place});
}
