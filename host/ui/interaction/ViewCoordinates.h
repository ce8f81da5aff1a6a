#pragma once

#include "host/drawing/geometry/Vector.h"
#include "lisp/resbuf.h"

#include <QPointF>

class Document;
class DrawingView;

// Places of the scene in the coordinates of programs and commands: those of the user's coordinate system, in the space
// that is worked on. What is pointed at lies in its plane, at the current elevation.
class ViewCoordinates
{
public:
    ViewCoordinates(Document &document, const DrawingView &view) : m_document(document), m_view(view) {}

    LispPoint user(const QPointF &scene) const;
    LispPoint user(const geometry::Vector &world) const; // where it lies itself
    geometry::Vector world(const LispPoint &user) const;
    geometry::Vector world(const QPointF &scene) const { return world(user(scene)); }

private:
    Document &m_document;
    const DrawingView &m_view;
};
