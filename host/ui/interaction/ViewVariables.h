#pragma once

#include "host/drawing/Group.h"

#include <QObject>

class Document;
class DrawingArea;

// Keeps VIEWCTR, VIEWSIZE and SCREENSIZE what the view of the model shows, and the view what commands have made of
// them.
class ViewVariables final : public QObject
{
public:
    ViewVariables(DrawingArea &area, Document &document);

    void showInView(); // after a command that may have changed them

private:
    struct Place
    {
        drawing::Point centre; // VIEWCTR, in the user's coordinate system
        double height;         // VIEWSIZE
        bool operator==(const Place &) const = default;
    };
    Place ofVariables() const;
    void takeFromView();

    DrawingArea &m_area;
    Document &m_document;
    Place m_told{};
};
