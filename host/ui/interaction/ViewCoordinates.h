#pragma once

#include "host/drawing/geometry/Vector.h"
#include "lisp/resbuf.h"

#include <QPointF>

class Document;

// Places of the view, which is seen from above, in the coordinates of programs and commands: those of the user's
// coordinate system. What is pointed at lies in its plane, at the current elevation.
class ViewCoordinates
{
public:
    explicit ViewCoordinates(Document &document) : m_document(document) {}

    LispPoint user(const QPointF &world) const;
    LispPoint user(const geometry::Vector &world) const; // where it lies itself
    QPointF world(const LispPoint &user) const;

private:
    Document &m_document;
};
