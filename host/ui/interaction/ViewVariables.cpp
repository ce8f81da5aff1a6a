#include "host/ui/interaction/ViewVariables.h"

#include "host/drawing/LayoutViewports.h"
#include "host/kernel/Document.h"
#include "host/ui/view/DrawingArea.h"

ViewVariables::ViewVariables(DrawingArea &area, Document &document)
    : m_area(area), m_document(document), m_coordinates(document, area.view())
{
    connect(&area.view(), &DrawingView::viewChanged, this, &ViewVariables::takeFromView);
    takeFromView();
}

ViewVariables::Place ViewVariables::ofVariables() const
{
    return {m_document.session().point(u"VIEWCTR"), m_document.session().real(u"VIEWSIZE")};
}

std::optional<ViewVariables::Place> ViewVariables::changed() const
{
    const Place place = ofVariables();
    return place == m_told ? std::nullopt : std::optional(place);
}

void ViewVariables::takeFromView()
{
    const DrawingView &view = m_area.view();
    const QRectF &viewport = view.space().view;
    if (view.space().kind == render::ShownSpace::Kind::Viewport)
        tell(viewport.center(), viewport.size() * view.scale());
    else
        tell(view.centre(), view.size());
}

void ViewVariables::tell(const QPointF &centre, const QSizeF &pixels)
{
    const LispPoint place = m_coordinates.user(centre);
    const DrawingView &view = m_area.view();
    DocumentSession &session = m_document.session();
    session.assign(u"VIEWCTR", commands::Point{place.x, place.y, place.z});
    session.assign(u"VIEWSIZE", pixels.height() / (view.scale() * view.space().scale));
    session.assign(u"SCREENSIZE", commands::Point{pixels.width(), pixels.height(), 0});
    m_told = ofVariables();
}

void ViewVariables::show(const Place &place)
{
    DrawingView &view = m_area.view();
    const geometry::Vector world = m_coordinates.world({place.centre.x, place.centre.y, place.centre.z});
    const geometry::Vector onPage = view.space().toPage.place(world);
    if (view.space().kind == render::ShownSpace::Kind::Viewport) {
        const QPointF by = (QPointF(onPage.x, onPage.y) - view.space().view.center()) / view.space().scale;
        drawing::changeView(m_document.drawing().database(), view.space().viewport, by.x(), by.y(), place.height);
        m_area.refresh();
    } else {
        view.show({onPage.x, onPage.y}, place.height * view.space().scale);
    }
}
