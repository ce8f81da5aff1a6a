#include "host/ui/interaction/ViewVariables.h"

#include "host/kernel/Document.h"
#include "host/ui/interaction/ViewCoordinates.h"
#include "host/ui/view/DrawingArea.h"

ViewVariables::ViewVariables(DrawingArea &area, Document &document) : m_area(area), m_document(document)
{
    connect(&area.view(), &DrawingView::viewChanged, this, &ViewVariables::takeFromView);
    takeFromView();
}

ViewVariables::Place ViewVariables::ofVariables() const
{
    return {m_document.session().point(u"VIEWCTR"), m_document.session().real(u"VIEWSIZE")};
}

void ViewVariables::takeFromView()
{
    if (!m_area.showsModel())
        return;
    const DrawingView &view = m_area.view();
    const LispPoint centre = ViewCoordinates(m_document).user(view.centre());
    DocumentSession &session = m_document.session();
    session.assign(u"VIEWCTR", commands::Point{centre.x, centre.y, centre.z});
    session.assign(u"VIEWSIZE", view.height() / view.scale());
    session.assign(u"SCREENSIZE", commands::Point{double(view.width()), double(view.height()), 0});
    m_told = ofVariables();
}

void ViewVariables::showInView()
{
    if (!m_area.showsModel())
        return;
    const Place place = ofVariables();
    if (place == m_told)
        takeFromView(); // the coordinate system may be another one
    else
        m_area.view().show(ViewCoordinates(m_document).world({place.centre.x, place.centre.y, place.centre.z}),
                           place.height);
}
