#pragma once

#include "host/drawing/Group.h"
#include "host/ui/interaction/ViewCoordinates.h"

#include <QObject>

#include <optional>

class DrawingArea;

// Keeps VIEWCTR, VIEWSIZE and SCREENSIZE what is seen of the space that is worked on, and the view what commands have
// made of them. Of the model in a viewport they tell what the viewport shows; a command that changes them changes it.
class ViewVariables final : public QObject
{
public:
    ViewVariables(DrawingArea &area, Document &document);

    struct Place
    {
        drawing::Point centre; // VIEWCTR, in the user's coordinate system
        double height;         // VIEWSIZE
        bool operator==(const Place &) const = default;
    };
    std::optional<Place> changed() const; // by a command, since the view has told where it is
    void show(const Place &place);
    void takeFromView();

private:
    Place ofVariables() const;
    void tell(const QPointF &centre, const QSizeF &pixels); // the centre in the scene

    DrawingArea &m_area;
    Document &m_document;
    ViewCoordinates m_coordinates;
    Place m_told{};
};
